#include "rom/RomCaption.h"
#include "platform/PathResolver.h"
#include "support/SnesImageBuilder.h"
#include "support/TestFixtures.h"

TEST_F(LumbraTest, RomCaptionTitlesArchivesAndFallbacks) {
    const auto caption = [this](const QString& relativePath, qint16 useBaseFilenames = 0) {
        PathResolver resolver;
        return GetRomCaption(TempPath(relativePath), useBaseFilenames, resolver);
    };
    WriteFile("Roms/Quest.SMC",
              SnesImageBuilder::HiRomWithCopierHeader(QByteArray("FF MYSTIC QUEST\0\0", 17)));
    EXPECT_EQ(caption("roms/quest.smc"), "FF Mystic Quest");
    // An archive is not opened, even when its bytes would hold a header.
    WriteFile("super_mario_world.zip", SnesImageBuilder::HeaderlessLoRom("NO"));
    EXPECT_EQ(caption("super_mario_world.zip", 1), "Super Mario World.Zip");
    EXPECT_EQ(caption("C:\\Roms\\zelda (u).zip"), "Zelda (U).Zip");

    // Unreadable titles: no header, a blank title, a short file.
    const QString name = "roms/super_mario_world (u) [!].smc";
    for (const QByteArray& image :
         {SnesImageBuilder().Blank(0x81C0 + 28, 4).Blank(0x101C0 + 28, 4).Build(),
          SnesImageBuilder::HeaderlessLoRom(QByteArray(21, ' ')), QByteArray(100, 'A')}) {
        WriteFile(name, image);
        EXPECT_EQ(caption(name, 0) + caption(name, -1), "*" + name.mid(5) + "*" + name.mid(5));
        // The file name without its extension; the folder stays out of the caption.
        EXPECT_EQ(caption(name, 1), "Super Mario World (U) [!]");
    }
    EXPECT_EQ(caption("missing.smc"), "*missing.smc");
    EXPECT_EQ(caption("no_extension", 1), "No Extension");
}
