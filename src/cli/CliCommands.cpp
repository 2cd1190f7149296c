#include "cli/CliCommands.h"

#include "app/Startup.h"
#include "base/Progress.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "catalogue/GameFolderCommands.h"
#include "catalogue/GameListing.h"
#include "catalogue/GroupViews.h"
#include "catalogue/PlayOrder.h"
#include "cli/CliLog.h"
#include "cli/CliPrompts.h"
#include "cli/CliSupport.h"
#include "cli/JsonLine.h"
#include "config/StoreWriterLock.h"
#include "platform/PathResolver.h"
#include "rom/ArchivedGame.h"
#include "rom/GameImage.h"
#include "rom/RomCaption.h"
#include "rom/RomInfo.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <optional>

namespace {

// The header texts in the JSON order, with the game information dialog's labels
// (padded so that the values line up) for the text form.
struct HeaderEntry {
    const char* Key;
    const char* Label;
    RomInfoField Field;
};
constexpr HeaderEntry HeaderEntries[] = {{"InternalTitle", "Title:     ", InternalTitle},
                                         {"RomSpeed", "ROM Speed: ", RomSpeed},
                                         {"BankSize", "Bank Size: ", BankSize},
                                         {"RomType", "ROM Type:  ", RomType},
                                         {"RomSize", "ROM Size:  ", RomSize},
                                         {"SramSize", "SRAM Size: ", SramSize},
                                         {"Country", "Country:   ", Country},
                                         {"License", "License:   ", License},
                                         {"GameVersion", "Version:   ", GameVersion},
                                         {"InverseChecksum", "Complement:", InverseChecksum},
                                         {"Checksum", "Checksum:  ", Checksum}};

// Key, label and value of every text that info prints for a file.
struct InfoLine {
    QString Key;
    QString Label;
    QString Value;
};

// The header comes from the zipped game when there is one; the caption is always the
// file's own, as the game list shows it.
QList<InfoLine> HeaderInfo(const QString& file, const std::optional<ArchivedGame>& zipped,
                           const AppState& state) {
    clsRomInfo info;
    QList<InfoLine> lines{{QStringLiteral("file"), QStringLiteral("File:      "), file}};
    if (zipped) {
        QBuffer image;
        image.setData(zipped->Bytes);
        image.open(QIODevice::ReadOnly);
        info.ReadROM(image);
        lines.append({QStringLiteral("game"), QStringLiteral("Game:      "), zipped->Name});
    } else {
        info.ReadROM(file);
    }
    for (const HeaderEntry& entry : HeaderEntries)
        lines.append(
            {QLatin1String(entry.Key), QLatin1String(entry.Label), info.GameData(entry.Field)});
    PathResolver resolver;
    lines.append({QStringLiteral("Caption"), QStringLiteral("Caption:   "),
                  GetRomCaption(file, state.Options.UseBaseFilenames, resolver)});
    return lines;
}

QList<std::pair<QString, QString>> RecordFields(const GameRecord& record) {
    return {{QStringLiteral("Caption"), record.Caption},
            {QStringLiteral("Filename"), record.Filename},
            {QStringLiteral("ExtractedShortName"), record.ExtractedShortName},
            {QStringLiteral("ExtractedFile"), record.ExtractedFile},
            {QStringLiteral("Folder"), record.Folder},
            {QStringLiteral("Group"), record.Group},
            {QStringLiteral("Emulator"), record.Emulator},
            {QStringLiteral("Profile"), record.Profile}};
}

// As the settings dialog's "Add...": the folder is added and scanned into the catalogue,
// and both are stored as the window's close would store them.
int AddFolder(CliContext& context, const QString& path) {
    const QString resolved = PathResolver().Resolve(path);
    if (resolved.isEmpty() || !QFileInfo(resolved).isDir()) {
        context.Err << "lumbra-cli: " << path << ": no such folder\n";
        return ExitFailed;
    }
    const QString folder =
        AddBackslash(QDir::toNativeSeparators(QFileInfo(resolved).absoluteFilePath()));
    AppState& state = context.State;
    LoadCatalogue(context);
    Progress noProgress;
    const FolderAddResult added = AddGameFolderAndScan(state, folder, noProgress);
    if (added.Result == FolderAddResult::Refused)
        return Refused(context);
    if (added.Result == FolderAddResult::LostAfterAdd) {
        context.Err << "lumbra-cli: An unexpected error accured! " << folder << " was added but "
                    << "is not in the list\n";
        return ExitFailed;
    }
    const SettingsStore::Batch oneWrite(state.Store);
    ExportGameFolders(state.Store, state.GameFolders, Store, QString());
    ExportGameList(state, Store, QString());
    const int games = state.GameFolders.Entries[added.Index].RomCount;
    context.Out << "Added " << folder << ": " << games << (games == 1 ? " game" : " games")
                << " found.\n";
    if (!added.Report.IsComplete())
        context.Err << "lumbra-cli: " << added.Report.Summary() << '\n';
    return ExitOk;
}

} // namespace

