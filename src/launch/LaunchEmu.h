#pragma once

#include "launch/Launcher.h"

class Prompts;
class SnapshotWizardView;
class SystemShell;
struct AppState;

// How a launch ended: it ran to its end, or stopped early (the reason is in the
// event log and was shown to the player).
enum class LaunchEnd { Ended, GameNotFound, NoLaunchFile, Failed };

// Starts a game of the catalogue in its emulator (modLaunchEmu). Depending on the
// snapshot wizard setting it either opens the emulator and returns at once, or
// waits for the emulator to end and then offers the new screenshots as the game's
// snapshot. Every step is written to the event log.
class EmulatorLauncher final : public Launcher {
public:
    EmulatorLauncher(AppState& state, Prompts& prompts, SystemShell& shell,
                     SnapshotWizardView& wizardView);

    void LaunchEmu(int gameIndex) override { Launch(gameIndex); }
    LaunchEnd Launch(int gameIndex);

    // Removes what a game started without waiting still needed: its extracted files
    // and short-path links. The next launch calls it, and the program's end.
    void ReleaseDetachedPlay();

private:
    AppState& m_state;
    Prompts& m_prompts;
    SystemShell& m_shell;
    SnapshotWizardView& m_wizardView;
};
