#pragma once

#include "catalogue/FolderScan.h"
#include "config/Profiles.h"
#include "launch/LaunchEmu.h"
#include "platform/RealShell.h"
#include "snapshots/SnapshotWizard.h"
#include "support/ScriptedPrompts.h"
#include "support/TestFixtures.h"

// The player at the snapshot wizard: notes the new images and takes the first.
class PlayerAtTheWizard final : public SnapshotWizardView {
public:
    void ShowModal(SnapshotWizard& wizard) override {
        Shown << wizard.NewImages();
        wizard.UseSnapshot(0);
    }
    QStringList Shown;
};

// Games started by the real launcher on the real shell, with Lumbra's emulators
// defined, the default settings, snapshot and unzip folders in the temporary folder,
// scripted prompts and the player at the wizard.
class LaunchTest : public LumbraTest {
protected:
    LaunchTest() {
        DefineEmulators(m_state.Emulators, m_state.Store);
        m_state.Options = DefaultSettings();
        m_state.Options.SnapshotFolder = TempPath("Snaps") + '/';
        m_state.Options.UnzipFolder = MakeFolder("Unzip") + '/';
    }
    GameRecord& Game(const QString& fileName) {
        return m_state.Games.Records[m_state.Games.FindGame("filename", fileName)];
    }
    LaunchEnd Launch(const QString& fileName) {
        EmulatorLauncher launcher(m_state, m_prompts, m_shell, m_player);
        return launcher.Launch(m_state.Games.FindGame("filename", fileName));
    }

    ScriptedPrompts m_prompts;
    RealShell m_shell{m_prompts, [](const QString&) { return true; }};
    PlayerAtTheWizard m_player;
};
