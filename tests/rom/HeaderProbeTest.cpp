#include "rom/RomInfo.h"
#include "support/SnesImageBuilder.h"

#include <QBuffer>
#include <gtest/gtest.h>

namespace {

qint64 Probe(const QByteArray& image) {
    QByteArray bytes = image;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return FindHeaderPosition(buffer);
}

// A valid header's 32 bytes, to plant a second header into an image.
QByteArray Decoy() {
    return SnesImageBuilder().Title("DECOY").HeaderBytes();
}

} // namespace

TEST(HeaderProbe, FindsEachLayoutAndReturnsOneBasedPositions) {
    EXPECT_EQ(Probe(SnesImageBuilder::ValidLoRomWithCopierHeader()), 0x81C0 + 1);
    EXPECT_EQ(Probe(SnesImageBuilder::HiRomWithCopierHeader()), 0x101C0 + 1);
    // 0x81C0 is tried first and fails: its fields are neither blank nor a pair.
    EXPECT_EQ(Probe(SnesImageBuilder().LoRom().Bytes(0x81C0 + 28, "\x12\x34\x56\x78").Build()),
              0x7FC0 + 1);
    // The first candidate wins even when a later one holds a header too.
    EXPECT_EQ(Probe(SnesImageBuilder().LoRom().CopierHeader().Bytes(0x7FC0, Decoy()).Build()),
              0x81C0 + 1);
    // A HiROM image without copier header is not looked for at 0xFFC0.
    EXPECT_EQ(Probe(SnesImageBuilder().HiRom().Build()), 0x81C0 + 1);
}

TEST(HeaderProbe, AcceptsAnyPairWhoseBitsCoverEveryPosition) {
    // The OR test, looser than a sum of 0xFFFF.
    EXPECT_EQ(Probe(SnesImageBuilder().LoRom().ChecksumFields(0xFFF0, 0x0F0F).Build()), 0x7FC1);
    EXPECT_EQ(Probe(SnesImageBuilder().LoRom().ChecksumFields(0xFFFF, 0x0000).Build()), 0x7FC1);
    // One blank value only is a pair, not a blank area.
    EXPECT_EQ(Probe(SnesImageBuilder().LoRom().ChecksumFields(0xFFFF, 0xFF00).Build()), 0x7FC1);
    // One bit missing: no candidate, so the default.
    EXPECT_EQ(Probe(SnesImageBuilder().LoRom().ChecksumFields(0xFFF0, 0x0F07).Build()), 0x81C1);
}

TEST(HeaderProbe, BlankAreasTakeADoubleStep) {
    // Blank at 0x81C0 skips the valid header at 0x7FC0 and takes 0x101C0.
    EXPECT_EQ(Probe(SnesImageBuilder()
                        .HiRom()
                        .CopierHeader()
                        .Bytes(0x7FC0, Decoy())
                        .Blank(0x81C0 + 28, 4)
                        .Build()),
              0x101C1);
    // Blank at 0x81C0 and at 0x101C0: no header at all.
    EXPECT_EQ(Probe(SnesImageBuilder().Blank(0x81C0 + 28, 4).Blank(0x101C0 + 28, 4).Build()), 0);
    EXPECT_EQ(Probe(SnesImageBuilder().NoHeader().Blank(0, 0x20000).Build()), 0);
    // Blank at 0x101C0 alone, after two failed candidates.
    EXPECT_EQ(Probe(SnesImageBuilder().NoHeader().Blank(0x101C0 + 28, 4).Build()), 0);
    // Blank at 0x7FC0 ends the loop before 0x101C0: the default, not the HiROM header.
    EXPECT_EQ(Probe(SnesImageBuilder().HiRom().CopierHeader().Blank(0x7FC0 + 28, 4).Build()),
              0x81C1);
}

TEST(HeaderProbe, ShortFilesReadAsZeros) {
    EXPECT_EQ(Probe(QByteArray()), 0x81C1);
    EXPECT_EQ(Probe(QByteArray(100, 'A')), 0x81C1);
    // Cut inside 0x7FC0's fields: missing bytes of 0xFF would make a pair with the
    // zeros before them.
    EXPECT_EQ(Probe(SnesImageBuilder().NoHeader().Size(0x7FC0 + 30).Build()), 0x81C1);
    // Cut after a headerless LoROM's bank: still found.
    EXPECT_EQ(Probe(SnesImageBuilder().LoRom().Size(0x8000).Build()), 0x7FC1);
}
