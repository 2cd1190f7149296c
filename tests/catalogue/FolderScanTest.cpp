#include "app/Progress.h"
#include "catalogue/FolderScan.h"
#include "support/TestFixtures.h"

#include <QDir>

namespace {

class FolderScanTest : public LumbraTest {
protected:
    const GameRecord& Record(int index) const { return m_state.Games.Records[index]; }
    QStringList Captions() const {
        QStringList captions;
        for (int i = 0; i < m_state.Games.Count(); ++i)
            captions << Record(i).Caption;
        return captions;
    }
};

TEST_F(FolderScanTest, ListsGameFilesOfEveryLetterCaseSortedByName) {
    EnableLog();
    const QString folder = MakeFolder(QStringLiteral("SNES Roms"));
    for (const char* name : {"Zelda.SMC", "game.smc", "GAME.SFC", "readme.txt", "Mario.Zip", "part.1",
                             "disk.058", "disk.078", "fig.FIG", "swc.Swc", ".hidden.smc", "noext"})
        WriteFile(QStringLiteral("SNES Roms/") + QString::fromLatin1(name), "x");
    MakeFolder(QStringLiteral("SNES Roms/Sub.smc"));
    WriteFile(QStringLiteral("SNES Roms/Sub.smc/inner.smc"), "x");
    m_state.GameFolders.AddGameFolder(folder + QLatin1Char('/'));

    GameList_ImportFileList(m_state, folder + QLatin1Char('/'));

    EXPECT_EQ(Captions(), (QStringList{"disk.058", "disk.078", "fig.fig", "game.sfc", "game.smc",
                                       "mario.zip", "part.1", "swc.swc", "zelda.smc"}));
    const GameRecord& zelda = Record(8);
    EXPECT_EQ(zelda.Filename, QStringLiteral("zelda.smc"));
    EXPECT_EQ(zelda.Folder, folder.toLower() + QLatin1Char('/'));
    EXPECT_EQ(zelda.Group, QStringLiteral("Ungrouped"));
    EXPECT_EQ(zelda.Emulator, QStringLiteral("Default"));
    EXPECT_EQ(zelda.Profile, QStringLiteral("Default"));
    EXPECT_EQ(m_state.GameFolders.Entries[0].RomCount, 9);
    EXPECT_TRUE(LogText().endsWith(QStringLiteral("\r\nImporting files from: ") + folder +
                                   QStringLiteral("/...Done.")));
}

TEST_F(FolderScanTest, FolderIsNormalisedWhateverItsSpellingOnDisk) {
    MakeFolder(QStringLiteral("Mixed/Case Folder"));
    WriteFile(QStringLiteral("Mixed/Case Folder/Game.SMC"), "x");
    // Stored in lower case, as the catalogue keeps it; the disk has capitals.
    const QString lowered = TempPath(QStringLiteral("mixed/case folder"));
    GameList_ImportFileList(m_state, lowered);
    GameList_ImportFileList(m_state, lowered + QLatin1Char('/'));
    ASSERT_EQ(m_state.Games.Count(), 2);
    EXPECT_EQ(Record(0).Folder, lowered.toLower() + QLatin1Char('/'));
    EXPECT_EQ(Record(1).Folder, Record(0).Folder);
}

TEST_F(FolderScanTest, BaseFilenamesOnlyWhenTheSettingHoldsTrue) {
    MakeFolder(QStringLiteral("dup"));
    WriteFile(QStringLiteral("dup/game.smc"), "x");
    WriteFile(QStringLiteral("dup/GAME.SFC"), "x");
    m_state.Options.UseBaseFilenames = 1;
    GameList_ImportFileList(m_state, TempPath(QStringLiteral("dup")));
    EXPECT_EQ(Captions(), (QStringList{"game.sfc", "game.smc"}));

    m_state.Games.ClearGameList();
    m_state.Options.UseBaseFilenames = -1;
    GameList_ImportFileList(m_state, TempPath(QStringLiteral("dup")));
    m_state.Games.TagDuplicates();
    EXPECT_EQ(Captions(), (QStringList{"game", "game (2)"}));
}

TEST_F(FolderScanTest, MissingFolderAndRootAddNothingButFinishTheLine) {
    EnableLog();
    const QString missing = TempPath(QStringLiteral("nowhere"));
    m_state.GameFolders.AddGameFolder(missing + QLatin1Char('/'));
    m_state.GameFolders.Entries[0].RomCount = 7;
    GameList_ImportFileList(m_state, missing);
    EXPECT_EQ(m_state.Games.Count(), 0);
    EXPECT_EQ(m_state.GameFolders.Entries[0].RomCount, 0);
    EXPECT_TRUE(LogText().endsWith(QStringLiteral("Importing files from: ") + missing +
                                   QStringLiteral("...Done.")));

    // The root keeps its separator and gets one more, as on a drive root.
    const int before = m_state.Games.Count();
    GameList_ImportFileList(m_state, QStringLiteral("/"));
    for (int i = before; i < m_state.Games.Count(); ++i)
        EXPECT_EQ(Record(i).Folder, QStringLiteral("//"));
    EXPECT_TRUE(LogText().endsWith(QStringLiteral("Importing files from: /...Done.")));
}

TEST_F(FolderScanTest, TheThousandAndFirstFileStopsTheScanAndKeepsTheRest) {
    EnableLog();
    MakeFolder(QStringLiteral("many"));
    for (int i = 0; i <= GameList::Capacity; ++i)
        WriteFile(QStringLiteral("many/g%1.smc").arg(i, 4, 10, QLatin1Char('0')));
    MakeFolder(QStringLiteral("more"));
    WriteFile(QStringLiteral("more/extra.smc"));
    m_state.GameFolders.AddGameFolder(TempPath(QStringLiteral("many/")));
    m_state.GameFolders.AddGameFolder(TempPath(QStringLiteral("more/")));

    Progress noProgress;
    RebuildGameList(m_state, noProgress);

    EXPECT_EQ(m_state.Games.Count(), GameList::Capacity);
    EXPECT_EQ(Record(999).Filename, QStringLiteral("g0999.smc"));
    EXPECT_EQ(m_state.GameFolders.Entries[0].RomCount, 1001);
    const QString log = LogText();
    EXPECT_TRUE(log.contains(QStringLiteral("many/...\r\nError #9 accured in GameList_ImportFileList\r\n")));
    EXPECT_TRUE(log.contains(QStringLiteral("more/...\r\nError #9 accured in GameList_ImportFileList\r\n")));
}

} // namespace
