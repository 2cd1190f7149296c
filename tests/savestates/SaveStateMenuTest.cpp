#include "savestates/SaveStateMenu.h"
#include "savestates/FoundSaveStates.h"
#include "support/TestFixtures.h"

namespace {

// Mario.smc in a folder that the catalogue keeps in lower case, and a save folder
// per emulator.
class SaveStateMenuTest : public LumbraTest {
protected:
    SaveStateMenuTest() {
        DefineEmulators(m_state.Emulators, m_state.Store);
        WriteFile("Games/Mario.smc");
        GameRecord& game = m_state.Games.Records[0];
        game.Filename = "mario.smc";
        game.Folder = TempPath("Games/").toLower();
        const QStringList folders{"Saves/Nlke", "Saves/S9X/", "Saves/ZSnes"};
        for (int i = 0; i < EmulatorTable::Count; ++i)
            m_state.Emulators.Records[i].SaveFolder = MakeFolder(folders[i]);
    }

    // Each emulator's items in one line: the SRAM caption, then the slots used.
    QStringList Summary(const SaveStateMenu& menu) const {
        QStringList lines;
        for (const EmulatorSaveStates& emulator : menu) {
            QString line = emulator.Sram.Caption;
            for (const SaveStateItem& slot : emulator.States) {
                EXPECT_EQ(slot.Enabled, slot.Caption.endsWith("Used"));
                line += slot.Enabled ? ' ' + slot.Caption.left(3) : QString();
            }
            lines << line;
        }
        return lines;
    }
};

TEST_F(SaveStateMenuTest, FindsEachEmulatorsFilesInAnyLetterCase) {
    for (const char* file :
         {"Nlke/MARIO.SRM", "Nlke/mario.sg1", "Nlke/mario.sg3", "S9X/Mario.003", "S9X/mario.009",
          "S9X/mario.sg0", "ZSnes/mario.zst", "ZSnes/MARIO.ZS3", "ZSnes/luigi.zs1"})
        WriteFile(QStringLiteral("Saves/") + file);
    m_state.Emulators.Records[2].SaveFolder.clear(); // not set up: skipped
    EXPECT_EQ(Summary(BuildSaveStateMenu(m_state, 0)),
              (QStringList{"SRAM File (1)", "No SRAM File (3) (9)", "No SRAM File"}));

    m_state.Emulators.Records[2].SaveFolder = TempPath("saves/zsnes");
    const SaveStateMenu menu = BuildSaveStateMenu(m_state, 0);
    EXPECT_EQ(Summary(menu)[2], "No SRAM File (0) (3)");
    EXPECT_EQ(menu[0].Sram.Tag, TempPath("Saves/Nlke/mario.srm"));
    EXPECT_EQ(menu[2].States[3].Tag, TempPath("saves/zsnes/mario.zs3"));
    EXPECT_EQ(menu[1].States.size(), 10);
}

TEST_F(SaveStateMenuTest, APlayedZipUsesItsExtractedNamesAndTheTagNamesTheFileThatIsThere) {
    GameRecord& game = m_state.Games.Records[0];
    game.Filename = "pack.zip";
    game.ExtractedShortName = "smw.smc";
    game.ExtractedFile = "Super Mario World.smc";
    WriteFile("Saves/S9X/Super Mario World.000");
    WriteFile("Saves/S9X/SMW.srm");
    const SaveStateMenu menu = BuildSaveStateMenu(m_state, 0);
    EXPECT_EQ(Summary(menu), (QStringList{"No SRAM File", "SRAM File (0)", "No SRAM File"}));
    // Only the long name is there: a click must reach it.
    EXPECT_EQ(menu[1].States[0].Tag, TempPath("Saves/S9X/Super Mario World.000"));
    EXPECT_EQ(menu[1].Sram.Tag, TempPath("Saves/S9X/smw.srm")); // found in any letter case
    WriteFile("Saves/S9X/smw.000");
    EXPECT_EQ(BuildSaveStateMenu(m_state, 0)[1].States[0].Tag, TempPath("Saves/S9X/smw.000"));
}

TEST_F(SaveStateMenuTest, AFoundEmulatorsItemsNameItsRealFilesWithTheSameCaptions) {
    using Kind = EmulatorSaveFile::Kind;
    const FoundEmulatorSaveStates menu =
        BuildFoundSaveStates("Mednafen", {{Kind::Slot, 0, "/m/mcs/Mario.abc.mc0", false},
                                          {Kind::Slot, 1, "/m/mcs/Mario.abc.mc1", true},
                                          {Kind::Auto, -1, "/m/mcs/Mario.abc.mca", true},
                                          {Kind::Battery, -1, "/m/sav/Mario.abc.srm", false}});
    EXPECT_EQ(menu.Emulator, "Mednafen");
    ASSERT_EQ(menu.States.size(), 2);
    EXPECT_EQ(menu.States[0].Caption, "(0) Empty");
    EXPECT_FALSE(menu.States[0].Enabled);
    EXPECT_EQ(menu.States[1].Caption, "(1) Used");
    EXPECT_EQ(menu.States[1].Tag, "/m/mcs/Mario.abc.mc1");
    ASSERT_EQ(menu.Others.size(), 1);
    EXPECT_EQ(menu.Others[0].Caption, "(Auto) Used");
    EXPECT_EQ(menu.Battery.Caption, "No SRAM File");
    EXPECT_FALSE(menu.Battery.Enabled);
    const FoundEmulatorSaveStates saved =
        BuildFoundSaveStates("bsnes", {{Kind::Battery, -1, "/b/Mario.srm", true}});
    EXPECT_EQ(saved.Battery.Caption, "SRAM File");
    EXPECT_EQ(saved.Battery.Tag, "/b/Mario.srm");
}

} // namespace
