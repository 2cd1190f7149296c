#include "app/Startup.h"
#include "support/WidgetSteps.h"
#include "support/WindowTest.h"

#include <QComboBox>
#include <QDateTime>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QStatusBar>

namespace {

// Seven games in two groups and "Ungrouped", one of them removed, as a last run left
// them; Lumbra starts on "All Games".
class FindGamesTest : public WindowTest {
protected:
    void Start(const QString& defaultGroup = "All Games") {
        const QString folder = MakeFolder("Games") + '/';
        AppState seed;
        seed.GameFolders.AddGameFolder(folder);
        seed.Groups.AddGroup("RPG");
        seed.Groups.AddGroup("Action");
        seed.Options.DefaultGroup = defaultGroup;
        seed.Options.Snapshots_Show = 0;
        SaveEverything(seed);
        const QStringList games{"zelda.smc",   "Zelda;RPG",
                                "game10.smc",  "Game 10;RPG",
                                "mario.smc",   "Super Mario World;Action",
                                "gone.smc",    "/invisible;RPG",
                                "pokemon.sfc", "Pokémon Stadium;Ungrouped",
                                "kart.smc",    "Super Mario Kart;Ungrouped",
                                "game2.smc",   "game 2;RPG"};
        for (int i = 0; i < games.size(); i += 2) {
            WriteFile("Games/" + games[i], "x");
            seed.Store.Write("Game List\\" + folder.toLower(), games[i], games[i + 1]);
        }
        seed.Store.Write("Play Statistics\\" + folder.toLower(), "zelda.smc",
                         "3;2026-11-20T10:05:00Z;5400");
        seed.Store.Sync();
        StartWindow();
        Activate();
    }
    // The window takes the keys again, as after a dialog closes.
    void Activate() {
        m_window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }

