#include "cli/CliSupport.h"

#include "app/Startup.h"
#include "base/Progress.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "cli/CliLog.h"
#include "config/StoreWriterLock.h"
#include "platform/PathResolver.h"

#include <QDir>
#include <QFileInfo>

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
    if (lock.TryAcquire())
        return true;
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

std::optional<QString> StoredFolder(CliContext& context, const QString& path) {
    const QString resolved = PathResolver().Resolve(path);
    if (resolved.isEmpty() || !QFileInfo(resolved).isDir()) {
        context.Err << "lumbra-cli: " << path << ": no such folder\n";
        return std::nullopt;
    }
    return AddBackslash(QDir::toNativeSeparators(QFileInfo(resolved).absoluteFilePath()));
}

std::optional<GameChoice> TakeGameChoice(QStringList& arguments) {
    GameChoice choice;
    if (!TakeOption(arguments, QStringLiteral("--index"), choice.IndexText) ||
        arguments.size() != (choice.IndexText.isEmpty() ? 1 : 0))
        return std::nullopt;
    if (choice.IndexText.isEmpty())
        choice.Caption = arguments.takeFirst();
    return choice;
}

std::optional<int> FindChosenGame(CliContext& context, const GameChoice& choice) {
    const GameList& games = context.State.Games;
    bool isNumber = true;
    const int index = choice.IndexText.isEmpty()
                          ? games.FindGame(QStringLiteral("title"), choice.Caption)
                          : choice.IndexText.toInt(&isNumber);
    if (isNumber && index >= 0 && index < games.Count())
        return index;
    context.Err << "lumbra-cli: there is no game "
                << (choice.IndexText.isEmpty() ? QStringLiteral("captioned ") + choice.Caption
                                               : QStringLiteral("at index ") + choice.IndexText)
                << '\n';
    return std::nullopt;
}
