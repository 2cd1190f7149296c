#pragma once

#include "savestates/SaveStateMenu.h"

#include <QList>
#include <QString>

// A file an emulator Lumbra found may write for a game, whether it is there or not.
struct EmulatorSaveFile {
    enum class Kind { Slot, Auto, AllSlots, Battery };
    Kind FileKind = Kind::Slot;
    int Slot = -1; // slots only
    QString Path;  // its real name
    bool Exists = false;
};

// A found emulator's submenu of the "Save States" menu: its slots in order, then its
// automatic state and its file of all slots when it has them, then its battery save.
struct FoundEmulatorSaveStates {
    QString Emulator;
    QList<SaveStateItem> States;
    QList<SaveStateItem> Others; // the automatic state, the file of all slots
    SaveStateItem Battery;
};

// The items of the files, captioned as the three emulators' are ("(n) Used",
// "(n) Empty", "SRAM File", "No SRAM File"; "(Auto) ..." and "(All) ..." for the
// automatic state and the file of all slots). A used item's tag is the file's real path.
FoundEmulatorSaveStates BuildFoundSaveStates(const QString& emulator,
                                             const QList<EmulatorSaveFile>& files);
