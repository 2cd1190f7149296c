#include "app/Startup.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "cli/CliFoundEmulators.h"
#include "cli/CliSupport.h"
#include "config/StoreWriterLock.h"
#include "emulators/FoundEmulators.h"
#include "platform/PathResolver.h"

#include <utility>

int RunConfig(CliContext& context, const QStringList& arguments) {
    AppState& state = context.State;
    const QString action = arguments.value(0);
    if (action == QLatin1String("list") && arguments.size() == 1) {
        LoadConfiguration(state);
        for (const QString& key : SettingKeys())
            context.Out << key << '=' << *SettingText(state.Options, key) << '\n';
        return ExitOk;
    }
    if (action == QLatin1String("get") && arguments.size() == 2) {
        LoadConfiguration(state);
        const std::optional<QString> value = SettingText(state.Options, arguments.at(1));
        if (!value)
            return UsageError(context, QStringLiteral("unknown setting: ") + arguments.at(1));
        context.Out << *value << '\n';
        return ExitOk;
    }
    if (action != QLatin1String("set") || arguments.size() != 3)
        return UsageError(context, QStringLiteral("usage: config get KEY, config set KEY VALUE, or "
                                                  "config list"));

    const QString& key = arguments.at(1);
    if (!SettingText(state.Options, key))
        return UsageError(context, QStringLiteral("unknown setting: ") + key);
    StoreWriterLock lock(state.Store, StoreWriterLock::Holder::Command);
    if (!ClaimStore(context, lock))
        return ExitFailed;
    LoadConfiguration(state);
    QString value = arguments.at(2);
    if (key.compare(QLatin1String("DefaultEmulator"), Qt::CaseInsensitive) == 0) {
        const std::optional<QString> emulator = EmulatorName(state.Store, value);
        if (!emulator) {
            context.Err << "lumbra-cli: there is no emulator named " << value
                        << " ('emulators list' names them)\n";
            return ExitFailed;
        }
        value = *emulator;
    }
    if (SetSettingText(state.Options, key, value) != SettingChange::Done) {
        context.Err << "lumbra-cli: " << key << " takes "
                    << (key.compare(QLatin1String("MainForm"), Qt::CaseInsensitive) == 0
                            ? "five whole numbers: left;top;width;height;state"
                            : "a whole number from -32768 to 32767")
                    << ", not '" << arguments.at(2) << "'\n";
        return ExitFailed;
    }
    ExportSettings(state.Store, state.Options, state.Emulators, Store, QString());
    return ExitOk;
}

int RunEmulators(CliContext& context, const QStringList& arguments) {
    AppState& state = context.State;
    QStringList rest = arguments;
    const QString action = rest.isEmpty() ? QString() : rest.takeFirst();
    if (action == QLatin1String("detect"))
        return RunDetectEmulators(context, rest);
    if (action == QLatin1String("remove"))
        return RunRemoveFoundEmulator(context, rest);
    if (action == QLatin1String("list") && rest.isEmpty()) {
        LoadConfiguration(state);
        for (const EmulatorRecord& emulator : state.Emulators.Records) {
            const auto shown = [](const QString& text) {
                return text.isEmpty() ? QStringLiteral("(not set up)") : text;
            };
            context.Out << emulator.Name << "\n  folder:       " << shown(emulator.Folder)
                        << "\n  save folder:  " << shown(emulator.SaveFolder)
                        << "\n  profile:      " << emulator.DefaultProfile
                        << "\n  launch files: " << emulator.LaunchFiles << '\n';
        }
        ListFoundEmulators(context);
        return ExitOk;
    }
    EmulatorSettings settings;
    if (action != QLatin1String("set") || !settings.Take(rest) || rest.size() != 1)
        return UsageError(context,
                          QStringLiteral("usage: emulators list, emulators detect [--json], "
                                         "emulators remove NAME, or emulators set NAME "
                                         "[--folder DIR] [--save-folder DIR] "
                                         "[--profile NAME] [--command TEXT] "
                                         "[--state-folder DIR] [--screenshot-folder DIR]"));
    const QString& name = rest.first();
    if (settings.Profile && settings.Profile->contains(QLatin1Char(';'))) {
        context.Err << "lumbra-cli: " << *settings.Profile << ": a profile name cannot hold ';'\n";
        return ExitFailed;
    }
    StoreWriterLock lock(state.Store, StoreWriterLock::Holder::Command);
    if (!ClaimStore(context, lock))
        return ExitFailed;
    LoadConfiguration(state);
    const int index = state.Emulators.FindEmulatorIndex(name);
    if (index < 0)
        return SetFoundEmulator(context, name, settings);
    if (settings.Command || settings.StateFolder || settings.ScreenshotFolder)
        return UsageError(context, QStringLiteral("--command, --state-folder and "
                                                  "--screenshot-folder are for a found emulator"));

    // The store joins an emulator's folder, save folder and profile with ";".
    for (const std::optional<QString>& value : {settings.Folder, settings.SaveFolder}) {
        if (value && value->contains(QLatin1Char(';'))) {
            context.Err << "lumbra-cli: " << *value << ": an emulator's settings cannot hold ';'\n";
            return ExitFailed;
        }
    }
    EmulatorRecord& emulator = state.Emulators.Records[index];
    for (const auto& [value, field] :
         {std::pair{settings.Folder, &EmulatorRecord::Folder},
          std::pair{settings.SaveFolder, &EmulatorRecord::SaveFolder}}) {
        if (!value)
            continue;
        const std::optional<QString> stored = StoredFolder(context, *value);
        if (!stored)
            return ExitFailed;
        emulator.*field = *stored;
    }
    if (settings.Profile)
        emulator.DefaultProfile = *settings.Profile;
    ExportSettings(state.Store, state.Options, state.Emulators, Store, QString());
    return ExitOk;
}
