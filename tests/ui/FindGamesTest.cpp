#include "app/Startup.h"
#include "support/WindowTest.h"

namespace {

// Seven games in two groups and "Ungrouped", one of them removed, as a last run left
// them; Lumbra starts on "All Games".
class FindGamesTest : public WindowTest {
protected:
    void Start() {
        const QString folder = SeedGames("Games",
                                         {{"zelda.smc", "Zelda;RPG"},
                                          {"game10.smc", "Game 10;RPG"},
                                          {"mario.smc", "Super Mario World;Action"},
                                          {"gone.smc", "/invisible;RPG"},
                                          {"pokemon.sfc", "Pokémon Stadium;Ungrouped"},
                                          {"kart.smc", "Super Mario Kart;Ungrouped"},
                                          {"game2.smc", "game 2;RPG"}},
                                         "All Games");
        m_state.Store.Write("Settings", "Snapshots_Show", "0");
        m_state.Store.Write("Play Statistics\\" + folder.toLower(), "zelda.smc",
                            "3;2026-11-20T10:05:00Z;5400");
        m_state.Store.Sync();
        StartWindow();
        m_window->activateWindow(); // the window takes the keys
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }
    QLineEdit* Filter() const { return Control<QLineEdit>("txtFilter"); }
    QComboBox* Groups() const { return Control<QComboBox>("cboGroupList"); }
};

TEST_F(FindGamesTest, AllGamesListsEveryGameSortedAndEachLineStartsAndDescribesItsOwnGame) {
    Start();
    EXPECT_EQ(ItemTexts(Groups()), QStringList({"All Games", "Ungrouped", "RPG", "Action"}));
    EXPECT_EQ(Listed(), (QStringList{"game 2", "Game 10", "Pokémon Stadium", "Super Mario Kart",
                                     "Super Mario World", "Zelda"}));
    EXPECT_TRUE(Status().startsWith("6 games in All Games"));

    // Every line launches its own record, whatever the order on screen.
    for (int row = 0; row < List()->count(); ++row) {
        ClickLine(List(), row);
        QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {},
                           List()->visualItemRect(List()->item(row)).center());
    }
    QList<int> expected;
    for (const QString& caption : Listed())
        expected << Game(caption);
    EXPECT_EQ(m_launcher.Requests, expected);

    // The selected game's play statistics show below and in its information: the text is
    // the play statistics' own, the time in local time.
    ASSERT_EQ(Selected(), "Zelda");
    const QString zelda = Status().section("   |   ", 1, 1);
    EXPECT_TRUE(zelda.startsWith("Played 3 times, last on 2026-11-") &&
                zelda.endsWith(", for 1 h 30 min"))
        << Status().toStdString();
    QString shown;
    InDialog(
        [] { Press(Qt::Key_I, Qt::ControlModifier); },
        [&shown](QDialog* info) { shown = ControlIn<QLabel>(info, "lblPlayStatistics")->text(); });
    EXPECT_EQ(shown, zelda);
}

TEST_F(FindGamesTest, TypingFindsGamesByEveryWordAndTheKeysLeadOn) {
    Start();
    ASSERT_TRUE(List()->hasFocus());
    Type("MARIO w"); // the first letter typed in the list starts the filter
    EXPECT_TRUE(Filter()->hasFocus());
    EXPECT_EQ(Filter()->text() + ": " + Listed().join(',') + " [" + Selected() + "]",
              "MARIO w: Super Mario World [Super Mario World]");
    EXPECT_TRUE(Status().startsWith("1 game in All Games matching \"MARIO w\""));

    Press(Qt::Key_Escape); // clears, and the list has the keys again
    EXPECT_TRUE(List()->count() == 6 && List()->hasFocus());

    // Ctrl+F selects the text, so that what is typed replaces it.
    const QList<std::pair<QString, QStringList>> searches{
        {"pokemon", {"Pokémon Stadium"}},                          // accents aside
        {"super .smc", {"Super Mario Kart", "Super Mario World"}}, // the file name too
        {"xyz", {}}};
    for (const auto& [typed, found] : searches) {
        Press(Qt::Key_F, Qt::ControlModifier);
        EXPECT_TRUE(Filter()->hasFocus());
        Type(typed); // replaces the selected text
        EXPECT_EQ(Listed(), found) << typed.toStdString();
    }
    EXPECT_EQ(Selected(), QString());

    // Enter plays the first game shown, as a double click would.
    Filter()->selectAll();
    Type("super");
    Press(Qt::Key_Return);
    EXPECT_EQ(m_launcher.Requests, QList<int>{Game("Super Mario Kart")});
    // Down moves into the list, where Enter plays the selected game.
    Press(Qt::Key_Down);
    EXPECT_TRUE(List()->hasFocus());
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(m_launcher.Requests.last(), Game("Super Mario World"));

    // The filter stays while the group changes: it searches the group shown.
    Filter()->setText("a");
    ChooseGroup("RPG");
    EXPECT_EQ(Listed(), (QStringList{"game 2", "Game 10", "Zelda"}));
    ChooseGroup("Ungrouped");
    EXPECT_EQ(Listed(), (QStringList{"Pokémon Stadium", "Super Mario Kart"}));
    List()->setFocus();
    Press(Qt::Key_Escape);
    EXPECT_EQ(Filter()->text(), QString());
}

