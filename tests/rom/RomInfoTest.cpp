#include "rom/RomInfo.h"
#include "support/SnesImageBuilder.h"
#include "support/TestFixtures.h"

namespace {

// The eleven texts in header order, joined with "|".
QString Fields(const clsRomInfo& info) {
    QStringList fields;
    for (const RomInfoField field : {InternalTitle, RomSpeed, BankSize, RomType, RomSize, SramSize,
                                     Country, License, GameVersion, InverseChecksum, Checksum})
        fields << info.GameData(field);
    return fields.join('|');
}

class RomInfoTest : public LumbraTest {
protected:
    clsRomInfo Read(const QByteArray& image) {
        clsRomInfo info;
        EXPECT_FALSE(info.ReadROM(WriteFile("game.smc", image)));
        return info;
    }
};

} // namespace

TEST_F(RomInfoTest, DecodesEveryFieldThroughItsTable) {
    using B = SnesImageBuilder;
    // The decoder reads the pair one byte late and high byte first: +29/+30 are
    // 0x12 0x34, +31 is the checksum's high byte 0xED, +32 the byte after the header.
    B mario;
    mario.CopierHeader().Title("SUPER MARIOWORLD").Makeup(0x31).Type(2).RomSize(10);
    mario.SramSize(1).Country(9).Licensee(51).Version(2).ChecksumFields(0x12CB, 0xED34);
    const QString zeros = QString(21, QChar(0)) + "|SlowROM (200ns)|LoROM (32kb banks)|ROM only|"
                                                  "Unknown (0)|None|Japan (NTSC)||1.0|0|0";
    const std::pair<QByteArray, QString> cases[] = {
        {mario.Bytes(0x81C0 + 32, "\x56").Build(),
         "SUPER MARIOWORLD|FastROM (120ns)|HiROM (64kb banks)|ROM and Save RAM|8 MegaBits|"
         "16 KiloBits|Germany, Austria and Switzerland (PAL)|Nintendo|1.2|4660|60758"},
        // Unknown codes, an unlisted licensee and the last entries of the tables.
        {B().Makeup(0xFA).Type(6).RomSize(7).SramSize(4).Country(14).Licensee(2).Build(),
         "LUMBRA TEST|Unknown (15)|Unknown (10)|Unknown (6)|Unknown (7)|Unknown (4)|"
         "Unknown (14)||1.0|60724|4608"},
        {B().Type(246).RomSize(12).SramSize(3).Country(13).Licensee(255).Version(10).Build(),
         "LUMBRA TEST|Unknown (2)|LoROM (32kb banks)|ROM and DSP2 chip|32 MegaBits|64 KiloBits|"
         "Korea (PAL)|Hudson Soft|1.10|60724|4608"},
        // Without a header (headerless HiROM, short file) the zeros at 0x81C0 are decoded.
        {B().HiRom().Build(), zeros},
        {QByteArray(100, 'A'), zeros}};
    for (const auto& [image, fields] : cases)
        EXPECT_EQ(Fields(Read(image)), fields);

    // Titles lose outer spaces only; zero padding stays and bytes are 8-bit characters.
    for (const auto& [title, text] : {std::pair<QByteArray, QString>{QByteArray(21, ' '), ""},
                                      {"\t STAR FOX\t ", "\t STAR FOX\t"},
                                      {QByteArray("POK\xC9MON", 7) + QByteArray(14, '\0'),
                                       QStringLiteral(u"POK\u00C9MON") + QString(14, QChar(0))}})
        EXPECT_EQ(Read(B().Title(title).Build()).GameData(InternalTitle), text);

    // Every listed licensee is kept, repeats included.
    const clsRomInfo info;
    int listed = 0;
    for (int code = 0; code < 256; ++code)
        listed += info.Licensee(code).isEmpty() ? 0 : 1;
    EXPECT_EQ(listed, 153);
    EXPECT_EQ(info.GameData(0) + info.GameData(12), QString());
}

TEST_F(RomInfoTest, NothingIsDecodedWithoutAFileOrHeader) {
    const QByteArray blank =
        SnesImageBuilder().Blank(0x81C0 + 28, 4).Blank(0x101C0 + 28, 4).Build();
    EXPECT_EQ(Fields(Read(blank)), QString(10, '|'));
    clsRomInfo info;
    EXPECT_FALSE(info.ReadROM(QString()));
    EXPECT_FALSE(info.ReadROM(TempPath("missing.smc")));
    EXPECT_FALSE(info.ReadROM(MakeFolder("folder.smc")));
    EXPECT_EQ(Fields(info), QString(10, '|'));

    // Mixed-case files open through lower-case paths; a later read that finds no
    // header keeps the earlier texts. The builder's plain little-endian pair
    // 0xEDCB / 0x1234 shows as 0xED34 and 0x1200.
    WriteFile("Roms/First.SMC", SnesImageBuilder::HeaderlessLoRom("FIRST"));
    info.ReadROM(TempPath("roms/first.smc"));
    info.ReadROM(WriteFile("b.smc", blank));
    info.ReadROM(TempPath("missing.smc"));
    EXPECT_EQ(Fields(info), "FIRST|Unknown (2)|LoROM (32kb banks)|ROM only|2 MegaBits|None|"
                            "USA (NTSC)|Nintendo|1.0|60724|4608");
}
