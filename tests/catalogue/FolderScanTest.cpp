#include "catalogue/FolderScan.h"
#include "app/Startup.h"
#include "base/Progress.h"
#include "support/FilesAnywhere.h"
#include "support/SnesImageBuilder.h"
#include "support/TestFixtures.h"

namespace {

class FolderScanTest : public LumbraTest {
protected:
    const GameRecord& Record(int index) const { return m_state.Games.Records[index]; }
};

TEST_F(FolderScanTest, ListsGameFilesOfEveryLetterCaseSortedByName) {
    EnableLog();
    const QString folder = MakeFolder("SNES Roms");
    for (const char* name :
         {"Zelda.SMC", "game.smc", "GAME.SFC", "readme.txt", "Mario.Zip", "part.1", "disk.058",
          "disk.078", "fig.FIG", "swc.Swc", ".hidden.smc", "noext", "Sub.smc/inner.smc"})
        WriteFile("SNES Roms/" + QString::fromLatin1(name), "x");
    m_state.GameFolders.AddGameFolder(folder + '/');
    GameList_ImportFileList(m_state, folder + '/');

    EXPECT_EQ(Captions(), (QStringList{"disk.058", "disk.078", "fig.fig", "game.sfc", "game.smc",
                                       "mario.zip", "part.1", "swc.swc", "zelda.smc"}));
    EXPECT_EQ(Record(8).Filename + ' ' + Record(8).Folder, "zelda.smc " + folder.toLower() + '/');
    EXPECT_EQ(m_state.GameFolders.Entries[0].RomCount, 9);
    EXPECT_TRUE(LogText().endsWith("\r\nImporting files from: " + folder + "/...Done."));

    // The same folder in lower case, with or without its separator, gives the same records.
    m_state.Games.ClearGameList();
    GameList_ImportFileList(m_state, TempPath("snes roms"));
    EXPECT_EQ(m_state.Games.Count(), 9);
    EXPECT_EQ(Record(0).Folder, folder.toLower() + '/');

    // A missing folder adds nothing, and its count goes back to 0.
    const QString missing = TempPath("nowhere/");
    m_state.GameFolders.AddGameFolder(missing);
    m_state.GameFolders.Entries[1].RomCount = 7;
    m_state.Games.ClearGameList();
    GameList_ImportFileList(m_state, missing);
    EXPECT_EQ(m_state.Games.Count(), 0);
    EXPECT_EQ(m_state.GameFolders.Entries[1].RomCount, 0);
    EXPECT_TRUE(LogText().endsWith("Importing files from: " + missing + "...Done."));

    // The root keeps its separator and gets one more, as on a drive root.
    GameList_ImportFileList(m_state, "/");
    for (int i = 0; i < m_state.Games.Count(); ++i)
        EXPECT_EQ(Record(i).Folder, "//");
    EXPECT_TRUE(LogText().endsWith("Importing files from: /...Done."));
}

TEST_F(FolderScanTest, BaseFilenamesOnlyWhenTheSettingHoldsTrue) {
    WriteFile("dup/game.smc", "x");
    WriteFile("dup/GAME.SFC", "x");
    m_state.Options.UseBaseFilenames = 1;
    GameList_ImportFileList(m_state, TempPath("dup"));
    EXPECT_EQ(Captions(), (QStringList{"game.sfc", "game.smc"}));

    m_state.Games.ClearGameList();
    m_state.Options.UseBaseFilenames = -1;
    GameList_ImportFileList(m_state, TempPath("dup"));
    m_state.Games.TagDuplicates();
    EXPECT_EQ(Captions(), (QStringList{"game", "game (2)"}));
}

TEST_F(FolderScanTest, TheThousandAndFirstFileStopsTheScanAndKeepsTheRest) {
    EnableLog();
    for (int i = 0; i <= GameList::Capacity; ++i)
        WriteFile(QStringLiteral("many/g%1.smc").arg(i, 4, 10, QLatin1Char('0')));
    WriteFile("more/extra.smc");
    m_state.GameFolders.AddGameFolder(TempPath("many/"));
    m_state.GameFolders.AddGameFolder(TempPath("more/"));
    Progress noProgress;
    const ScanReport report = RebuildGameList(m_state, noProgress);

    EXPECT_EQ(report.LeftOutFull, 2);
    EXPECT_EQ(report.Summary(), "The catalogue is full (1,000 games): 2 files left out.");
    EXPECT_EQ(m_state.Games.Count(), GameList::Capacity);
    EXPECT_EQ(Record(999).Filename, "g0999.smc");
    EXPECT_EQ(m_state.GameFolders.Entries[0].RomCount, 1001);
    for (const char* folder : {"many/", "more/"})
        EXPECT_TRUE(LogText().contains(QString::fromLatin1(folder) +
                                       "...\r\nError #9 accured in GameList_ImportFileList\r\n"));
}

TEST_F(FolderScanTest, NamesTheStoreCannotHoldGiveStableRecordsOverRestarts) {
    const QString folder = MakeFolder("Odd Names") + '/';
    // Of three names in other letter case, the catalogue's own lower-case name stays.
    const QByteArray twin = SnesImageBuilder::ValidLoRomWithCopierHeader("WRONG TWIN");
    WriteFile("Odd Names/GAME.sfc", twin);
    WriteFile("Odd Names/game.sfc", SnesImageBuilder::ValidLoRomWithCopierHeader("STAR FX 2"));
    WriteFile("Odd Names/Game.SFC", twin);
    WriteFile("Odd Names/semi;colon;x.smc", "no header");
    const NonUtf8NamedFile latin(folder);

    for (int start = 1; start <= 3; ++start) {
        EventLog::Reset();
        EnableLog();
        AppState state;
        state.GameFolders.AddGameFolder(folder);
        Progress noProgress;
        const ScanReport report = RebuildGameList(state, noProgress);
        SaveEverything(state);

        ASSERT_EQ(state.Games.Count(), 2) << "start " << start;
        const GameRecord& game = state.Games.Records[0];
        const GameRecord& semi = state.Games.Records[1];
        EXPECT_EQ(game.Caption, "Star FX 2");
        EXPECT_EQ(QStringList({semi.Caption, semi.Group, semi.Emulator, semi.Profile}),
                  QStringList({"*semi colon x.smc", "Ungrouped", "Default", "Default"}));
        EXPECT_EQ(state.GameFolders.Entries[0].RomCount, 2);
        EXPECT_EQ(report.Summary(),
                  "1 file left out: the name is not valid UTF-8; rename it. 2 files left out: "
                  "another file in the folder has the same name in other letter case.");
        for (const char* left : {"GAME.sfc", "Game.SFC"})
            EXPECT_TRUE(LogText().contains("\r\nLeft out " + QString::fromLatin1(left) +
                                           ": same name as game.sfc in other letter case"));
        EXPECT_TRUE(LogText().contains(
            "\r\nLeft out a file whose name is not valid UTF-8: latin\uFFFD.smc"));
    }
}

} // namespace
