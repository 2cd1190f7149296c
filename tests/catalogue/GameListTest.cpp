#include "app/Progress.h"
#include "catalogue/GameList.h"
#include "support/TestFixtures.h"

namespace {

class GameListTest : public LumbraTest {
protected:
    GameRecord& AddGame(const QString& caption, const QString& filename,
                        const QString& folder = QStringLiteral("/roms/")) {
        GameRecord& record = m_state.Games.Records[m_state.Games.Count()];
        record = {caption, filename, {}, {}, folder, {}, FixedGroup, QStringLiteral("Default"),
                  QStringLiteral("Default")};
        return record;
    }
    QString Caption(int index) const { return m_state.Games.Records[index].Caption; }
    Progress m_noProgress;
};

TEST_F(GameListTest, FindGameSearchesAllSlotsByFilenameOrTitle) {
    AddGame(QStringLiteral("Super Mario World"), QStringLiteral("smw.smc"));
    AddGame(QStringLiteral("Zelda"), QStringLiteral("zelda.sfc"));
    const GameList& games = m_state.Games;
    EXPECT_EQ(games.FindGame(QStringLiteral("title"), QStringLiteral("ZELDA")), 1);
    EXPECT_EQ(games.FindGame(QStringLiteral("filename"), QStringLiteral("SMW.SMC")), 0);
    EXPECT_EQ(games.FindGame(QStringLiteral("filename"), QString()), 2);
    EXPECT_EQ(games.FindGame(QStringLiteral("Title"), QStringLiteral("Zelda")), -1);
    EXPECT_EQ(games.FindGame(QStringLiteral("group"), QStringLiteral("Ungrouped")), -1);
    EXPECT_EQ(games.FindGame(QStringLiteral("title"), QStringLiteral("Zeld")), -1);

    for (int i = 2; i < GameList::Capacity; ++i)
        AddGame(QStringLiteral("g%1").arg(i), QStringLiteral("g%1.smc").arg(i));
    EXPECT_EQ(games.FindGame(QStringLiteral("filename"), QString()), -1);
    EXPECT_EQ(games.Count(), GameList::Capacity);
}

TEST_F(GameListTest, TagDuplicatesNumbersLaterCopiesInOrder) {
    EnableLog();
    AddGame(QStringLiteral("Mario"), QStringLiteral("a.smc"));
    AddGame(QStringLiteral("mario"), QStringLiteral("b.smc"));
    AddGame(QStringLiteral("Zelda"), QStringLiteral("c.smc"));
    AddGame(QStringLiteral("MARIO"), QStringLiteral("d.smc"));
    AddGame(RemovedCaption, QStringLiteral("e.smc"));
    AddGame(RemovedCaption, QStringLiteral("f.smc"));
    m_state.Games.TagDuplicates();
    EXPECT_EQ(Caption(0), QStringLiteral("Mario"));
    EXPECT_EQ(Caption(1), QStringLiteral("mario (2)"));
    EXPECT_EQ(Caption(2), QStringLiteral("Zelda"));
    EXPECT_EQ(Caption(3), QStringLiteral("MARIO (3)"));
    EXPECT_EQ(Caption(4), RemovedCaption);
    // The second removed game is tagged too, which makes it visible again.
    EXPECT_EQ(Caption(5), QStringLiteral("/invisible (2)"));
    EXPECT_TRUE(LogText().endsWith(
        QStringLiteral("\r\nTagging duplicate entries within GameList...Duplicates Found? True")));

    // Tagged captions are unique, so a second run finds nothing new.
    m_state.Games.TagDuplicates();
    EXPECT_EQ(Caption(3), QStringLiteral("MARIO (3)"));
    EXPECT_TRUE(LogText().endsWith(QStringLiteral("Duplicates Found? False")));
}

TEST_F(GameListTest, TagDuplicatesWordsTheEmptyCasesAsTheProgramDoes) {
    EnableLog();
    m_state.Games.TagDuplicates();
    EXPECT_TRUE(LogText().endsWith(QStringLiteral("GameList...Duplicates Found? False")));
    AddGame(QStringLiteral("Solo"), QStringLiteral("solo.smc"));
    m_state.Games.TagDuplicates();
    EXPECT_TRUE(LogText().endsWith(QStringLiteral("GameList...List is empty")));

    // An empty caption ends the count early: the copy behind it is not tagged.
    AddGame(QString(), QStringLiteral("blank.smc"));
    AddGame(QStringLiteral("solo"), QStringLiteral("solo2.smc"));
    m_state.Games.TagDuplicates();
    EXPECT_EQ(Caption(2), QStringLiteral("solo"));
}

TEST_F(GameListTest, ExportWritesOneKeyPerFileAndKeepsVanishedKeys) {
    const QString section = QStringLiteral("Game List\\/roms/");
    m_state.Store.Write(section, QStringLiteral("gone.smc"), QStringLiteral("Gone;Ungrouped;Default;Default"));
    AddGame(QStringLiteral("Plain"), QStringLiteral("plain.smc"));
    GameRecord& zipped = AddGame(QStringLiteral("Zipped"), QStringLiteral("zipped.zip"));
    zipped.ExtractedShortName = QStringLiteral("zipped.smc");
    zipped.ExtractedFile = QStringLiteral("Zipped.smc");
    GameRecord& half = AddGame(QStringLiteral("Half"), QStringLiteral("half.zip"), QStringLiteral("/Other/"));
    half.ExtractedFile = QStringLiteral("half.smc");
    half.Emulator = QStringLiteral("Snes9X");
    half.Profile = QStringLiteral("fast");

    ExportGameList(m_state, QStringLiteral("REG"), QString());
    SettingsStore reopened;
    EXPECT_EQ(reopened.Read(section, QStringLiteral("plain.smc")), QStringLiteral("Plain;Ungrouped;Default;Default"));
    EXPECT_EQ(reopened.Read(section, QStringLiteral("zipped.zip")),
              QStringLiteral("Zipped;Ungrouped;Default;Default;zipped.smc;Zipped.smc"));
    EXPECT_EQ(reopened.Read(QStringLiteral("Game List\\/other/"), QStringLiteral("half.zip")),
              QStringLiteral("Half;Ungrouped;Snes9X;fast"));
    EXPECT_EQ(reopened.Read(section, QStringLiteral("gone.smc")), QStringLiteral("Gone;Ungrouped;Default;Default"));
}

TEST_F(GameListTest, ImportLaysStoredValuesOverScannedRecords) {
    m_state.Groups.AddGroup(QStringLiteral("RPG"));
    const QString section = QStringLiteral("Game List\\/roms/");
    m_state.Store.Write(section, QStringLiteral("full.zip"), QStringLiteral("Full;rpg;ZSnes;Basic;full.smc;Full.SMC"));
    m_state.Store.Write(section, QStringLiteral("short.smc"), QStringLiteral("Short;RPG"));
    m_state.Store.Write(section, QStringLiteral("lost.smc"), QStringLiteral("X;NoSuchGroup;Default;Default"));
    m_state.Store.Write(section, QStringLiteral("fixed.smc"), QStringLiteral("Fixed;Ungrouped;Default;Default"));
    for (const char* name : {"full.zip", "short.smc", "lost.smc", "fixed.smc", "unread.smc"})
        AddGame(QString::fromLatin1(name), QString::fromLatin1(name));

    ImportGameList(m_state, QStringLiteral("file"), QStringLiteral("list.txt"), m_noProgress);
    EXPECT_EQ(Caption(0), QStringLiteral("full.zip"));

    ImportGameList(m_state, QStringLiteral("Registry"), QString(), m_noProgress);
    const auto& records = m_state.Games.Records;
    EXPECT_EQ(records[0].Caption, QStringLiteral("Full"));
    EXPECT_EQ(records[0].Group, QStringLiteral("rpg"));
    EXPECT_EQ(records[0].Emulator, QStringLiteral("ZSnes"));
    EXPECT_EQ(records[0].Profile, QStringLiteral("Basic"));
    EXPECT_EQ(records[0].ExtractedShortName, QStringLiteral("full.smc"));
    EXPECT_EQ(records[0].ExtractedFile, QStringLiteral("Full.SMC"));
    EXPECT_EQ(records[1].Caption, QStringLiteral("Short"));
    EXPECT_EQ(records[1].Group, QStringLiteral("RPG"));
    EXPECT_EQ(records[1].Emulator, QString());
    EXPECT_EQ(records[1].Profile, QString());
    EXPECT_EQ(records[2].Caption, QStringLiteral("X"));
    EXPECT_EQ(records[2].Group, FixedGroup);
    EXPECT_EQ(records[3].Group, FixedGroup);
    // Nothing stored and no file to read: the caption marks the unreadable title.
    EXPECT_EQ(records[4].Caption, QStringLiteral("*unread.smc"));
}

TEST_F(GameListTest, TextExportListsEachFolderWithNumberedPaddedCaptions) {
    EnableLog();
    m_state.Options.ExportFolder = TempPath();
    m_state.GameFolders.AddGameFolder(QStringLiteral("/Roms"));
    m_state.GameFolders.Entries[0].RomCount = 2;
    m_state.GameFolders.AddGameFolder(QStringLiteral("/empty/"));
    AddGame(QStringLiteral("Short"), QStringLiteral("short.smc"));
    AddGame(QStringLiteral("A Caption Of Exactly Thirty Ch"), QStringLiteral("long.sfc"));
    AddGame(QStringLiteral("Elsewhere"), QStringLiteral("x.smc"), QStringLiteral("/other/"));

    ExportGameList(m_state, QStringLiteral("ini"), QStringLiteral("games.txt"));
    QFile file(TempPath(QStringLiteral("games.txt")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString rule(60, QLatin1Char('-'));
    const QString expected =
        QStringLiteral("Game List Generated By: Lumbra\r\n") + QStringLiteral("\r\n") + rule +
        QStringLiteral("\r\nFolder:    /Roms/\r\nROM Count:  2 \r\n\r\n") +
        QStringLiteral("001) Short                         short.smc\r\n") +
        QStringLiteral("002) A Caption Of Exactly Thirty Chlong.sfc\r\n") + rule +
        QStringLiteral("\r\n\r\n") + rule +
        QStringLiteral("\r\nFolder:    /empty/\r\nROM Count:  0 \r\n\r\n") + rule + QStringLiteral("\r\n");
    EXPECT_EQ(QString::fromUtf8(file.readAll()), expected);
    EXPECT_TRUE(LogText().endsWith(QStringLiteral("\r\nExporting GameList to file: games.txt...Done.")));
}

} // namespace
