#include "catalogue/GroupList.h"
#include "support/TestFixtures.h"

#include <QFile>

namespace {

const QString Section = QStringLiteral("Group List");
const QString FullOrFixed =
    QStringLiteral("\r\nGroupList is either full or the group to add is the Fixed Group.");

class GroupListTest : public LumbraTest {
protected:
    GroupList& Groups() { return m_state.Groups; }

    void Fill(const QStringList& names) {
        for (qsizetype i = 0; i < names.size(); ++i)
            Groups().Entries[i] = names[i];
    }

    QStringList Used() const {
        QStringList names;
        for (const QString& entry : m_state.Groups.Entries)
            if (!entry.isEmpty())
                names.append(entry);
        return names;
    }

    QStringList Stored() const {
        QStringList pairs;
        for (const auto& [key, value] : m_state.Store.ListSection(Section))
            pairs.append(key + QLatin1Char('=') + value);
        pairs.sort();
        return pairs;
    }
};

TEST_F(GroupListTest, FindGroupNeverFindsTheFixedGroupAndIgnoresCaseOtherwise) {
    Fill({"Action", "Ungrouped"});
    EXPECT_EQ(Groups().FindGroup("Ungrouped"), -1);
    EXPECT_EQ(Groups().FindGroup("ungrouped"), 1);
    EXPECT_EQ(Groups().FindGroup("ACTION"), 0);
    EXPECT_EQ(Groups().FindGroup("Puzzle"), -1);
    EXPECT_EQ(Groups().FindGroup(QString()), 2); // the first free entry
}

TEST_F(GroupListTest, AddRefusesTheFixedGroupExistingNamesAndEmptyNames) {
    EnableLog();
    Fill({"action"});
    EXPECT_FALSE(Groups().AddGroup("UNGROUPED"));
    EXPECT_FALSE(Groups().AddGroup("Action"));
    EXPECT_FALSE(Groups().AddGroup(QString()));
    EXPECT_TRUE(Groups().AddGroup(" RPG "));
    EXPECT_EQ(Used(), (QStringList{"action", " RPG "}));
    EXPECT_EQ(LogText(), "\r\nAttempting to add group: UNGROUPED..." + FullOrFixed +
                             "\r\nAttempting to add group: Action...Already Exists!"
                             "\r\nAttempting to add group: ...Already Exists!"
                             "\r\nAttempting to add group:  RPG ...Success.");
}

TEST_F(GroupListTest, HundredGroupsFitAndTheNextIsRefused) {
    for (int i = 0; i < GroupList::Capacity; ++i)
        ASSERT_TRUE(Groups().AddGroup(QStringLiteral("Group %1").arg(i))) << i;
    EXPECT_EQ(Groups().Count(), 100);
    EXPECT_EQ(Groups().FindGroup(QString()), -1);
    EnableLog();
    EXPECT_FALSE(Groups().AddGroup("One Too Many"));
    EXPECT_FALSE(Groups().AddGroup(QString()));
    EXPECT_EQ(LogText(), "\r\nAttempting to add group: One Too Many..." + FullOrFixed +
                             "\r\nAttempting to add group: ..." + FullOrFixed);
}

TEST_F(GroupListTest, RemovePacksTheEntriesThatFollow) {
    EnableLog();
    Fill({"RPG", "Action", "Puzzle"});
    EXPECT_TRUE(Groups().RemoveGroup("rpg"));
    EXPECT_EQ(Groups().Entries[0], "Action");
    EXPECT_EQ(Groups().Entries[1], "Puzzle");
    EXPECT_TRUE(Groups().Entries[2].isEmpty());
    EXPECT_EQ(LogText(), "\r\nAttempting to remove group: rpg...Success!");

    for (int i = 0; i < GroupList::Capacity; ++i)
        Groups().Entries[i] = QString::number(i);
    EXPECT_TRUE(Groups().RemoveGroup("99"));
    EXPECT_TRUE(Groups().RemoveGroup("50"));
    EXPECT_EQ(Groups().Entries[50], "51");
    EXPECT_EQ(Groups().Count(), 98);
}

TEST_F(GroupListTest, RemovingAnUnknownNameOrTheFixedGroupIsRefused) {
    EnableLog();
    Fill({"Action", "Ungrouped"});
    EXPECT_FALSE(Groups().RemoveGroup("Puzzle"));
    EXPECT_FALSE(Groups().RemoveGroup("Ungrouped"));
    EXPECT_EQ(Groups().Count(), 2);
    EXPECT_EQ(LogText(), "\r\nAttempting to remove group: Puzzle...No Custom Groups Exist!"
                         "\r\nAttempting to remove group: Ungrouped...No Custom Groups Exist!");
}

TEST_F(GroupListTest, UngroupGamesStopsAtTheFirstEmptyCaption) {
    auto& records = m_state.Games.Records;
    const QStringList groups{"ACTION", "Puzzle", "Action", "", "Action"};
    for (int i = 0; i < groups.size(); ++i) {
        records[i].Caption = groups[i].isEmpty() ? QString() : QStringLiteral("Game %1").arg(i);
        records[i].Group = groups[i];
    }
    UngroupGames(m_state.Games, "action");
    EXPECT_EQ(records[0].Group, FixedGroup);
    EXPECT_EQ(records[1].Group, "Puzzle");
    EXPECT_EQ(records[2].Group, FixedGroup);
    EXPECT_EQ(records[4].Group, "Action");
}

TEST_F(GroupListTest, ExportRewritesTheSectionAndImportReadsItBack) {
    EnableLog();
    Fill({"RPG", "Action", "Puzzle"});
    m_state.Store.Write(Section, "07", "Stale");
    ExportGroupList(m_state, "REG", QString());
    ASSERT_TRUE(Groups().RemoveGroup("Action"));
    ExportGroupList(m_state, "registry", QString());
    EXPECT_EQ(Stored(), (QStringList{"00=RPG", "01=Puzzle"}));
    EXPECT_EQ(SettingsStore().Read(Section, "01"), "Puzzle"); // synced to disk

    AppState fresh;
    ImportGroupList(fresh, "Reg", QString());
    EXPECT_EQ(fresh.Groups.Entries, Groups().Entries);
    EXPECT_TRUE(LogText().endsWith("Exporting GroupList to: Registry...Done."
                                   "\r\nImporting GroupList from: Registry...Done."));
}

TEST_F(GroupListTest, ImportStopsAtTheFirstGapAndKeepsLaterEntries) {
    Fill({"Old 0", "Old 1", "Old 2"});
    m_state.Store.Write(Section, "00", "New 0");
    m_state.Store.Write(Section, "02", "New 2");
    ImportGroupList(m_state, "reg", QString());
    EXPECT_EQ(Used(), (QStringList{"New 0", "Old 1", "Old 2"}));
}

TEST_F(GroupListTest, FileFormsOnlyLogAndOtherTargetsDoNothing) {
    EnableLog();
    Fill({"RPG"});
    LogEvent(QStringLiteral("Saving..."));
    ExportGroupList(m_state, "file", "groups.ini");
    ImportGroupList(m_state, "INI", "groups.ini");
    ExportGroupList(m_state, "disk", QString());
    ImportGroupList(m_state, QString(), QString());
    EXPECT_EQ(LogText(), "\r\nSaving...Exporting GroupList to file: groups.ini..."
                         "\r\nImporting GroupList from file: groups.ini...");
    EXPECT_TRUE(Stored().isEmpty());
    EXPECT_EQ(Used(), QStringList{"RPG"});
    EXPECT_FALSE(QFile::exists("groups.ini"));
}

TEST_F(GroupListTest, NothingIsLoggedOutsideDebugMode) {
    Groups().AddGroup("Action");
    Groups().AddGroup("Action");
    Groups().RemoveGroup("Nope");
    ExportGroupList(m_state, "reg", QString());
    ImportGroupList(m_state, "file", "x");
    EXPECT_TRUE(LogText().isEmpty());
}

} // namespace
