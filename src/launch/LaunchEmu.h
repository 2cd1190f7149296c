#pragma once

#include "launch/Launcher.h"

#include <QString>

class Prompts;
class SnapshotWizardView;
class SystemShell;
struct AppState;
struct FoundEmulator;
struct GameRecord;
struct ProgramEnd;
class FoundEmulatorTable;

// What is said when an emulator could not start or failed at once: its name, its
// exit status and the last lines of its error output.
QString EarlyFailureText(const QString& emulatorName, const ProgramEnd& end);

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
    // Starts an emulator Lumbra found: directly, with the game's real path.
    LaunchEnd LaunchFound(GameRecord& game, const FoundEmulatorTable& table,
                          const FoundEmulator& emulator);
    void ReportMissingGame(const QString& fileName);
    void ReportEmptyArchive();

    AppState& m_state;
    Prompts& m_prompts;
    SystemShell& m_shell;
    SnapshotWizardView& m_wizardView;
};
