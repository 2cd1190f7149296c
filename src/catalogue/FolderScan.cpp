#include "catalogue/FolderScan.h"

#include "app/AppState.h"
#include "app/EventLog.h"
#include "app/StringHelpers.h"
#include "launch/PathResolver.h"

#include <QDir>

namespace {

constexpr int SubscriptOutOfRange = 9;

// The folder as a file list shows it: without trailing separators, except for a root.
QString ListingFolder(const QString& folder) {
    QString path = TrimBlanks(folder);
    while (path.size() > 1 && EndsWithSeparator(path))
        path.chop(1);
    return path;
}

// The folder's game files, sorted by name, without hidden and system files.
QStringList ListGameFiles(const QString& folder) {
    const QString resolved = ResolvePath(folder);
    if (resolved.isEmpty())
        return {};
    QDir dir(resolved);
    dir.setNameFilters(GameFilePatterns.split(QLatin1Char(';')));
    dir.setFilter(QDir::Files);
    dir.setSorting(QDir::Name | QDir::IgnoreCase);
    return dir.entryList();
}

} // namespace

void GameList_ImportFileList(AppState& state, const QString& folder) {
    LogEvent(QStringLiteral("Importing files from: ") + folder + QStringLiteral("..."));

    const QString listingFolder = ListingFolder(folder);
    const QStringList files = ListGameFiles(listingFolder);
    const int folderIndex = state.GameFolders.FindGameFolderIndex(folder);
    if (folderIndex >= 0)
        state.GameFolders.Entries[folderIndex].RomCount = static_cast<qint16>(files.size());

    // The separator is appended unconditionally, so a root folder ends in two.
    const QString recordFolder = listingFolder.toLower() + QDir::separator();
    GameList& games = state.Games;
    for (const QString& file : files) {
        const int slot = games.FindGame(QStringLiteral("filename"), QString());
        if (slot < 0) {
            LogError(SubscriptOutOfRange, QStringLiteral("GameList_ImportFileList"));
            return;
        }
        GameRecord& record = games.Records[slot];
        record.Group = FixedGroup;
        record.Folder = recordFolder;
        record.Filename = file.toLower();
        record.Caption = record.Filename;
        record.Emulator = QStringLiteral("Default");
        record.Profile = QStringLiteral("Default");
        // Deliberately -1 (true), not the 1 that the settings dialog stores.
        if (state.Options.UseBaseFilenames == -1)
            record.Caption =
                record.Filename.left(InStrLast(record.Filename, QStringLiteral(".")) - 1);
    }
    LogEvent(QStringLiteral("Done."), true);
}
