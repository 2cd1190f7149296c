#include "savestates/SaveStateMenu.h"

#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "platform/PathResolver.h"
#include "platform/ShortPath.h"
#include "platform/SystemShell.h"

#include <utility>

namespace {

QString UpToLastDot(const QString& name) {
    const int dot = InStrLast(name, QStringLiteral("."));
    return dot > 0 ? name.left(dot - 1) : name;
}

// The short and the long base name of the game's files.
std::pair<QString, QString> BaseNames(const GameRecord& game) {
    if (!game.ExtractedShortName.isEmpty() || !game.ExtractedFile.isEmpty())
        return {UpToLastDot(game.ExtractedShortName), UpToLastDot(game.ExtractedFile)};
    const QString shortPath = GetShortPath(AddBackslash(game.Folder) + game.Filename);
    return {UpToLastDot(GetFileName(shortPath)), UpToLastDot(game.Filename)};
}

// The extension of a slot's file: Nlke ".sg0", Snes9X ".000", ZSnes ".zst", ".zs1".
QString StateExtension(int emulator, int slot) {
    static const std::array<QLatin1String, EmulatorTable::Count> Stems = {
        QLatin1String(".sg"), QLatin1String(".00"), QLatin1String(".zs")};
    if (emulator == 2 && slot == 0)
        return QStringLiteral(".zst");
    return Stems[emulator] + QString::number(slot);
}

} // namespace

int SaveStateSlots(int emulator) {
    return emulator == 0 ? 3 : 10;
}

SaveStateMenu EmptySaveStateMenu() {
    SaveStateMenu menu;
    for (int emulator = 0; emulator < EmulatorTable::Count; ++emulator) {
        menu[emulator].Sram = {QStringLiteral("No SRAM File"), false, QString()};
        for (int slot = 0; slot < SaveStateSlots(emulator); ++slot)
            menu[emulator].States.append(
                {QStringLiteral("(%1) Empty").arg(slot), false, QString()});
    }
    return menu;
}

SaveStateMenu BuildSaveStateMenu(AppState& state, int gameIndex) {
    SaveStateMenu menu = EmptySaveStateMenu();
    // Named variables, not a structured binding: the probe below captures them, and
    // clang before 16 refuses to capture a structured binding.
    const std::pair<QString, QString> baseNames = BaseNames(state.Games.Records[gameIndex]);
    const QString& shortBase = baseNames.first;
    const QString& longBase = baseNames.second;
    PathResolver resolver; // one listing of each save folder for the whole menu
    for (int emulator = 0; emulator < EmulatorTable::Count; ++emulator) {
        const int index = state.Emulators.FindEmulatorIndex(EmulatorTable::Names[emulator]);
        if (index < 0 || state.Emulators.Records[index].SaveFolder.isEmpty())
            continue;
        QString& folder = state.Emulators.Records[index].SaveFolder;
        folder = AddBackslash(folder);
        const auto probe = [&](const QString& extension, SaveStateItem& item,
                               const QString& usedCaption) {
            // The tag names the file that is there: on this system a short base is
            // often no file at all.
            for (const QString& base : {shortBase, longBase}) {
                if (resolver.Exists(folder + base + extension)) {
                    item = {usedCaption, true, folder + base + extension};
                    return;
                }
            }
        };
        probe(QStringLiteral(".srm"), menu[emulator].Sram, QStringLiteral("SRAM File"));
        for (int slot = 0; slot < SaveStateSlots(emulator); ++slot)
            probe(StateExtension(emulator, slot), menu[emulator].States[slot],
                  QStringLiteral("(%1) Used").arg(slot));
    }
    return menu;
}

void SaveStateItemClick(const AppState& state, SystemShell& shell, const SaveStateItem& item) {
    if (state.Options.StateClickDeletes != 0 && item.Enabled)
        shell.ShellDeleteFile(item.Tag);
}
