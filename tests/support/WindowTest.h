#pragma once

#include "launch/Launcher.h"
#include "support/ScriptedPrompts.h"
#include "support/ScriptedShell.h"
#include "support/TestFixtures.h"
#include "ui/StartLumbra.h"
#include "ui/frmEventLog.h"
#include "ui/frmMain.h"

#include <QList>
#include <QTest>
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

    bool m_offerFoundEmulators = false;
    ScriptedPrompts m_prompts;
    ScriptedShell m_shell;
    RecordingLauncher m_launcher;
    std::unique_ptr<frmMain> m_window;
};
