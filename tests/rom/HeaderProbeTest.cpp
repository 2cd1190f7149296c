#include "rom/RomInfo.h"
#include "support/SnesImageBuilder.h"

#include <QBuffer>
#include <gtest/gtest.h>

// Candidates in order: 0x81C0, 0x7FC0, 0x101C0; positions are one-based and the
// default is the first candidate. Complement and checksum are read high byte first.
TEST(HeaderProbe, TriesTheCandidatesInOrder) {
    using B = SnesImageBuilder;
    const QByteArray decoy = B().Build().mid(0x7FC0, 32);
    const std::pair<QByteArray, qint64> cases[] = {
        {B::ValidLoRomWithCopierHeader(), 0x81C1},
        {B::HeaderlessLoRom(), 0x7FC1},
        {B::HiRomWithCopierHeader(), 0x101C1},
        // The first candidate wins even when a later one holds a header too.
        {B().CopierHeader().Bytes(0x7FC0, decoy).Build(), 0x81C1},
        // A HiROM image without copier header is not looked for at 0xFFC0.
        {B().HiRom().Build(), 0x81C1},
        // Any pair whose bits cover every position, one blank value included; one bit
        // missing gives the default.
        {B().ChecksumFields(0xFFF0, 0x0F0F).Build(), 0x7FC1},
        {B().ChecksumFields(0xFFFF, 0xFF00).Build(), 0x7FC1},
        {B().ChecksumFields(0xFFF0, 0x0F07).Build(), 0x81C1},
        // A blank area (both values 0xFFFF) steps over the next candidate; blank at
        // the last one means no header.
        {B().HiRom().CopierHeader().Bytes(0x7FC0, decoy).Blank(0x81C0 + 28, 4).Build(), 0x101C1},
        {B().Blank(0x81C0 + 28, 4).Blank(0x101C0 + 28, 4).Build(), 0},
        {B().ChecksumFields(0, 0).Blank(0x101C0 + 28, 4).Build(), 0},
        {B().HiRom().CopierHeader().Blank(0x7FC0 + 28, 4).Build(), 0x81C1},
        // Short files read as zeros, not as blanks.
        {QByteArray(), 0x81C1},
        {QByteArray(0x7FC0 + 30, '\0'), 0x81C1},
        {B().Build().left(0x8000), 0x7FC1}};
    int row = 0;
    for (const auto& [image, position] : cases) {
        QByteArray bytes = image;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        EXPECT_EQ(FindHeaderPosition(buffer), position) << "row " << row++;
    }
}
