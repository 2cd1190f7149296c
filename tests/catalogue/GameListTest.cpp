#include "catalogue/GameList.h"
#include "base/Progress.h"
#include "support/FileSizeLimit.h"
#include "support/TestFixtures.h"

namespace {

class GameListTest : public LumbraTest {
protected:
    GameRecord& AddGame(const QString& caption, const QString& filename,
                        const QString& folder = "/roms/") {
        GameRecord& record = m_state.Games.Records[m_state.Games.Count()];
        record = {caption, filename, {}, {}, folder, {}, FixedGroup, "Default", "Default"};
        return record;
    }
    // Caption;Group;Emulator;Profile;ExtractedShortName;ExtractedFile of one record.
    QString Fields(int index) const {
        const GameRecord& r = m_state.Games.Records[index];
        return QStringList{r.Caption,      r.Group, r.Emulator, r.Profile, r.ExtractedShortName,
                           r.ExtractedFile}
            .join(';');
    }
    const QString m_section = "Game List\\/roms/";
    Progress m_noProgress;
};

TEST_F(GameListTest, FindGameSearchesAllSlotsByFilenameOrTitle) {
    AddGame("Super Mario World", "smw.smc");
    AddGame("Zelda", "zelda.sfc");
    const GameList& games = m_state.Games;
    EXPECT_EQ(games.FindGame("title", "ZELDA"), 1);
    EXPECT_EQ(games.FindGame("filename", "SMW.SMC"), 0);
    EXPECT_EQ(games.FindGame("filename", ""), 2);
    for (const char* type : {"Title", "group"})
        EXPECT_EQ(games.FindGame(type, "Zelda"), -1);
    for (int i = 2; i < GameList::Capacity; ++i)
        AddGame(QString::number(i), QString::number(i));
    EXPECT_EQ(games.FindGame("filename", ""), -1);
}

TEST_F(GameListTest, TagDuplicatesNumbersLaterCopiesInOrder) {
    EnableLog();
    m_state.Games.TagDuplicates();
    EXPECT_TRUE(LogText().endsWith("GameList...Duplicates Found? False"));
    AddGame("Mario", "a.smc");
    m_state.Games.TagDuplicates();
    EXPECT_TRUE(LogText().endsWith("GameList...List is empty"));

    for (const char* caption : {"mario", "Zelda", "MARIO", "/invisible", "/invisible"})
        AddGame(caption, caption);
    m_state.Games.TagDuplicates();
    // The second removed game is tagged too, which makes it visible again.
    EXPECT_EQ(Captions(), (QStringList{"Mario", "mario (2)", "Zelda", "MARIO (3)", "/invisible",
                                       "/invisible (2)"}));
    EXPECT_TRUE(LogText().endsWith(
        "\r\nTagging duplicate entries within GameList...Duplicates Found? True"));
    m_state.Games.TagDuplicates();
    EXPECT_TRUE(LogText().endsWith("Duplicates Found? False"));

    // An empty caption ends the count early: the copy behind it is not tagged.
    AddGame("", "blank.smc");
    AddGame("zelda", "zelda.smc");
    m_state.Games.TagDuplicates();
    EXPECT_EQ(Captions().last(), "zelda");
}

// Every record compared with every later one, captions as they stand when reached.
QStringList TaggedPairwise(QStringList captions) {
    for (int i = 0; i + 1 < captions.size(); ++i) {
        const QString caption = captions[i].toLower();
        int copy = 2;
        for (int j = i + 1; j < captions.size(); ++j) {
            if (captions[j].toLower() == caption)
                captions[j] += QStringLiteral(" (%1)").arg(copy++);
        }
    }
    return captions;
}

TEST_F(GameListTest, TaggingGivesWhatComparingEveryPairGives) {
    // Few distinct captions, some of which look like tagged ones, so that tags
    // collide with captions further down the list.
    const QStringList pool{"a", "A", "a (2)", "A (3)", "a (2) (2)", "b", "b (2)", "B (2) (2)"};
    quint32 seed = 7;
    for (int round = 0; round < 40; ++round) {
        m_state.Games.ClearGameList();
        QStringList captions;
        for (int i = 0; i < 1 + round * 5; ++i) {
            seed = seed * 1103515245u + 12345u;
            captions << pool[static_cast<int>((seed >> 16) % pool.size())];
            AddGame(captions.last(), QString::number(i));
        }
        m_state.Games.TagDuplicates();
        ASSERT_EQ(Captions(), TaggedPairwise(captions)) << "round " << round;
    }
}

TEST_F(GameListTest, StoreHoldsFourOrSixFieldsAndImportLaysThemOver) {
    m_state.Store.Write(m_section, "gone.smc", "Gone;Ungrouped;Default;Default");
    AddGame("Plain", "plain.smc");
    GameRecord& zipped = AddGame("Zipped", "zipped.zip");
    zipped.ExtractedShortName = "zipped.smc";
    zipped.ExtractedFile = "Zipped.smc";
    AddGame("Half", "half.zip", "/Other/").ExtractedFile = "half.smc";
    ExportGameList(m_state, "REG", "");
    SettingsStore reopened;
    EXPECT_EQ(reopened.Read(m_section, "plain.smc"), "Plain;Ungrouped;Default;Default");
    EXPECT_EQ(reopened.Read(m_section, "zipped.zip"),
              "Zipped;Ungrouped;Default;Default;zipped.smc;Zipped.smc");
    EXPECT_EQ(reopened.Read("Game List\\/other/", "half.zip"), "Half;Ungrouped;Default;Default");
    EXPECT_EQ(reopened.Read(m_section, "gone.smc"), "Gone;Ungrouped;Default;Default"); // kept

    m_state.Games.ClearGameList();
    m_state.Groups.AddGroup("RPG");
    m_state.Store.Write(m_section, "full.zip", "Full;rpg;ZSnes;Basic;full.smc;Full.SMC");
    m_state.Store.Write(m_section, "short.smc", "Short;RPG");
    m_state.Store.Write(m_section, "lost.smc", "X;NoSuchGroup;Default;Default");
    m_state.Store.Write(m_section, "nogroup.smc", "Y;;Default;Default");
    for (const char* name : {"full.zip", "short.smc", "lost.smc", "nogroup.smc", "unread.smc"})
        AddGame(name, name);
    ImportGameList(m_state, "ini", "list.txt", m_noProgress);
    EXPECT_EQ(Captions().first(), "full.zip");
    ImportGameList(m_state, "Registry", "", m_noProgress);
    EXPECT_EQ(Fields(0), "Full;rpg;ZSnes;Basic;full.smc;Full.SMC");
    EXPECT_EQ(Fields(1), "Short;RPG;;;;");
    EXPECT_EQ(Fields(2), "X;Ungrouped;Default;Default;;");
    EXPECT_EQ(Fields(3), "Y;Ungrouped;Default;Default;;"); // an empty group is no group
    // Nothing stored and no file to read: the caption marks the unreadable title.
    EXPECT_EQ(Fields(4), "*unread.smc;Ungrouped;Default;Default;;");
}

TEST_F(GameListTest, TextExportListsEachFolderWithNumberedPaddedCaptions) {
    EnableLog();
    m_state.Options.ExportFolder = TempPath();
    m_state.GameFolders.AddGameFolder("/Roms");
    m_state.GameFolders.Entries[0].RomCount = 2;
    m_state.GameFolders.AddGameFolder("/empty/");
    AddGame("Short", "short.smc");
    AddGame("A Caption Of Exactly Thirty Ch", "long.sfc");
    AddGame("Elsewhere", "x.smc", "/other/");
    ExportGameList(m_state, "file", "games.txt");

    const QString rule(60, '-');
    EXPECT_EQ(QString::fromUtf8(ReadFile(TempPath("games.txt"))),
              "Game List Generated By: Lumbra\r\n\r\n" + rule +
                  "\r\nFolder:    /Roms/\r\nROM Count:  2 \r\n\r\n"
                  "001) Short                         short.smc\r\n002) A Caption Of Exactly "
                  "Thirty Chlong.sfc\r\n" +
                  rule + "\r\n\r\n" + rule + "\r\nFolder:    /empty/\r\nROM Count:  0 \r\n\r\n" +
                  rule + "\r\n");
    EXPECT_TRUE(LogText().endsWith("\r\nExporting GameList to file: games.txt...Done."));

    // A full disk leaves the last list whole and logs why.
    {
        const FileSizeLimit fullDisk(8);
        ExportGameList(m_state, "file", "games.txt");
    }
    EXPECT_TRUE(ReadFile(TempPath("games.txt")).startsWith("Game List Generated By: Lumbra"));
    EXPECT_TRUE(LogText().endsWith("\r\nExporting GameList to file: games.txt...File too large"))
        << LogText().right(80).toStdString();
}

} // namespace
