#include "catalogue/GroupList.h"

#include "base/EventLog.h"
#include "catalogue/AppState.h"
#include "catalogue/GameList.h"
#include "config/StorageTarget.h"

namespace {

const QString GroupListSection = QStringLiteral("Group List");

bool SameName(const QString& a, const QString& b) {
    return a.toLower() == b.toLower();
}

} // namespace

int GroupList::FindGroup(const QString& name) const {
    if (name == FixedGroup)
        return -1;
    for (int i = 0; i < Capacity; ++i) {
        if (SameName(Entries[i], name))
            return i;
    }
    return -1;
}

bool GroupList::AddGroup(const QString& name) {
    LogEvent(QStringLiteral("Attempting to add group: ") + name + QStringLiteral("..."));
    if (FindGroup(name) >= 0) {
        LogEvent(QStringLiteral("Already Exists!"), true);
        return false;
    }
    const int freeEntry = FindGroup(QString());
    if (SameName(name, FixedGroup) || freeEntry < 0) {
        LogEvent(
            QStringLiteral("GroupList is either full or the group to add is the Fixed Group."));
        return false;
    }
    Entries[freeEntry] = name;
    LogEvent(QStringLiteral("Success."), true);
    return true;
}

bool GroupList::RemoveGroup(const QString& name) {
    LogEvent(QStringLiteral("Attempting to remove group: ") + name + QStringLiteral("..."));
    const int index = FindGroup(name);
    if (index < 0) {
        // Said for any name that is not found, not only for an empty list.
        LogEvent(QStringLiteral("No Custom Groups Exist!"), true);
        return false;
    }
    Entries[index].clear();
    for (int j = index + 1; j < Capacity; ++j) {
        if (Entries[j].isEmpty())
            break;
        Entries[j - 1] = Entries[j];
        Entries[j].clear();
    }
    LogEvent(QStringLiteral("Success!"), true);
    return true;
}

int GroupList::Count() const {
    int count = 0;
    while (count < Capacity && !Entries[count].isEmpty())
        ++count;
    return count;
}

void UngroupGames(GameList& games, const QString& groupName) {
    for (GameRecord& record : games.Records) {
        if (record.Caption.isEmpty())
            break;
        if (SameName(record.Group, groupName))
            record.Group = FixedGroup;
    }
}

void ImportGroupList(AppState& state, const QString& target, const QString& fileName) {
    switch (ParseStorageTarget(target)) {
    case StorageTarget::Store:
        LogEvent(QStringLiteral("Importing GroupList from: Registry..."));
        for (int i = 0; i < GroupList::Capacity; ++i) {
            const QString name = state.Store.Read(GroupListSection, IndexKey(i));
            if (name.isEmpty())
                break;
            state.Groups.Entries[i] = name;
        }
        LogEvent(QStringLiteral("Done."), true);
        break;
    case StorageTarget::File:
        // The file form only reports itself; it reads no file.
        LogEvent(QStringLiteral("Importing GroupList from file: ") + fileName +
                 QStringLiteral("..."));
        break;
    case StorageTarget::None:
        break;
    }
}

void ExportGroupList(AppState& state, const QString& target, const QString& fileName) {
    switch (ParseStorageTarget(target)) {
    case StorageTarget::Store:
        LogEvent(QStringLiteral("Exporting GroupList to: Registry..."));
        // Rewritten from scratch, so a removed group leaves no stale key behind.
        state.Store.DeleteSection(GroupListSection);
        for (int i = 0; i < GroupList::Capacity && !state.Groups.Entries[i].isEmpty(); ++i)
            state.Store.Write(GroupListSection, IndexKey(i), state.Groups.Entries[i]);
        state.Store.Sync();
        LogEvent(QStringLiteral("Done."), true);
        break;
    case StorageTarget::File:
        // The file form only continues the current log line; it writes no file.
        LogEvent(QStringLiteral("Exporting GroupList to file: ") + fileName + QStringLiteral("..."),
                 true);
        break;
    case StorageTarget::None:
        break;
    }
}
