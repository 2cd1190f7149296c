#pragma once

#include "config/Emulators.h"

#include <QList>
#include <QString>
#include <array>

class SystemShell;
struct AppState;

struct SaveStateItem {
    QString Caption;
    bool Enabled = false;
    QString Tag; // the file that a click deletes
};

// One emulator's part of the "Save States" menu: the SRAM file and the save-state
// slots (Nlke 0 to 2, Snes9X and ZSnes 0 to 9).
struct EmulatorSaveStates {
    SaveStateItem Sram;
    QList<SaveStateItem> States;
};

// In the emulator table's order: Nlke, Snes9X, ZSnes.
using SaveStateMenu = std::array<EmulatorSaveStates, EmulatorTable::Count>;

// The slots each emulator has.
int SaveStateSlots(int emulator);

// Every slot "(n) Empty" and "No SRAM File", all disabled.
SaveStateMenu EmptySaveStateMenu();

// Probes each emulator's save folder for the game's SRAM and save-state files, under
// the game's short base name and under its long one (for a zipped game that has been
// played, those of its extracted file), in any letter case. An emulator without a
// save folder shows every slot empty. A used item names the file found, the short
// base's first.
SaveStateMenu BuildSaveStateMenu(AppState& state, int gameIndex);

// A click on a used item: its file goes to the trash, when "StateClickDeletes" is on.
void SaveStateItemClick(const AppState& state, SystemShell& shell, const SaveStateItem& item);
