#pragma once

#include <QString>
#include <QStringList>

struct AppState;

// Debug mode is on only when the whole command line, lower-cased, is "/debug".
bool IsDebugSwitch(const QStringList& arguments);

// Start-up before the main window: the emulators, then the settings, then the
// game folders, each from the settings store.
void LoadConfiguration(AppState& state);

// The close sequence's save: settings, game folders, groups and games, in that order.
void SaveEverything(AppState& state);
