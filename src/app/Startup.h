#pragma once

#include <QString>
#include <QStringList>

class Prompts;
class StoreWriterLock;
struct AppState;

// Debug mode is on only when the whole command line, lower-cased, is "/debug".
bool IsDebugSwitch(const QStringList& arguments);

// Start-up before the main window: the emulators, then the settings, then the
// game folders, each from the settings store.
void LoadConfiguration(AppState& state);

// The close sequence's save: settings, game folders, groups and games, in that order.
void SaveEverything(AppState& state);

// Takes the settings store's writer lock for the window's whole run. False, after
// telling the player why, while another Lumbra runs or a lumbra-cli command that
// changes the store does not end in time: a second writer would overwrite the
// first one's changes.
bool ClaimStoreForWindow(StoreWriterLock& lock, Prompts& prompts);
