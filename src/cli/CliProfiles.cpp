#include "catalogue/AppState.h"
#include "cli/CliCommands.h"
#include "cli/CliLog.h"
#include "cli/CliSupport.h"
#include "config/Profiles.h"
#include "config/StoreWriterLock.h"
#include "emulators/FoundEmulators.h"

namespace {

// Every emulator's name: Lumbra's own three, then the found ones.
QStringList AllEmulatorNames(const SettingsStore& store) {
    QStringList names;
    for (const QLatin1String name : EmulatorTable::Names)
        names.append(name);
    for (const FoundEmulator& emulator : ReadFoundEmulators(store))
        names.append(emulator.Name);
    return names;
}

void ListProfiles(CliContext& context, const QString& emulator, bool withName) {
    const QList<std::pair<QString, QString>> profiles =
        context.State.Store.ListSection(ProfileSection(emulator));
    if (withName && !profiles.isEmpty())
        context.Out << emulator << '\n';
    for (const auto& [name, options] : profiles)
        context.Out << (withName ? "  " : "") << name << '=' << options << '\n';
}

} // namespace

int RunProfiles(CliContext& context, const QStringList& arguments) {
    SettingsStore& store = context.State.Store;
    const QString action = arguments.value(0);
    const bool listing = action == QLatin1String("list") && arguments.size() <= 2;
    const bool setting = action == QLatin1String("set") && arguments.size() == 4;
    const bool removing = action == QLatin1String("remove") && arguments.size() == 3;
    if (!listing && !setting && !removing)
        return UsageError(context, QStringLiteral("usage: profiles list [EMULATOR], profiles set "
                                                  "EMULATOR PROFILE \"OPTION TEXT\", or profiles "
                                                  "remove EMULATOR PROFILE"));
    if (listing && arguments.size() == 1) {
        for (const QString& emulator : AllEmulatorNames(store))
            ListProfiles(context, emulator, true);
        return ExitOk;
    }
    const std::optional<QString> emulator = EmulatorName(store, arguments.at(1));
    if (!emulator) {
        context.Err << "lumbra-cli: there is no emulator named " << arguments.at(1)
                    << " ('emulators list' names them)\n";
        return ExitFailed;
    }
    if (listing) {
        ListProfiles(context, *emulator, false);
        return ExitOk;
    }

    const QString profile = arguments.at(2).trimmed();
    // A game's record joins its profile's name to its other fields with ";".
    if (profile.isEmpty() || profile.contains(QLatin1Char(';'))) {
        context.Err << "lumbra-cli: a profile needs a name without ';'\n";
        return ExitFailed;
    }
    StoreWriterLock lock(store, StoreWriterLock::Holder::Command);
    if (!ClaimStore(context, lock))
        return ExitFailed;
    if (setting) {
        WriteProfile(store, *emulator, profile, arguments.at(3));
        return ExitOk;
    }
    if (RemoveProfile(store, *emulator, profile))
        return ExitOk;
    context.Err << "lumbra-cli: " << *emulator << " has no profile named " << profile << '\n';
    return ExitFailed;
}
