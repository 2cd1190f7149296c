#include "rom/RomInfo.h"
#include "support/SnesImageBuilder.h"
#include "support/TestFixtures.h"

namespace {

class RomInfoTest : public LumbraTest {
protected:
    // Writes the image and reads it into a fresh object.
    clsRomInfo Read(const QByteArray& image) {
        clsRomInfo info;
        info.ReadROM(WriteFile(QStringLiteral("game.smc"), image));
        return info;
    }
    static void ExpectAllEmpty(const clsRomInfo& info) {
        for (int field = BankSize; field <= SramSize; ++field)
            EXPECT_EQ(info.GameData(field), QString()) << "field " << field;
    }
};

} // namespace

TEST_F(RomInfoTest, DecodesEveryFieldOfACopierHeaderLoRom) {
    SnesImageBuilder builder;
    builder.CopierHeader().Title("SUPER MARIOWORLD").Makeup(0x31).Type(2).RomSize(10).SramSize(1);
    builder.Country(9).Licensee(51).Version(2);
    // The decoder reads the pair one byte late and high byte first: +29/+30 are
    // 0x12 0x34, +31 is the checksum's high byte 0xED, +32 the byte after the header.
    builder.ChecksumFields(0x12CB, 0xED34).Bytes(0x81C0 + 32, "\x56");
    clsRomInfo info;
    EXPECT_FALSE(info.ReadROM(WriteFile(QStringLiteral("mario.smc"), builder.Build())));

    EXPECT_EQ(info.GameData(InternalTitle), "SUPER MARIOWORLD");
    EXPECT_EQ(info.GameData(RomSpeed), "FastROM (120ns)");
    EXPECT_EQ(info.GameData(BankSize), "HiROM (64kb banks)");
    EXPECT_EQ(info.GameData(RomType), "ROM and Save RAM");
    EXPECT_EQ(info.GameData(RomSize), "8 MegaBits");
    EXPECT_EQ(info.GameData(SramSize), "16 KiloBits");
    EXPECT_EQ(info.GameData(Country), "Germany, Austria and Switzerland (PAL)");
    EXPECT_EQ(info.GameData(License), "Nintendo");
    EXPECT_EQ(info.GameData(GameVersion), "1.2");
    EXPECT_EQ(info.GameData(InverseChecksum), "4660");
    EXPECT_EQ(info.GameData(Checksum), "60758");
    EXPECT_EQ(info.GameData(0), QString());
    EXPECT_EQ(info.GameData(12), QString());

    // A plain little-endian pair 0xEDCB / 0x1234 shows as 0xED34 and 0x1200.
    const clsRomInfo plain = Read(SnesImageBuilder::HiRomWithCopierHeader("ZELDA"));
    EXPECT_EQ(plain.GameData(InternalTitle), "ZELDA");
    EXPECT_EQ(plain.GameData(InverseChecksum), "60724");
    EXPECT_EQ(plain.GameData(Checksum), "4608");
    EXPECT_EQ(Read(SnesImageBuilder::HeaderlessLoRom("F-ZERO")).GameData(InternalTitle), "F-ZERO");
}

