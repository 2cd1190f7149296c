#pragma once

#include <QStringList>
#include <memory>

class Launcher;
class Prompts;
class SystemShell;
class frmMain;
struct AppState;

// Start-up in its fixed order: the picture types, debug mode (with the event log
// window) when the command line is "/debug", the emulators, the settings, the game
// folders, and then the main window's load. Returns the loaded main window, not
// yet shown.
std::unique_ptr<frmMain> StartLumbra(AppState& state, Prompts& prompts, SystemShell& shell,
                                     Launcher& launcher, const QStringList& arguments);
