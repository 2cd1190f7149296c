#pragma once

#include "launch/Launcher.h"
#include "support/ScriptedPrompts.h"
#include "support/ScriptedShell.h"
#include "support/TestFixtures.h"
#include "support/WidgetSteps.h"
#include "ui/StartLumbra.h"
#include "ui/frmEventLog.h"
#include "ui/frmMain.h"

#include <memory>

// Records the games the window asks to start and starts nothing.
class RecordingLauncher final : public Launcher {
public:
    void LaunchEmu(int gameIndex) override { Requests.append(gameIndex); }
    QList<int> Requests;
};

// A test that starts the main window as the program does, on scripted prompts and a
// scripted shell; the games the window asks to start are only recorded.
class WindowTest : public LumbraTest {
protected:
    ~WindowTest() override {
        m_window.reset();
        delete frmEventLog::Instance();
    }

    void StartWindow(const QStringList& arguments = {}) {
        // The start-up offer of a found emulator asks only in the tests about it,
        // whatever emulators this machine has.
        if (!m_offerFoundEmulators)
            m_state.Store.Write("Settings", "FoundEmulatorOffered", "0");
        m_window = StartLumbra(m_state, m_prompts, m_shell, m_launcher, arguments);
        m_window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
    }
    template <typename T> T* Control(const QString& name) const {
        return m_window->findChild<T*>(name);
    }

    // Stores the game folder (under the temporary folder) as a last run left it: each
    // game's file written and its stored line ("caption;group[;...]"), the groups and
    // the group Lumbra starts on. Returns the folder's path with its trailing '/'.
    using Games = QList<std::pair<QString, QString>>;
    QString SeedGames(const QString& folderName, const Games& games, const QString& defaultGroup,
                      const QStringList& groups = {"RPG", "Action"});

    // Runs the steps with only a stand-in "mednafen" on the search path; returns its folder.
    QString WithMednafenOnPath(const std::function<void()>& steps);

    QListWidget* List() const { return Control<QListWidget>("lstGameList"); }
    QString Status() const { return m_window->statusBar()->currentMessage(); }
    QStringList Listed() const;
    // The selected game's caption; empty when none is.
    QString Selected() const;
    // The game's index in the catalogue, by its caption.
    int Game(const QString& caption) const { return m_state.Games.FindGame("title", caption); }
    void ChooseGroup(const QString& group);
    // Keys to whichever control has the keyboard focus, as a player would type them.
    static void Type(const QString& text);
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    // Opens the game menu with the context-menu key, which prepares it for the selected
    // game, and closes it again.
    void OpenGameMenu();
    // Opens the game menu and chooses an enabled entry by its name, or a group of
    // "Send To Group..." by the group.
    void ChooseFromGameMenu(const QString& entry);

    bool m_offerFoundEmulators = false;
    ScriptedPrompts m_prompts;
    ScriptedShell m_shell;
    RecordingLauncher m_launcher;
    std::unique_ptr<frmMain> m_window;
};
