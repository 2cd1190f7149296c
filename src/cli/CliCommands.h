#pragma once

#include <QStringList>
#include <QTextStream>

struct AppState;
class CliLog;

// What every command works with: the state, the log, and the two output streams.
struct CliContext {
    AppState& State;
    CliLog& Log;
    QTextStream& Out;
    QTextStream& Err;
};

// Exit codes: 0 done, 1 refused or failed, 2 a usage error.
enum CliExit { ExitOk = 0, ExitFailed = 1, ExitUsage = 2 };

int RunInfo(CliContext& context, const QStringList& arguments);
int RunList(CliContext& context, const QStringList& arguments);
int RunScan(CliContext& context, const QStringList& arguments);
int RunFolders(CliContext& context, const QStringList& arguments);
int RunGroups(CliContext& context, const QStringList& arguments);
int RunConfig(CliContext& context, const QStringList& arguments);
int RunEmulators(CliContext& context, const QStringList& arguments);
int RunLaunch(CliContext& context, const QStringList& arguments);
int RunExport(CliContext& context, const QStringList& arguments);
int RunProfiles(CliContext& context, const QStringList& arguments);
int RunStates(CliContext& context, const QStringList& arguments);
