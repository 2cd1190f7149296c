#include "snapshots/SnapshotCommands.h"

#include "base/PictureTypes.h"
#include "base/Prompts.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "platform/PathResolver.h"
#include "platform/SystemShell.h"
#include "snapshots/ImageFiles.h"

#include <QDir>

namespace {

const QString& SnapshotFolder(AppState& state) {
    state.Options.SnapshotFolder = AddBackslash(state.Options.SnapshotFolder);
    return state.Options.SnapshotFolder;
}

QString BaseName(const QString& fileName) {
    const int dot = InStrLast(fileName, QStringLiteral("."));
    return dot > 0 ? fileName.left(dot - 1) : fileName;
}

// The candidates in the order of the picture types, up to the first that exists;
// that one (or, when none exists, the last candidate) comes last.
QStringList SnapshotProbe(const QString& folder, const QString& gameFile) {
    PathResolver resolver;
    QStringList candidates;
    for (const PictureType& type : FillPictureTypes()) {
        candidates.append(folder + ChangeExtension(gameFile, type.Extension));
        if (resolver.Exists(candidates.last()))
            break;
    }
    return candidates;
}

QString PictureFilter() {
    QStringList patterns;
    QString perType;
    for (const PictureType& type : FillPictureTypes()) {
        patterns.append(QStringLiteral("*.") + type.Extension);
        perType += QLatin1Char('|') + type.Description + QStringLiteral("|*.") + type.Extension;
    }
    return QStringLiteral("All Supported Formats|") + patterns.join(QLatin1Char(';')) + perType;
}

bool SameFolder(const QString& a, const QString& b) {
    return QDir::cleanPath(QDir::fromNativeSeparators(a)).toLower() ==
           QDir::cleanPath(QDir::fromNativeSeparators(b)).toLower();
}

// The picked file is the game's own snapshot already.
bool IsGameSnapshot(const QString& picked, const QString& folder, const QString& gameFile) {
    return SameFolder(picked.left(InStrLastSeparator(picked)), folder) &&
           BaseName(GetFileName(picked)).toLower() == BaseName(gameFile).toLower();
}

void ExplainSameSource(Prompts& prompts) {
    prompts.Message(
        QStringLiteral(
            "REASON: The snapshot you picked is already used by the selected game.\r\n\r\n"
            "If your sure the snapshot you chose is not being displayed it may be because you "
            "have multiple snapshot files for the selected game in the snapshot folder. (for "
            "example 'ff3.bmp' and 'ff3.gif')\r\n\r\n"
            "SOLUTION: Look through the images in the snapshot folder and delete any images the "
            "have the same base filename (filename without extension) and delete the ones you "
            "don't want used."),
        PromptButtons::Ok, PromptIcon::None,
        QStringLiteral("Can't Change Snapshot, Source appears to match target"));
}

} // namespace

void ChangeSnapshot(AppState& state, Prompts& prompts, SystemShell& shell,
                    const QString& gameFile) {
    const QString folder = SnapshotFolder(state);
    const std::optional<QString> picked =
        prompts.OpenFile(QStringLiteral("Pick New Snapshot"), PictureFilter());
    if (!picked || picked->isEmpty())
        return;
    if (IsGameSnapshot(*picked, folder, gameFile)) {
        ExplainSameSource(prompts);
        return;
    }
    const PromptAnswer answer = prompts.Message(
        QStringLiteral("Warning, replacing the snapshot with the one you have chosen will "
                       "permanently delete all previous snapshots for this game.\r\n\r\n"
                       "Are you sure you want to replace it?"),
        PromptButtons::YesNo, PromptIcon::Exclamation, QStringLiteral("Warning"));
    if (answer != PromptAnswer::Yes)
        return;
    // The last three letters, even of a longer extension that the player typed.
    const QString target = folder + ChangeExtension(gameFile, picked->right(3));
    for (const PictureType& type : FillPictureTypes())
        RemoveImage(ChangeExtension(target, type.Extension)); // absent ones are passed over
    QDir().mkpath(folder); // the default folder is made when first written to
    shell.ShellCopyFile(*picked, target);
}

void OpenSnapshot(AppState& state, Prompts& prompts, SystemShell& shell, const QString& gameFile) {
    const QString snapshot = ResolvePath(SnapshotProbe(SnapshotFolder(state), gameFile).last());
    if (snapshot.isEmpty())
        prompts.Message(QStringLiteral("Cannot open snapshot, none exist."), PromptButtons::Ok,
                        PromptIcon::Information);
    else
        shell.OpenDocument(snapshot);
}

void RemoveSnapshot(AppState& state, SystemShell& shell, const QString& gameFile) {
    shell.ShellDeleteFile(SnapshotProbe(SnapshotFolder(state), gameFile).last());
}