TEST_F(RomInfoTest, MakeupDigitsTablesAndUnknownCodes) {
    const struct {
        SnesImageBuilder Image;
        RomInfoField Field;
        const char* Text;
    } cases[] = {
        {SnesImageBuilder().Makeup(0x20), RomSpeed, "Unknown (2)"},
        {SnesImageBuilder().Makeup(0x20), BankSize, "LoROM (32kb banks)"},
        {SnesImageBuilder().Makeup(0xFA), RomSpeed, "Unknown (15)"},
        {SnesImageBuilder().Makeup(0xFA), BankSize, "Unknown (10)"},
        {SnesImageBuilder().Type(6), RomType, "Unknown (6)"},
        {SnesImageBuilder().Type(246), RomType, "ROM and DSP2 chip"},
        {SnesImageBuilder().RomSize(7), RomSize, "Unknown (7)"},
        {SnesImageBuilder().SramSize(4), SramSize, "Unknown (4)"},
        {SnesImageBuilder().Country(13), Country, "Korea (PAL)"},
        {SnesImageBuilder().Country(14), Country, "Unknown (14)"},
        {SnesImageBuilder().Licensee(2), License, ""},
        {SnesImageBuilder().Version(10), GameVersion, "1.10"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Read(c.Image.Build()).GameData(c.Field), c.Text) << c.Text;
}

TEST_F(RomInfoTest, LicenseeTableKeepsEveryListedEntry) {
    const clsRomInfo info;
    int filled = 0;
    for (int code = 0; code < 256; ++code)
        filled += info.Licensee(code).isEmpty() ? 0 : 1;
    EXPECT_EQ(filled, 153);
    EXPECT_EQ(info.Licensee(3), "Imagineer -Zoom");
    EXPECT_EQ(info.Licensee(147), "BEC149 Varie");
    EXPECT_EQ(info.Licensee(149), QString());
    EXPECT_EQ(info.Licensee(177), "ASCII Co.Activison");
    EXPECT_EQ(info.Licensee(228), "T & ESoft");
    EXPECT_EQ(info.Licensee(132), info.Licensee(23));
}

TEST_F(RomInfoTest, TitleIsTrimmedOfSpacesOnly) {
    EXPECT_EQ(Read(SnesImageBuilder().Title(QByteArray(21, ' ')).Build()).GameData(InternalTitle),
              QString());
    EXPECT_EQ(Read(SnesImageBuilder().Title("  STAR\tFOX").Build()).GameData(InternalTitle),
              "STAR\tFOX");
    // Zero padding stays, and the bytes are 8-bit characters.
    const QString title =
        Read(SnesImageBuilder().Title(QByteArray("POK\xC9MON", 7) + QByteArray(14, '\0')).Build())
            .GameData(InternalTitle);
    EXPECT_EQ(title, QStringLiteral(u"POK\u00C9MON") + QString(14, QChar(0)));
}

TEST_F(RomInfoTest, WithoutAHeaderTheDefaultPlaceIsDecoded) {
    // Headerless HiROM and a short file both decode the zeros at 0x81C0.
    for (const QByteArray& image :
         {SnesImageBuilder().HiRom().Title("NOT FOUND").Build(), QByteArray(100, 'A')}) {
        const clsRomInfo info = Read(image);
        EXPECT_EQ(info.GameData(InternalTitle), QString(21, QChar(0)));
        EXPECT_EQ(info.GameData(RomSize), "Unknown (0)");
        EXPECT_EQ(info.GameData(Country), "Japan (NTSC)");
        EXPECT_EQ(info.GameData(License), QString());
        EXPECT_EQ(info.GameData(GameVersion), "1.0");
        EXPECT_EQ(info.GameData(Checksum), "0");
    }
}

TEST_F(RomInfoTest, NothingIsDecodedWithoutAFileOrHeader) {
    ExpectAllEmpty(Read(SnesImageBuilder().NoHeader().Blank(0, 0x20000).Build()));

    clsRomInfo info;
    EXPECT_FALSE(info.ReadROM(QString()));
    EXPECT_FALSE(info.ReadROM(TempPath(QStringLiteral("missing.smc"))));
    EXPECT_FALSE(info.ReadROM(MakeFolder(QStringLiteral("folder.smc"))));
    ExpectAllEmpty(info);

    // A second read that finds no header keeps the first file's texts.
    info.ReadROM(WriteFile(QStringLiteral("a.smc"), SnesImageBuilder::HeaderlessLoRom("FIRST")));
    info.ReadROM(
        WriteFile(QStringLiteral("b.smc"),
                  SnesImageBuilder().Blank(0x81C0 + 28, 4).Blank(0x101C0 + 28, 4).Build()));
    info.ReadROM(TempPath(QStringLiteral("missing.smc")));
    EXPECT_EQ(info.GameData(InternalTitle), "FIRST");
    EXPECT_EQ(info.GameData(Country), "USA (NTSC)");
}

TEST_F(RomInfoTest, OpensMixedCaseFilesThroughLowerCasePaths) {
    WriteFile(QStringLiteral("Roms/Super Mario World.SMC"),
              SnesImageBuilder::ValidLoRomWithCopierHeader("SUPER MARIOWORLD"));
    clsRomInfo info;
    info.ReadROM(TempPath(QStringLiteral("roms/super mario world.smc")));
    EXPECT_EQ(info.GameData(InternalTitle), "SUPER MARIOWORLD");
}
