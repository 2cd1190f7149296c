#include "cli/CliFoundEmulators.h"

#include "catalogue/AppState.h"
#include "cli/CliSupport.h"
#include "cli/JsonLine.h"
#include "config/StoreWriterLock.h"
#include "emulators/EmulatorCommand.h"
#include "emulators/EmulatorDetection.h"
#include "emulators/EmulatorEnvironment.h"
#include "emulators/FoundEmulators.h"

namespace {

// A player's folder of a found emulator: an existing folder, or "" for the emulator's own.
bool TakeFolder(CliContext& context, const std::optional<QString>& given, QString& field) {
    if (!given)
        return true;
    if (given->isEmpty()) {
        field.clear();
        return true;
    }
    const std::optional<QString> stored = StoredFolder(context, *given);
    if (stored)
        field = *stored;
    return stored.has_value();
}

} // namespace

EmulatorCatalogue ReadEmulatorCatalogue(CliContext& context) {
    EmulatorCatalogue catalogue = LoadEmulatorCatalogue();
    for (const QString& problem : catalogue.Problems)
        context.Err << "lumbra-cli: " << problem << '\n';
    return catalogue;
}

bool EmulatorSettings::Take(QStringList& arguments) {
    const std::pair<const char*, std::optional<QString>*> options[] = {
        {"--folder", &Folder},
        {"--save-folder", &SaveFolder},
        {"--profile", &Profile},
        {"--command", &Command},
        {"--state-folder", &StateFolder},
        {"--screenshot-folder", &ScreenshotFolder}};
    for (const auto& [option, field] : options) {
        const QString name = QLatin1String(option);
        if (!arguments.contains(name))
            continue;
        QString value;
        if (!TakeOption(arguments, name, value))
            return false;
        *field = value;
    }
    return true;
}

int RunDetectEmulators(CliContext& context, const QStringList& arguments) {
    QStringList rest = arguments;
    const bool json = TakeFlag(rest, QStringLiteral("--json"));
    if (!rest.isEmpty())
        return UsageError(context, QStringLiteral("usage: emulators detect [--json]"));
    SettingsStore& store = context.State.Store;
    StoreWriterLock lock(store, StoreWriterLock::Holder::Command);
    if (!ClaimStore(context, lock))
        return ExitFailed;
    const EmulatorCatalogue catalogue = ReadEmulatorCatalogue(context);
    const StoredDetection stored =
        StoreDetectedEmulators(store, DetectEmulators(catalogue, EmulatorEnvironment()));
    for (const FoundEmulator& emulator : stored.Found) {
        if (json)
            context.Out << JsonLine({{QStringLiteral("name"), emulator.Name},
                                     {QStringLiteral("entry"), emulator.Entry},
                                     {QStringLiteral("program"), emulator.Program},
                                     {QStringLiteral("core"), emulator.Core},
                                     {QStringLiteral("command"), emulator.Command}})
                        << '\n';
        else
            context.Out << emulator.Name << ": " << CommandPreview(emulator) << '\n';
    }
    for (const QString& gone : stored.Gone)
        context.Err << "lumbra-cli: no longer found, removed: " << gone << '\n';
    return ExitOk;
}

int RunRemoveFoundEmulator(CliContext& context, const QStringList& arguments) {
    if (arguments.size() != 1)
        return UsageError(context, QStringLiteral("usage: emulators remove NAME"));
    SettingsStore& store = context.State.Store;
    StoreWriterLock lock(store, StoreWriterLock::Holder::Command);
    if (!ClaimStore(context, lock))
        return ExitFailed;
    if (RemoveFoundEmulator(store, arguments.first()))
        return ExitOk;
    context.Err << "lumbra-cli: no found emulator is named " << arguments.first()
                << (EmulatorName(store, arguments.first())
                        ? QStringLiteral(": Lumbra's own three stay")
                        : QString())
                << '\n';
    return ExitFailed;
}

void ListFoundEmulators(CliContext& context) {
    const auto own = [](const QString& folder) {
        return folder.isEmpty() ? QStringLiteral("(the emulator's own)") : folder;
    };
    for (const FoundEmulator& emulator : ReadFoundEmulators(context.State.Store)) {
        context.Out << emulator.Name << "\n  program:      " << emulator.Program;
        if (!emulator.Core.isEmpty())
            context.Out << "\n  core:         " << emulator.Core;
        context.Out << "\n  command:      " << emulator.Command
                    << "\n  profile:      " << emulator.DefaultProfile
                    << "\n  states:       " << own(emulator.StateFolder)
                    << "\n  saves:        " << own(emulator.SaveFolder)
                    << "\n  screenshots:  " << own(emulator.ScreenshotFolder) << '\n';
    }
}

int SetFoundEmulator(CliContext& context, const QString& name, const EmulatorSettings& settings) {
    SettingsStore& store = context.State.Store;
    std::optional<FoundEmulator> emulator = FindFoundEmulator(store, name);
    if (!emulator)
        return UsageError(context, QStringLiteral("no emulator named ") + name +
                                       QStringLiteral(" (Nlke, Snes9X, ZSnes, or one that "
                                                      "'emulators detect' found)"));
    if (settings.Folder)
        return UsageError(context, QStringLiteral("a found emulator has no --folder: its program "
                                                  "is found, and --command starts it"));
    if (settings.Command) {
        if (!settings.Command->contains(QLatin1String("{game}"))) {
            context.Err << "lumbra-cli: the command needs {game}, where the game goes\n";
            return ExitFailed;
        }
        emulator->Command = *settings.Command;
    }
    if (settings.Profile)
        emulator->DefaultProfile = *settings.Profile;
    if (!TakeFolder(context, settings.StateFolder, emulator->StateFolder) ||
        !TakeFolder(context, settings.SaveFolder, emulator->SaveFolder) ||
        !TakeFolder(context, settings.ScreenshotFolder, emulator->ScreenshotFolder))
        return ExitFailed;
    WriteFoundEmulator(store, *emulator);
    return ExitOk;
}