    QListWidget* List() const { return Control<QListWidget>("lstGameList"); }
    QLineEdit* Filter() const { return Control<QLineEdit>("txtFilter"); }
    QComboBox* Groups() const { return Control<QComboBox>("cboGroupList"); }
    QStringList Listed() const { return ItemTexts(List()); }
    QStringList GroupLines() const {
        QStringList lines;
        for (int i = 0; i < Groups()->count(); ++i)
            lines << Groups()->itemText(i);
        return lines;
    }
    QString Selected() const {
        return List()->currentItem() ? List()->currentItem()->text() : QString();
    }
    int Game(const QString& caption) const { return m_state.Games.FindGame("title", caption); }
    // Types into whichever control has the keyboard focus, as a player would.
    void Type(const QString& text) {
        for (const QChar c : text)
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
};

TEST_F(FindGamesTest, AllGamesListsEveryGameSortedAndEachLineStartsItsOwnGame) {
    Start();
    EXPECT_EQ(GroupLines(), QStringList({"All Games", "Ungrouped", "RPG", "Action"}));
    EXPECT_EQ(Groups()->currentText(), "All Games");
    EXPECT_EQ(Listed(), (QStringList{"game 2", "Game 10", "Pokémon Stadium", "Super Mario Kart",
                                     "Super Mario World", "Zelda"}));
    EXPECT_TRUE(m_window->statusBar()->currentMessage().startsWith("6 games in All Games"));

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

    PickFromList(Groups(), "RPG");
    EXPECT_EQ(Listed(), (QStringList{"game 2", "Game 10", "Zelda"}));
    PickFromList(Groups(), "All Games");
    EXPECT_EQ(List()->count(), 6);
}

TEST_F(FindGamesTest, TypingFindsGamesByEveryWordAndTheKeysLeadOn) {
    Start();
    ASSERT_TRUE(List()->hasFocus());
    Type("MARIO w"); // the first letter typed in the list starts the filter
    EXPECT_TRUE(Filter()->hasFocus());
    EXPECT_EQ(Filter()->text(), "MARIO w");
    EXPECT_EQ(Listed(), QStringList{"Super Mario World"});
    EXPECT_EQ(Selected(), "Super Mario World");
    EXPECT_TRUE(m_window->statusBar()->currentMessage().startsWith(
        "1 game in All Games matching \"MARIO w\""));

    Press(Qt::Key_Escape); // clears, and the list has the keys again
    EXPECT_EQ(List()->count(), 6);
    EXPECT_TRUE(List()->hasFocus());

    const QList<std::pair<QString, QStringList>> searches{
        {"pokemon", {"Pokémon Stadium"}},                          // accents aside
        {"kart mario", {"Super Mario Kart"}},                      // words in any order
        {"game10", {"Game 10"}},                                   // the file name
        {".sfc", {"Pokémon Stadium"}},                             // the file name's extension
        {"super .smc", {"Super Mario Kart", "Super Mario World"}}, // one word in each
        {"xyz", {}}};
    for (const auto& [typed, found] : searches) {
        Press(Qt::Key_F, Qt::ControlModifier);
        EXPECT_TRUE(Filter()->hasFocus());
        Type(typed); // replaces the selected text
        EXPECT_EQ(Listed(), found) << typed.toStdString();
    }
    EXPECT_EQ(Selected(), QString());
    EXPECT_EQ(Control<QLabel>("picSnapshot")->text(), "No snapshot");

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
    PickFromList(Groups(), "RPG");
    EXPECT_EQ(Listed(), (QStringList{"game 2", "Game 10", "Zelda"}));
    PickFromList(Groups(), "Ungrouped");
    EXPECT_EQ(Listed(), (QStringList{"Pokémon Stadium", "Super Mario Kart"}));
    List()->setFocus();
    Press(Qt::Key_Escape);
    EXPECT_EQ(Filter()->text(), QString());
}

TEST_F(FindGamesTest, TheSelectedGamesPlayStatisticsShowBelowAndInItsInformation) {
    Start();
    const QString zelda = "Played 3 times, last on " +
                          QDateTime(QDate(2026, 11, 20), QTime(10, 5), Qt::UTC)
                              .toLocalTime()
                              .toString("yyyy-MM-dd HH:mm") +
                          ", for 1 h 30 min";
    ClickLine(List(), static_cast<int>(Listed().indexOf("Zelda")));
    EXPECT_TRUE(m_window->statusBar()->currentMessage().endsWith("zelda.smc   |   " + zelda))
        << m_window->statusBar()->currentMessage().toStdString();
    ClickLine(List(), static_cast<int>(Listed().indexOf("Super Mario Kart")));
    EXPECT_TRUE(m_window->statusBar()->currentMessage().endsWith("   |   Never played"));

    ClickLine(List(), static_cast<int>(Listed().indexOf("Zelda")));
    QString shown;
    RunWhenModal([&shown](QWidget* dialog) {
        shown = dialog->findChild<QLabel*>("lblPlayStatistics")->text();
        qobject_cast<QDialog*>(dialog)->reject();
    });
    Press(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(shown, zelda);
}

TEST_F(FindGamesTest, TheGameMenusKeysActOnTheSelectedGame) {
    Start();
    QMenu* menu = Control<QMenu>("mnuRomMenu");
    for (const auto& [entry, keys] :
         {std::pair<const char*, const char*>{"mnuRomMenu_Rename", "F2"},
          {"mnuRomMenu_Remove", "Del"},
          {"mnuRomMenu_GameInfo", "Ctrl+I"}})
        EXPECT_EQ(Control<QAction>(entry)->shortcut().toString(), keys); // shown in the menu

    // F2: the renamed game takes its place in the order and stays selected.
    List()->setCurrentRow(5);
    m_prompts.AnswerInput("A Link to the Past");
    Press(Qt::Key_F2);
    EXPECT_EQ(Listed().first(), "A Link to the Past");
    EXPECT_EQ(Selected(), "A Link to the Past");
    EXPECT_EQ(m_state.Games.Records[Game("A Link to the Past")].Filename, "zelda.smc");
    EXPECT_EQ(m_prompts.Asked().last().proposed, "Zelda");

    // Ctrl+I: the information of the selected game.
    QString shownFile;
    RunWhenModal([&shownFile](QWidget* dialog) {
        shownFile = dialog->findChild<QLabel*>("lblFilename")->text();
        qobject_cast<QDialog*>(dialog)->reject();
    });
    Press(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(shownFile, "Filename: zelda.smc");
    Activate();

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
    EXPECT_FALSE(menu->isVisible());
}

TEST_F(FindGamesTest, AllGamesIsNoGroupToSendAGameTo) {
    EnableLog();
    Start();
    m_state.Options.AutoSwitchGroup = 0;
    List()->setCurrentRow(2);
    ASSERT_EQ(Selected(), "Pokémon Stadium");
    const auto openMenu = [this] {
        QTest::keyClick(List(), Qt::Key_Menu);
        Control<QMenu>("mnuRomMenu")->hide();
    };
    const auto choose = [this, &openMenu](const QString& entry) {
        openMenu();
        for (QAction* action : Control<QMenu>("mnuRomMenu_SendToGroup")->actions()) {
            if (action->isVisible() && (action->data() == entry || action->objectName() == entry))
                return action->trigger();
        }
        ADD_FAILURE() << "no entry " << entry.toStdString();
    };
    // The entries of "Send To Group...", as the menu opens.
    const auto offered = [this, &openMenu] {
        openMenu();
        QStringList captions;
        for (const QAction* item : Control<QMenu>("mnuRomMenu_SendToGroup")->actions()) {
            if (item->isVisible() && !item->isSeparator())
                captions << item->text() + (item->isChecked() ? "*" : "");
        }
        return captions;
    };

    // In "All Games" the game's own group is ticked; a game sent on stays in view.
    EXPECT_EQ(offered(), (QStringList{"RPG", "Action", "Ungrouped*", "&New Group..."}));
    choose("RPG");
    EXPECT_EQ(m_state.Games.Records[Game("Pokémon Stadium")].Group, "RPG");
    EXPECT_EQ(List()->count(), 6);
    EXPECT_EQ(Selected(), "Pokémon Stadium");
    EXPECT_EQ(offered(), (QStringList{"RPG*", "Action", "Ungrouped", "&New Group..."}));
    choose("RPG"); // already there: nothing happens

    m_prompts.AnswerInput("all games");
    choose("mnuSendToGroup_NewGroup");
    EXPECT_EQ(m_prompts.AskedTexts().last(),
              "\"All Games\" lists every game and cannot be a group; please choose another name.");
    EXPECT_EQ(GroupLines(), QStringList({"All Games", "Ungrouped", "RPG", "Action"}));

    m_state.Options.AutoSwitchGroup = 1;
    choose("Action");
    EXPECT_EQ(Groups()->currentText(), "Action");
    EXPECT_EQ(Selected(), "Pokémon Stadium");
    EXPECT_EQ(LogText().count("\r\nSent "), 2);
}

} // namespace
