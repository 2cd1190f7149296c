#include "catalogue/GroupList.h"
#include "support/TestFixtures.h"

#include <QFile>

namespace {

const QString Section = "Group List";
const QString Refused = "...\r\nGroupList is either full or the group to add is the Fixed Group.";

class GroupListTest : public LumbraTest {
protected:
    GroupListTest() { EnableLog(); }
    // The names held anywhere in the list.
    static QStringList Used(const GroupList& groups) {
        QStringList names(groups.Entries.begin(), groups.Entries.end());
        names.removeAll(QString());
        return names;
    }
    GroupList& m_groups = m_state.Groups;
};

TEST_F(GroupListTest, FindAndAddFollowTheNamingAndCapacityRules) {
    m_groups.Entries = {"Action", FixedGroup};
    EXPECT_EQ(m_groups.FindGroup("ungrouped"), 1);
    EXPECT_EQ(m_groups.FindGroup("ACTION"), 0);
    EXPECT_EQ(m_groups.FindGroup(QString()), 2); // the first free entry

    m_groups.Entries[1].clear();
    EXPECT_FALSE(m_groups.AddGroup("UNGROUPED") || m_groups.AddGroup("action") ||
                 m_groups.AddGroup(QString()));
    EXPECT_TRUE(m_groups.AddGroup(" RPG "));
    EXPECT_EQ(Used(m_groups), (QStringList{"Action", " RPG "}));
    EXPECT_TRUE(LogText().startsWith("\r\nAttempting to add group: UNGROUPED" + Refused));

    for (int i = 2; i < GroupList::Capacity; ++i)
        ASSERT_TRUE(m_groups.AddGroup(QString::number(i)));
    EXPECT_FALSE(m_groups.AddGroup("One Too Many") || m_groups.AddGroup(QString()));
    EXPECT_TRUE(LogText().endsWith("Success.\r\nAttempting to add group: One Too Many" + Refused +
                                   "\r\nAttempting to add group: " + Refused));
}

TEST_F(GroupListTest, RemovePacksTheListAndUngroupingStopsAtTheFirstEmptyCaption) {
    m_groups.Entries = {"RPG", "Action", "Puzzle", FixedGroup};
    EXPECT_TRUE(m_groups.RemoveGroup("rpg"));
    EXPECT_FALSE(m_groups.RemoveGroup("Nope") || m_groups.RemoveGroup(FixedGroup));
    EXPECT_EQ(Used(m_groups), (QStringList{"Action", "Puzzle", FixedGroup}));
    EXPECT_EQ(LogText(), "\r\nAttempting to remove group: rpg...Success!"
                         "\r\nAttempting to remove group: Nope...No Custom Groups Exist!"
                         "\r\nAttempting to remove group: Ungrouped...No Custom Groups Exist!");
    for (int i = 0; i < GroupList::Capacity; ++i)
        m_groups.Entries[i] = QString::number(i);
    EXPECT_TRUE(m_groups.RemoveGroup("99") && m_groups.RemoveGroup("50"));
    EXPECT_EQ(m_groups.Entries[50], "51");
    EXPECT_EQ(m_groups.Count(), 98);

    auto& games = m_state.Games.Records;
    const QStringList groups{"ACTION", "Puzzle", "Action", "", "Action"};
    for (int i = 0; i < groups.size(); ++i)
        games[i].Caption = games[i].Group = groups[i]; // no caption: the end of the list
    UngroupGames(m_state.Games, "action");
    EXPECT_EQ(games[0].Group + games[1].Group + games[2].Group + games[4].Group,
              FixedGroup + "Puzzle" + FixedGroup + "Action");
}

TEST_F(GroupListTest, TheStoreFormRewritesAndReadsBackTheFileFormOnlyLogs) {
    m_groups.Entries = {"RPG", "Puzzle"};
    m_state.Store.Write(Section, "02", "Stale");
    ExportGroupList(m_state, "REG", QString());
    ExportGroupList(m_state, "file", "groups.ini");
    ExportGroupList(m_state, "disk", QString());
    const QList<std::pair<QString, QString>> stored{{"00", "RPG"}, {"01", "Puzzle"}};
    EXPECT_EQ(SettingsStore().ListSection(Section), stored); // synced to disk

    m_state.Store.Write(Section, "03", "Beyond the gap");
    AppState fresh;
    fresh.Groups.Entries = {"Old 0", "Old 1", "Old 2"};
    ImportGroupList(fresh, "Reg", QString());
    ImportGroupList(fresh, "INI", "groups.ini");
    ImportGroupList(fresh, QString(), QString());
    EXPECT_EQ(Used(fresh.Groups), (QStringList{"RPG", "Puzzle", "Old 2"}));
    EXPECT_FALSE(QFile::exists("groups.ini"));
    EXPECT_EQ(LogText(), "\r\nExporting GroupList to: Registry...Done."
                         "Exporting GroupList to file: groups.ini..."
                         "\r\nImporting GroupList from: Registry...Done."
                         "\r\nImporting GroupList from file: groups.ini...");
}

} // namespace
