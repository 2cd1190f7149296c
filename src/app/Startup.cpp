#include "app/Startup.h"

#include "base/AppTitle.h"
#include "base/EventLog.h"
#include "base/Prompts.h"
#include "catalogue/AppState.h"
#include "config/StoreWriterLock.h"

namespace {
const QString Store = QStringLiteral("reg");
} // namespace

bool IsDebugSwitch(const QStringList& arguments) {
    return arguments.join(QLatin1Char(' ')).toLower() == QLatin1String("/debug");
}

void LoadConfiguration(AppState& state) {
    DefineEmulators(state.Emulators, state.Store);
    ImportSettings(state.Store, state.Options, state.Emulators, Store, QString());
    ImportGameFolders(state.Store, state.GameFolders, Store, QString());
}

void SaveEverything(AppState& state) {
    LogEvent(QStringLiteral("\r\n=== Preparing to unload ") + AppTitle + QStringLiteral("==="));
    const SettingsStore::Batch oneWrite(state.Store);
    ExportSettings(state.Store, state.Options, state.Emulators, Store, QString());
    ExportGameFolders(state.Store, state.GameFolders, Store, QString());
    ExportGroupList(state, Store, QString());
    ExportGameList(state, Store, QString());
}

bool ClaimStoreForWindow(StoreWriterLock& lock, Prompts& prompts) {
    if (lock.TryAcquire())
        return true;
    if (!lock.Failure().isEmpty()) {
        prompts.Message(lock.Failure(), PromptButtons::Ok, PromptIcon::Critical);
        return false;
    }
    const QString process = lock.HolderProcessText();
    if (lock.HeldBy() == StoreWriterLock::Holder::Window)
        prompts.Message(AppTitle + QStringLiteral(" is already running") + process +
                            QStringLiteral(". Switch to its window: a second copy would "
                                           "overwrite its changes when it closes."),
                        PromptButtons::Ok, PromptIcon::Exclamation);
    else
        prompts.Message(QStringLiteral("A lumbra-cli command") + process +
                            QStringLiteral(" is still changing the settings. Start ") + AppTitle +
                            QStringLiteral(" again when it has finished."),
                        PromptButtons::Ok, PromptIcon::Exclamation);
    return false;
}