TEST_F(FindGamesTest, TheGameMenusKeysActOnTheSelectedGameAndAllGamesIsNoGroupToSendItTo) {
    Start();
    QStringList keys; // shown in the menu
    for (const char* entry : {"mnuRomMenu_Rename", "mnuRomMenu_Remove", "mnuRomMenu_GameInfo"})
        keys << Control<QAction>(entry)->shortcut().toString();
    EXPECT_EQ(keys, (QStringList{"F2", "Del", "Ctrl+I"}));

    // F2: the renamed game takes its place in the order and stays selected.
    List()->setCurrentRow(5);
    m_prompts.AnswerInput("A Link to the Past");
    Press(Qt::Key_F2);
    EXPECT_EQ(Listed().first() + "|" + Selected() + "|" + m_prompts.Asked().last().proposed,
              "A Link to the Past|A Link to the Past|Zelda");
    EXPECT_EQ(m_state.Games.Records[Game("A Link to the Past")].Filename, "zelda.smc");

    // Delete in the filter deletes a letter; in the list, the game.
    Press(Qt::Key_F, Qt::ControlModifier);
    Type("linkk");
    Press(Qt::Key_Home);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Filter()->text(), "inkk");
    Press(Qt::Key_End);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Listed(), QStringList{"A Link to the Past"});
    Press(Qt::Key_Down);
    Press(Qt::Key_Delete);
    const int zelda = m_state.Games.FindGame("filename", "zelda.smc");
    EXPECT_EQ(m_state.Games.Records[zelda].Caption, RemovedCaption);
    EXPECT_EQ(Listed(), QStringList());
    Press(Qt::Key_Delete); // nothing selected: nothing to remove
    Press(Qt::Key_Escape);
    EXPECT_EQ(List()->count(), 5);
    EXPECT_EQ(m_prompts.Asked().size(), 1);

    // "All Games" is no group to send a game to.
    m_state.Options.AutoSwitchGroup = 0;
    List()->setCurrentRow(2);
    ASSERT_EQ(Selected(), "Pokémon Stadium");
    // The entries of "Send To Group...", as the menu opens.
    const auto offered = [this] {
        OpenGameMenu();
        return MenuEntries(Control<QMenu>("mnuRomMenu_SendToGroup"));
    };

    // In "All Games" the game's own group is ticked; a game sent on stays in view.
    EXPECT_EQ(offered(), (QStringList{"RPG", "Action", "Ungrouped*", "&New Group..."}));
    ChooseFromGameMenu("RPG");
    EXPECT_EQ(m_state.Games.Records[Game("Pokémon Stadium")].Group, "RPG");
    EXPECT_EQ(List()->count(), 5);
    EXPECT_EQ(Selected(), "Pokémon Stadium");
    EXPECT_EQ(offered(), (QStringList{"RPG*", "Action", "Ungrouped", "&New Group..."}));

    m_prompts.AnswerInput("all games"); // refused, in the words the group manager shows
    ChooseFromGameMenu("mnuSendToGroup_NewGroup");
    EXPECT_EQ(ItemTexts(Groups()), QStringList({"All Games", "Ungrouped", "RPG", "Action"}));

    m_state.Options.AutoSwitchGroup = 1;
    ChooseFromGameMenu("Action");
    EXPECT_EQ(Groups()->currentText() + ": " + Selected(), "Action: Pokémon Stadium");
}

} // namespace
