#include "rom/RomCaption.h"
#include "launch/PathResolver.h"
#include "rom/FormatCaption.h"
#include "support/SnesImageBuilder.h"
#include "support/TestFixtures.h"

namespace {

class RomCaptionTest : public LumbraTest {
protected:
    QString Caption(const QString& relativePath, qint16 useBaseFilenames = 0) {
        PathResolver resolver;
        return GetRomCaption(TempPath(relativePath), useBaseFilenames, resolver);
    }
};

} // namespace

TEST_F(RomCaptionTest, TakesTheFormattedInternalTitle) {
    WriteFile("a.smc", SnesImageBuilder::ValidLoRomWithCopierHeader("SUPER MARIOWORLD"));
    WriteFile("b.sfc", SnesImageBuilder::HeaderlessLoRom("FINAL FANTASY 3"));
    WriteFile("c.fig", SnesImageBuilder::HiRomWithCopierHeader("DONKEY KONG COUNTRY 2"));
    WriteFile(
        "d.swc",
        SnesImageBuilder().Title(QByteArray("FF MYSTIC QUEST") + QByteArray(6, '\0')).Build());
    EXPECT_EQ(Caption("a.smc"), "Super Marioworld");
    EXPECT_EQ(Caption("b.sfc"), "Final Fantasy 3");
    EXPECT_EQ(Caption("c.fig"), "Donkey Kong Country 2");
    EXPECT_EQ(Caption("d.swc"), "FF Mystic Quest");

    WriteFile("Roms/Super Mario World.SMC", SnesImageBuilder::HeaderlessLoRom("SUPER MARIOWORLD"));
    EXPECT_EQ(Caption("roms/super mario world.smc"), "Super Marioworld");
}

TEST_F(RomCaptionTest, ArchivesAreNamedAfterTheirFile) {
    // Not opened, even when the archive's bytes would hold a header.
    WriteFile("roms/super_mario_world.zip", SnesImageBuilder::ValidLoRomWithCopierHeader("NO"));
    EXPECT_EQ(Caption("roms/super_mario_world.zip"), "Super Mario World.Zip");
    EXPECT_EQ(Caption("roms/MISSING.ZIP"), "Missing.Zip");
    PathResolver resolver;
    EXPECT_EQ(GetRomCaption("C:\\Roms\\zelda (u).zip", 0, resolver), "Zelda (U).Zip");
}

TEST_F(RomCaptionTest, UnreadableTitlesFallBackToTheFileName) {
    const QString name = "super_mario_world (u) [!].smc";
    const QByteArray blank =
        SnesImageBuilder().Blank(0x81C0 + 28, 4).Blank(0x101C0 + 28, 4).Build();
    const QByteArray spaces = SnesImageBuilder::HeaderlessLoRom(QByteArray(21, ' '));
    const QByteArray shortFile(100, 'A');
    for (const QByteArray& image : {blank, spaces, shortFile}) {
        WriteFile("roms/" + name, image);
        EXPECT_EQ(Caption("roms/" + name, 0), "*" + name);
        EXPECT_EQ(Caption("roms/" + name, -1), "*" + name);
        // The file name without its extension; the folder stays out of the caption.
        EXPECT_EQ(Caption("roms/" + name, 1), "Super Mario World (U) [!]");
    }
    EXPECT_EQ(Caption("roms/missing.smc", 0), "*missing.smc");
    PathResolver resolver;
    EXPECT_EQ(GetRomCaption("no_extension", 1, resolver), "No Extension");
}
