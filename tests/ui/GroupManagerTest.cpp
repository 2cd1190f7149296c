#include "support/ScriptedPrompts.h"
#include "support/TestFixtures.h"
#include "support/WidgetSteps.h"
#include "ui/frmGroupManager.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <memory>

namespace {

using GroupManagerTest = LumbraTest;

TEST_F(GroupManagerTest, AddRemoveAndCloseWorkThroughTheButtons) {
    EnableLog();
    m_state.Games.Records[0].Caption = m_state.Games.Records[0].Group = "ACTION";
    m_state.Groups.Entries = {"RPG", "action"};
    ScriptedPrompts prompts;
    auto dialog = std::make_unique<frmGroupManager>(m_state, prompts);
    dialog->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    auto* list = dialog->findChild<QListWidget*>("lstGroupList");
    ASSERT_NE(list, nullptr);
    const auto click = [&dialog](const char* name) {
        QTest::mouseClick(dialog->findChild<QPushButton*>(name), Qt::LeftButton);
    };
    EXPECT_TRUE(dialog->isModal());
    EXPECT_EQ(ItemTexts(list), (QStringList{"RPG", "action"}));

    click("cmdRemove"); // nothing selected: nothing happens
    prompts.AnswerInput("Puzzle").AnswerInput("Action").AnswerInput(std::nullopt);
    prompts.AnswerInput("All Games");
    for (int i = 0; i < 4; ++i)
        click("cmdAdd");
    EXPECT_EQ(ItemTexts(list), (QStringList{"RPG", "action", "Puzzle"}));
    const QString ask = "Enter the new group's caption:";
    EXPECT_EQ(prompts.AskedTexts(),
              (QStringList{ask, ask, ask, ask,
                           "\"All Games\" lists every game and cannot be a group; please choose "
                           "another name."}));

    ClickLine(list, 1);
    click("cmdRemove");
    EXPECT_EQ(ItemTexts(list), (QStringList{"RPG", "Puzzle"}));
    EXPECT_EQ(m_state.Groups.Entries[1], "Puzzle");
    EXPECT_EQ(m_state.Games.Records[0].Group, FixedGroup);

    dialog->hide();
    QTimer::singleShot(0, dialog.get(), [&click] { click("cmdClose"); });
    EXPECT_EQ(dialog->exec(), QDialog::Accepted);
    EXPECT_EQ(SettingsStore().Read("Group List", "01"), "Puzzle");
    dialog.reset();
    EXPECT_EQ(LogText(), "\r\n\r\n=== Loaded frmGroupManager ==="
                         "\r\nAttempting to add group: Puzzle...Success."
                         "\r\nAttempting to add group: Action...Already Exists!"
                         "\r\nAttempting to add group: ...Already Exists!"
                         "\r\nAttempting to add group: All Games...Refused: \"All Games\" lists "
                         "every game."
                         "\r\nAttempting to remove group: action...Success!"
                         "\r\nExporting GroupList to: Registry...Done."
                         "\r\n\r\n=== Unloaded frmGroupManager ===");
}

} // namespace
