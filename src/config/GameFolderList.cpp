#include "config/GameFolderList.h"

#include "base/EventLog.h"
#include "base/StringHelpers.h"
#include "config/SettingsStore.h"
#include "config/StorageTarget.h"

#include <QDir>

namespace {

const QString GameFoldersSection = QStringLiteral("Folders\\Game Folders");

} // namespace

int GameFolderList::FindGameFolderIndex(const QString& path) const {
    QString searched = path.toLower();
    if (!searched.isEmpty() && !EndsWithSeparator(searched))
        searched += QDir::separator();
    for (int index = 0; index < Capacity; ++index) {
        if (Entries[index].Path.toLower() == searched)
            return index;
    }
    return -1;
}

bool GameFolderList::AddGameFolder(const QString& path) {
    LogEvent(QStringLiteral("Attempting to add game folder: ") + path + QStringLiteral("..."));
    if (FindGameFolderIndex(path) >= 0) {
        LogEvent(QStringLiteral("Already Exists!"), true);
        return false;
    }
    const int freeIndex = FindGameFolderIndex(QString());
    if (freeIndex < 0) {
        LogEvent(QStringLiteral("The maximum number of game folders has been defined."), true);
        return false;
    }
    Entries[freeIndex].Path = path;
    LogEvent(QStringLiteral("Success!"), true);
    return true;
}

bool GameFolderList::RemoveGameFolder(const QString& path) {
    LogEvent(QStringLiteral("Attempting to remove game folder: ") + path + QStringLiteral("..."));
    const int index = FindGameFolderIndex(path);
    if (index < 0) {
        LogEvent(QStringLiteral("No game folders have been defined!"), true);
        return false;
    }
    // Only the paths move up; each ROM count stays at its index until the next scan.
    Entries[index].Path.clear();
    for (int next = index + 1; next < Capacity && !Entries[next].Path.isEmpty(); ++next) {
        Entries[next - 1].Path = Entries[next].Path;
        Entries[next].Path.clear();
    }
    LogEvent(QStringLiteral("Success!"), true);
    return true;
}

int GameFolderList::Count() const {
    int count = 0;
    while (count < Capacity && !Entries[count].Path.isEmpty())
        ++count;
    return count;
}

void ExportGameFolders(SettingsStore& store, const GameFolderList& folders, const QString& target,
                       const QString& path) {
    switch (ParseStorageTarget(target)) {
    case StorageTarget::None:
        return;
    case StorageTarget::File:
        LogEvent(QStringLiteral("Exporting Game Folder List to file: ") + path);
        return;
    case StorageTarget::Store:
        break;
    }

    LogEvent(QStringLiteral("Exporting Game Folder list to: Registry..."));
    // Rewriting the whole section drops the keys of removed folders.
    store.DeleteSection(GameFoldersSection);
    for (int index = 0; index < GameFolderList::Capacity; ++index) {
        const QString& folder = folders.Entries[index].Path;
        if (folder.isEmpty())
            break;
        store.Write(GameFoldersSection, IndexKey(index), folder);
    }
    store.Sync();
    LogEvent(QStringLiteral("Done."), true);
}

void ImportGameFolders(const SettingsStore& store, GameFolderList& folders, const QString& target,
                       const QString& path) {
    switch (ParseStorageTarget(target)) {
    case StorageTarget::None:
        return;
    case StorageTarget::File:
        LogEvent(QStringLiteral("Importing Game Folders from file: ") + path);
        return;
    case StorageTarget::Store:
        break;
    }

    LogEvent(QStringLiteral("Importing Game Folders from: Registry..."));
    // Entries after the last one read keep what they held.
    for (int index = 0; index < GameFolderList::Capacity; ++index) {
        const QString folder = store.Read(GameFoldersSection, IndexKey(index));
        if (folder.isEmpty())
            break;
        folders.Entries[index].Path = folder;
    }
    LogEvent(QStringLiteral("Done."), true);
}
