#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "cli/CliCommands.h"
#include "cli/CliFoundEmulators.h"
#include "cli/CliSupport.h"
#include "cli/JsonLine.h"
#include "emulators/FoundEmulatorTable.h"
#include "platform/PathResolver.h"
#include "savestates/SaveStateMenu.h"
#include "snapshots/Snapshot.h"

#include <QFileInfo>

namespace {

// The files of Lumbra's own three emulators, as the save-state menu finds them.
QList<SavedGameFile> DesignEmulatorFiles(AppState& state, int index) {
    QList<SavedGameFile> files;
    const SaveStateMenu menu = BuildSaveStateMenu(state, index);
    for (int emulator = 0; emulator < EmulatorTable::Count; ++emulator) {
        const QString name = EmulatorTable::Names[emulator];
        for (qsizetype slot = 0; slot < menu[emulator].States.size(); ++slot) {
            const SaveStateItem& item = menu[emulator].States[slot];
            if (item.Enabled)
                files.append({name, QStringLiteral("state"), int(slot), item.Tag});
        }
        if (menu[emulator].Sram.Enabled)
            files.append({name, QStringLiteral("battery save"), -1, menu[emulator].Sram.Tag});
    }
    return files;
}

} // namespace

int RunStates(CliContext& context, const QStringList& arguments) {
    QStringList rest = arguments;
    const bool json = TakeFlag(rest, QStringLiteral("--json"));
    const std::optional<GameChoice> choice = TakeGameChoice(rest);
    if (!choice)
        return UsageError(context,
                          QStringLiteral("usage: states [--json] --index N, or states [--json] "
                                         "CAPTION"));
    AppState& state = context.State;
    LoadCatalogue(context);
    const std::optional<int> index = FindChosenGame(context, *choice);
    if (!index)
        return ExitFailed;
    const GameRecord& game = state.Games.Records[*index];

    QList<SavedGameFile> files;
    const std::optional<QString> snapshot =
        FindSnapshot(game.Filename, state.Options.SnapshotFolder);
    // The snapshot's short path, a link, is shown as the file it names.
    if (snapshot && !snapshot->isEmpty())
        files.append(
            {QString(), QStringLiteral("snapshot"), -1, QFileInfo(*snapshot).canonicalFilePath()});
    files += DesignEmulatorFiles(state, *index);
    const QString gamePath =
        PathResolver().ResolveOrKeep(AddBackslash(game.Folder) + game.Filename);
    const FoundEmulatorTable found(state.Store, ReadEmulatorCatalogue(context));
    files += found.SavedFiles(gamePath);

    QString emulator;
    for (const SavedGameFile& file : files) {
        const QString slot = file.Slot >= 0 ? QString::number(file.Slot) : QString();
        if (json) {
            context.Out << JsonLine({{QStringLiteral("emulator"), file.Emulator},
                                     {QStringLiteral("kind"), file.Kind},
                                     {QStringLiteral("slot"), slot},
                                     {QStringLiteral("path"), file.Path}})
                        << '\n';
            continue;
        }
        if (file.Emulator.isEmpty()) {
            context.Out << "Snapshot: " << file.Path << '\n';
            continue;
        }
        if (file.Emulator != emulator)
            context.Out << file.Emulator << '\n';
        emulator = file.Emulator;
        const QString label = file.Kind + (slot.isEmpty() ? QString() : QLatin1Char(' ') + slot);
        context.Out << "  " << QString(label + QLatin1Char(':')).leftJustified(15) << file.Path
                    << '\n';
    }
    return ExitOk;
}
