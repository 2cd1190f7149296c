#pragma once

#include "emulators/EmulatorCatalogue.h"
#include "emulators/EmulatorCommand.h"
#include "emulators/EmulatorEnvironment.h"
#include "emulators/EmulatorFiles.h"
#include "emulators/FoundEmulators.h"

#include <optional>

class SettingsStore;

// A file an emulator wrote for a game, for a listing.
struct SavedGameFile {
    QString Emulator;
    QString Kind; // "state", "auto state", "all states", "battery save", "screenshot"
    int Slot = -1;
    QString Path;
};

// The emulators Lumbra found, with their catalogue entries: what the launcher, the
// snapshot wizard and the save-state menu ask about an emulator other than Lumbra's
// own three. Names are matched without regard to case.
class FoundEmulatorTable {
public:
    FoundEmulatorTable(const SettingsStore& store, EmulatorCatalogue catalogue,
                       EmulatorEnvironment environment = EmulatorEnvironment());

    const QList<FoundEmulator>& Emulators() const { return m_emulators; }
    const EmulatorCatalogue& Catalogue() const { return m_catalogue; }
    // Null when no found emulator has that name.
    const FoundEmulator* Find(const QString& name) const;
    // Null when the catalogue no longer holds the emulator's entry.
    const CatalogueEntry* EntryOf(const FoundEmulator& emulator) const;

    // The program and arguments that play the game (its real path) with the profile's
    // option text; nothing for an unknown name.
    std::optional<EmulatorCommand> Command(const QString& name, const QString& options,
                                           const QString& gamePath) const;
    // Whether the emulator opens a zipped game itself; false for an unknown name.
    bool ReadsZip(const QString& name) const;
    // Where the emulator writes the game's states, battery save and screenshots;
    // nothing for an unknown name or one whose entry is gone.
    std::optional<EmulatorGameFiles> GameFiles(const QString& name, const QString& gamePath) const;
    // Every found emulator's existing states, battery save and screenshots of the game,
    // emulator by emulator.
    QList<SavedGameFile> SavedFiles(const QString& gamePath) const;

private:
    EmulatorCatalogue m_catalogue;
    EmulatorEnvironment m_environment;
    QList<FoundEmulator> m_emulators;
};
