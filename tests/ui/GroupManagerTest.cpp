#include "support/ScriptedPrompts.h"
#include "support/TestFixtures.h"
#include "support/WidgetSteps.h"
#include "ui/frmGroupManager.h"

namespace {

using GroupManagerTest = LumbraTest;

TEST_F(GroupManagerTest, AddRemoveAndCloseWorkThroughTheButtons) {
    EnableLog();
    m_state.Games.Records[0].Caption = m_state.Games.Records[0].Group = "ACTION";
    m_state.Groups.Entries = {"RPG", "action"};
    ScriptedPrompts prompts;
    auto dialog = std::make_unique<frmGroupManager>(m_state, prompts);
    ASSERT_TRUE(ShownOnScreen(dialog.get()));
    auto* list = dialog->findChild<QListWidget*>("lstGroupList");
    const auto click = [&dialog](const char* name) { ClickOn(dialog.get(), name); };
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

    ClickLine(list, 1); // its game goes to "Ungrouped"
    click("cmdRemove");
    EXPECT_EQ(ItemTexts(list), (QStringList{"RPG", "Puzzle"}));
    EXPECT_EQ(m_state.Groups.Entries[1] + m_state.Games.Records[0].Group, "Puzzle" + FixedGroup);

    dialog->hide();
    QTimer::singleShot(0, dialog.get(), [&click] { click("cmdClose"); });
    EXPECT_EQ(dialog->exec(), QDialog::Accepted);
    EXPECT_EQ(SettingsStore().Read("Group List", "01"), "Puzzle");
    dialog.reset();
    // The additions' lines are the group list's; the window adds its markers and the export.
    EXPECT_TRUE(LogText().startsWith("\r\n\r\n=== Loaded frmGroupManager ===\r\nAttempting"));
    EXPECT_TRUE(LogText().endsWith("\r\nAttempting to remove group: action...Success!"
                                   "\r\nExporting GroupList to: Registry...Done."
                                   "\r\n\r\n=== Unloaded frmGroupManager ==="));
}

} // namespace