int RunInfo(CliContext& context, const QStringList& arguments) {
    QStringList files = arguments;
    const bool json = TakeFlag(files, QStringLiteral("--json"));
    if (files.isEmpty())
        return UsageError(context, QStringLiteral("info needs at least one FILE"));
    ImportSettings(context.State.Store, context.State.Options, context.State.Emulators, Store,
                   QString());
    int exitCode = ExitOk;
    bool first = true;
    for (const QString& file : files) {
        const QString resolved = PathResolver().Resolve(file);
        if (resolved.isEmpty() || !QFileInfo(resolved).isFile()) {
            context.Err << "lumbra-cli: " << file << ": no such file\n";
            exitCode = ExitFailed;
            continue;
        }
        QFile readable(resolved);
        if (!readable.open(QIODevice::ReadOnly)) {
            context.Err << "lumbra-cli: " << file << ": " << readable.errorString() << '\n';
            exitCode = ExitFailed;
            continue;
        }
        // A zip's game is read into memory: the unzip folder, whose game may be playing,
        // is never touched.
        std::optional<ArchivedGame> zipped;
        if (IsZippedGame(resolved)) {
            zipped = ReadArchivedGame(resolved, true);
            if (!zipped) {
                context.Err << "lumbra-cli: " << file << ": the archive holds no SNES game\n";
                exitCode = ExitFailed;
                continue;
            }
        }
        const QList<InfoLine> lines = HeaderInfo(file, zipped, context.State);
        if (json) {
            QList<std::pair<QString, QString>> fields;
            for (const InfoLine& line : lines)
                fields.append({line.Key, line.Value});
            context.Out << JsonLine(fields) << '\n';
        } else {
            if (!first)
                context.Out << '\n';
            for (const InfoLine& line : lines)
                context.Out << line.Label << ' ' << ReplaceControlCharacters(line.Value) << '\n';
        }
        first = false;
    }
    return exitCode;
}

int RunList(CliContext& context, const QStringList& arguments) {
    QStringList rest = arguments;
    const bool json = TakeFlag(rest, QStringLiteral("--json"));
    const bool chosen = rest.contains(QStringLiteral("--group")) ||
                        rest.contains(QStringLiteral("--filter")) ||
                        rest.contains(QStringLiteral("--sort"));
    QString group;
    if (!TakeOption(rest, QStringLiteral("--group"), group))
        return UsageError(context, QStringLiteral("--group needs a NAME"));
    QString typed;
    if (!TakeOption(rest, QStringLiteral("--filter"), typed))
        return UsageError(context, QStringLiteral("--filter needs WORDS"));
    QString sortName;
    PlayOrder order = PlayOrder::LastPlayed;
    if (!TakeOption(rest, QStringLiteral("--sort"), sortName) ||
        (!sortName.isNull() && !PlayOrderFromName(sortName, order)))
        return UsageError(context,
                          QStringLiteral("--sort takes last-played, play-count or play-time"));
    if (!rest.isEmpty())
        return UsageError(context, QStringLiteral("unexpected argument: ") + rest.first());

    AppState& state = context.State;
    LoadCatalogue(context);
    if (json && !chosen) {
        for (const GameRecord& record : state.Games.Records) {
            if (record.Filename.isEmpty())
                break;
            context.Out << JsonLine(RecordFields(record)) << '\n';
        }
        return ExitOk;
    }
    if (group.isEmpty()) {
        group = state.Options.DefaultGroup;
        if (!ViewExists(state.Groups, group))
            group = FixedGroup;
    } else if (!ViewExists(state.Groups, group)) {
        context.Err << "lumbra-cli: there is no group named " << group << '\n';
        return ExitFailed;
    }
    QList<GameLine> lines = ListGames(state.Games, group, typed);
    if (!sortName.isNull())
        SortByPlay(state.Store, state.Games, order, lines);
    for (const GameLine& line : lines) {
        if (json)
            context.Out << JsonLine(RecordFields(state.Games.Records[line.Index])) << '\n';
        else
            context.Out << line.Caption << '\n';
    }
    return ExitOk;
}

