#include "app/Startup.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "cli/CliSupport.h"
#include "config/StoreWriterLock.h"
#include "platform/PathResolver.h"

#include <QDir>
#include <QFileInfo>
#include <tuple>

namespace {

// An existing folder as the store keeps it: absolute, with a trailing separator.
std::optional<QString> StoredFolder(CliContext& context, const QString& path) {
    const QString resolved = PathResolver().Resolve(path);
    if (resolved.isEmpty() || !QFileInfo(resolved).isDir()) {
        context.Err << "lumbra-cli: " << path << ": no such folder\n";
        return std::nullopt;
    }
    return AddBackslash(QDir::toNativeSeparators(QFileInfo(resolved).absoluteFilePath()));
}

} // namespace

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
    if (SetSettingText(state.Options, key, arguments.at(2)) != SettingChange::Done) {
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
        return ExitOk;
    }
    QString folder;
    QString saveFolder;
    QString profile;
    const bool hasFolder = rest.contains(QStringLiteral("--folder"));
    const bool hasSaveFolder = rest.contains(QStringLiteral("--save-folder"));
    const bool hasProfile = rest.contains(QStringLiteral("--profile"));
    if (action != QLatin1String("set") || !TakeOption(rest, QStringLiteral("--folder"), folder) ||
        !TakeOption(rest, QStringLiteral("--save-folder"), saveFolder) ||
        !TakeOption(rest, QStringLiteral("--profile"), profile) || rest.size() != 1)
        return UsageError(context,
                          QStringLiteral("usage: emulators list, or emulators set NAME "
                                         "[--folder DIR] [--save-folder DIR] [--profile NAME]"));

    // The store joins an emulator's folder, save folder and profile with ";".
    for (const QString& value : {folder, saveFolder, profile}) {
        if (value.contains(QLatin1Char(';'))) {
            context.Err << "lumbra-cli: " << value << ": an emulator's settings cannot hold ';'\n";
            return ExitFailed;
        }
    }
    StoreWriterLock lock(state.Store, StoreWriterLock::Holder::Command);
    if (!ClaimStore(context, lock))
        return ExitFailed;
    LoadConfiguration(state);
    const int index = state.Emulators.FindEmulatorIndex(rest.first());
    if (index < 0)
        return UsageError(context, QStringLiteral("no emulator named ") + rest.first() +
                                       QStringLiteral(" (Nlke, Snes9X or ZSnes)"));
    EmulatorRecord& emulator = state.Emulators.Records[index];
    for (const auto& [given, value, field] :
         {std::tuple{hasFolder, folder, &EmulatorRecord::Folder},
          std::tuple{hasSaveFolder, saveFolder, &EmulatorRecord::SaveFolder}}) {
        if (!given)
            continue;
        const std::optional<QString> stored = StoredFolder(context, value);
        if (!stored)
            return ExitFailed;
        emulator.*field = *stored;
    }
    if (hasProfile)
        emulator.DefaultProfile = profile;
    ExportSettings(state.Store, state.Options, state.Emulators, Store, QString());
    return ExitOk;
}
