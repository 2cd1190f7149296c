#include "app/Startup.h"

#include "app/AppState.h"
#include "app/AppTitle.h"
#include "app/EventLog.h"

namespace {
const QString Store = QStringLiteral("reg");
}

bool IsDebugSwitch(const QStringList& arguments) {
    return arguments.join(QLatin1Char(' ')).toLower() == QLatin1String("/debug");
}

void LoadConfiguration(AppState& state) {
    DefineEmulators(state);
    ImportSettings(state, Store, QString());
    ImportGameFolders(state, Store, QString());
}

void SaveEverything(AppState& state) {
    LogEvent(QStringLiteral("\r\n=== Preparing to unload ") + AppTitle + QStringLiteral("==="));
    ExportSettings(state, Store, QString());
    ExportGameFolders(state, Store, QString());
    ExportGroupList(state, Store, QString());
    ExportGameList(state, Store, QString());
}