int RunScan(CliContext& context, const QStringList& arguments) {
    if (!arguments.isEmpty())
        return UsageError(context, QStringLiteral("unexpected argument: ") + arguments.first());
    AppState& state = context.State;
    StoreWriterLock lock(state.Store, StoreWriterLock::Holder::Command);
    if (!ClaimStore(context, lock))
        return ExitFailed;
    LoadCatalogue(context);
    ExportGameList(state, Store, QString());
    const auto counted = [](int count, const char* noun) {
        QString text = QString::number(count) + QLatin1Char(' ') + QLatin1String(noun);
        if (count != 1)
            text += QLatin1Char('s');
        return text;
    };
    context.Out << "Scanned " << counted(state.Games.Count(), "game") << " in "
                << counted(state.GameFolders.Count(), "folder") << ".\n";
    return ExitOk;
}

int RunFolders(CliContext& context, const QStringList& arguments) {
    AppState& state = context.State;
    const QString action = arguments.value(0);
    if (action == QLatin1String("list") && arguments.size() == 1) {
        ImportGameFolders(state.Store, state.GameFolders, Store, QString());
        for (const GameFolder& folder : state.GameFolders.Entries) {
            if (folder.Path.isEmpty())
                break;
            context.Out << folder.Path << '\n';
        }
        return ExitOk;
    }
    if ((action != QLatin1String("add") && action != QLatin1String("remove")) ||
        arguments.size() != 2)
        return UsageError(context,
                          QStringLiteral("usage: folders add|remove PATH, or folders list"));

    StoreWriterLock lock(state.Store, StoreWriterLock::Holder::Command);
    if (!ClaimStore(context, lock))
        return ExitFailed;
    if (action == QLatin1String("add"))
        return AddFolder(context, arguments.at(1));
    ImportGameFolders(state.Store, state.GameFolders, Store, QString());
    QString path = arguments.at(1);
    if (QFileInfo(path).isRelative())
        path = QFileInfo(path).absoluteFilePath();
    if (!state.GameFolders.RemoveGameFolder(path))
        return Refused(context);
    ExportGameFolders(state.Store, state.GameFolders, Store, QString());
    return ExitOk;
}

int RunGroups(CliContext& context, const QStringList& arguments) {
    AppState& state = context.State;
    const QString action = arguments.value(0);
    if (action == QLatin1String("list") && arguments.size() == 1) {
        ImportGroupList(state, Store, QString());
        context.Out << FixedGroup << '\n';
        for (const QString& group : state.Groups.Entries) {
            if (group.isEmpty())
                break;
            context.Out << group << '\n';
        }
        return ExitOk;
    }
    if ((action != QLatin1String("add") && action != QLatin1String("remove")) ||
        arguments.size() != 2)
        return UsageError(context, QStringLiteral("usage: groups add|remove NAME, or groups list"));
    StoreWriterLock lock(state.Store, StoreWriterLock::Holder::Command);
    if (!ClaimStore(context, lock))
        return ExitFailed;
    ImportGroupList(state, Store, QString());
    if (action == QLatin1String("add") && IsAllGamesView(arguments.at(1))) {
        CliPrompts prompts(context.Err); // the refusal is told as the window tells it
        AddPlayerGroup(state.Groups, prompts, arguments.at(1));
        return ExitFailed;
    }
    const bool changed = action == QLatin1String("add") ? state.Groups.AddGroup(arguments.at(1))
                                                        : state.Groups.RemoveGroup(arguments.at(1));
    if (!changed)
        return Refused(context);
    ExportGroupList(state, Store, QString());
    return ExitOk;
}
