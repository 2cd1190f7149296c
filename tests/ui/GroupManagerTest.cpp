#include "support/ScriptedPrompts.h"
#include "support/TestFixtures.h"
#include "ui/frmGroupManager.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <memory>

namespace {

class GroupManagerTest : public LumbraTest {
protected:
    GroupManagerTest() { EnableLog(); }

    void Open(const QStringList& groups) {
        for (qsizetype i = 0; i < groups.size(); ++i)
            m_state.Groups.Entries[i] = groups[i];
        m_dialog = std::make_unique<frmGroupManager>(m_state, m_prompts);
        m_dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_dialog.get()));
    }
    QListWidget* List() const { return m_dialog->findChild<QListWidget*>("lstGroupList"); }
    QStringList Listed() const {
        QStringList names;
        for (int i = 0; i < List()->count(); ++i)
            names.append(List()->item(i)->text());
        return names;
    }
    void Click(const char* name) {
        auto* button = m_dialog->findChild<QPushButton*>(QString::fromLatin1(name));
        ASSERT_NE(button, nullptr) << name;
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void Select(const QString& name) {
        QListWidgetItem* item = List()->findItems(name, Qt::MatchExactly).value(0);
        ASSERT_NE(item, nullptr);
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {},
                          List()->visualItemRect(item).center());
        ASSERT_TRUE(item->isSelected());
    }

    ScriptedPrompts m_prompts;
    std::unique_ptr<frmGroupManager> m_dialog;
};

TEST_F(GroupManagerTest, LoadListsTheCustomGroupsInOrder) {
    Open({"RPG", "Action", "Puzzle"});
    EXPECT_TRUE(m_dialog->isModal());
    EXPECT_EQ(Listed(), (QStringList{"RPG", "Action", "Puzzle"}));
    EXPECT_EQ(LogText(), "\r\n\r\n=== Loaded frmGroupManager ===");
}

TEST_F(GroupManagerTest, AddAsksForACaptionAndListsOnlyAcceptedGroups) {
    Open({"action"});
    m_prompts.AnswerInput("Puzzle").AnswerInput("Action").AnswerInput(std::nullopt);
    Click("cmdAdd");
    Click("cmdAdd");
    Click("cmdAdd");
    EXPECT_EQ(Listed(), (QStringList{"action", "Puzzle"}));
    EXPECT_EQ(m_state.Groups.Count(), 2);

    ASSERT_EQ(m_prompts.Asked().size(), 3); // input boxes only, no message box
    for (const ScriptedPrompts::Question& asked : m_prompts.Asked()) {
        EXPECT_EQ(asked.kind, ScriptedPrompts::Kind::Input);
        EXPECT_EQ(asked.text, "Enter the new group's caption:");
        EXPECT_EQ(asked.title, "Create Group");
    }
    EXPECT_TRUE(LogText().endsWith("\r\nAttempting to add group: Puzzle...Success."
                                   "\r\nAttempting to add group: Action...Already Exists!"
                                   "\r\nAttempting to add group: ...Already Exists!"));
}

TEST_F(GroupManagerTest, RemoveDropsTheGroupAndSendsItsGamesToUngrouped) {
    const QStringList groups{"ACTION", "Puzzle", "Action", "", "Action"};
    for (int i = 0; i < groups.size(); ++i) {
        GameRecord& game = m_state.Games.Records[i];
        game.Caption = groups[i].isEmpty() ? QString() : QStringLiteral("Game %1").arg(i);
        game.Filename = QStringLiteral("game%1.smc").arg(i);
        game.Group = groups[i];
    }
    Open({"RPG", "Action", "Puzzle"});
    Select("Action");
    Click("cmdRemove");
    EXPECT_EQ(Listed(), (QStringList{"RPG", "Puzzle"}));
    EXPECT_EQ(m_state.Groups.Entries[1], "Puzzle");
    const auto& games = m_state.Games.Records;
    EXPECT_EQ(games[0].Group, FixedGroup);
    EXPECT_EQ(games[1].Group, "Puzzle");
    EXPECT_EQ(games[2].Group, FixedGroup);
    EXPECT_EQ(games[4].Group, "Action") << "the walk stops at the first empty caption";
    EXPECT_TRUE(LogText().endsWith("\r\nAttempting to remove group: Action...Success!"));
}

TEST_F(GroupManagerTest, RemoveWithoutSelectionDoesNothing) {
    Open({"RPG", "Action"});
    Click("cmdRemove");
    EXPECT_EQ(Listed(), (QStringList{"RPG", "Action"}));
    EXPECT_FALSE(LogText().contains("Attempting to remove"));
}

TEST_F(GroupManagerTest, CloseExportsToTheStoreAndEndsTheModalRun) {
    m_state.Store.Write("Group List", "05", "Stale");
    Open({"RPG", "Action"});
    Select("RPG");
    Click("cmdRemove");
    m_dialog->hide();
    QTimer::singleShot(0, m_dialog.get(), [this] { Click("cmdClose"); });
    EXPECT_EQ(m_dialog->exec(), QDialog::Accepted);

    const auto stored = SettingsStore().ListSection("Group List");
    ASSERT_EQ(stored.size(), 1);
    EXPECT_EQ(stored[0], std::make_pair(QStringLiteral("00"), QStringLiteral("Action")));
    m_dialog.reset();
    EXPECT_TRUE(LogText().endsWith("\r\nExporting GroupList to: Registry...Done."
                                   "\r\n\r\n=== Unloaded frmGroupManager ==="));
}

} // namespace
