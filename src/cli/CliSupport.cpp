#include "cli/CliSupport.h"

#include "app/Startup.h"
#include "base/Progress.h"
#include "catalogue/AppState.h"
#include "cli/CliLog.h"
#include "config/StoreWriterLock.h"

int UsageError(CliContext& context, const QString& message) {
    context.Err << "lumbra-cli: " << message << "\nTry 'lumbra-cli --help'.\n";
    return ExitUsage;
}

int Refused(CliContext& context) {
    context.Err << "lumbra-cli: " << context.Log.LastLine() << '\n';
    return ExitFailed;
}

bool TakeFlag(QStringList& arguments, const QString& flag) {
    return arguments.removeAll(flag) > 0;
}

bool TakeOption(QStringList& arguments, const QString& option, QString& value) {
    const int at = static_cast<int>(arguments.indexOf(option));
    if (at < 0)
        return true;
    if (at + 1 >= arguments.size())
        return false;
    value = arguments.at(at + 1);
    arguments.remove(at, 2);
    return true;
}

bool ClaimStore(CliContext& context, StoreWriterLock& lock) {
    if (lock.TryAcquire()) {
        context.State.Store.Reload();
        return true;
    }
    if (!lock.Failure().isEmpty()) {
        context.Err << "lumbra-cli: " << lock.Failure() << '\n';
        return false;
    }
    const QString process = lock.HolderProcessText();
    if (lock.HeldBy() == StoreWriterLock::Holder::Window)
        context.Err << "lumbra-cli: Lumbra is running" << process
                    << "; close it first, then try again: it would overwrite this change when "
                       "it closes.\n";
    else
        context.Err << "lumbra-cli: another lumbra-cli command" << process
                    << " is still changing the settings; try again when it has finished.\n";
    return false;
}

void LoadCatalogue(CliContext& context) {
    AppState& state = context.State;
    LoadConfiguration(state);
    ImportGroupList(state, Store, QString());
    Progress noProgress;
    const ScanReport report = RebuildGameList(state, noProgress);
    if (!report.IsComplete())
        context.Err << "lumbra-cli: " << report.Summary() << '\n';
}
