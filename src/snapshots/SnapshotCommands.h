#pragma once

#include <QString>

class Prompts;
class SystemShell;
struct AppState;

// The game menu's snapshot commands for a game file (its name without folder). Each
// first ends the snapshot folder setting with a separator; the caller shows the
// game's picture again afterwards. The snapshot is the first of the game's base
// name with ".bmp", ".gif", ".jpg" or ".png" in the snapshot folder.

// Copies a picture that the player picks in as the snapshot, after deleting the
// game's old snapshots for good.
void ChangeSnapshot(AppState& state, Prompts& prompts, SystemShell& shell, const QString& gameFile);

// Opens the snapshot in the desktop's program for it.
void OpenSnapshot(AppState& state, Prompts& prompts, SystemShell& shell, const QString& gameFile);

// Moves the snapshot to the trash.
void RemoveSnapshot(AppState& state, SystemShell& shell, const QString& gameFile);
