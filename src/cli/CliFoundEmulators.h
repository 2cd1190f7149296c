#pragma once

#include "cli/CliCommands.h"
#include "emulators/EmulatorCatalogue.h"

#include <QString>
#include <QStringList>
#include <optional>

// The settings "emulators set" may change; what is not given stays as it is.
struct EmulatorSettings {
    std::optional<QString> Folder;     // Lumbra's own three only
    std::optional<QString> SaveFolder; // a found emulator's: its battery saves
    std::optional<QString> Profile;
    std::optional<QString> Command; // found emulators only, and their folders below
    std::optional<QString> StateFolder;
    std::optional<QString> ScreenshotFolder;

    // Takes the options out of the arguments; false when one misses its value.
    bool Take(QStringList& arguments);
};

// The emulator catalogue; what it left out goes to standard error.
EmulatorCatalogue ReadEmulatorCatalogue(CliContext& context);

// The found emulators' parts of the "emulators" command.
int RunDetectEmulators(CliContext& context, const QStringList& arguments);
int RunRemoveFoundEmulator(CliContext& context, const QStringList& arguments);
void ListFoundEmulators(CliContext& context);
// With the store claimed; a usage error when no found emulator has that name.
int SetFoundEmulator(CliContext& context, const QString& name, const EmulatorSettings& settings);
