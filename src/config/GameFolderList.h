#pragma once

#include <QString>
#include <QtGlobal>
#include <array>

class SettingsStore;

struct GameFolder {
    QString Path;
    qint16 RomCount = 0; // files the last scan listed there; not stored
};

// The player's game folders: 100 entries, packed from index 0; an empty path ends the list.
class GameFolderList {
public:
    static constexpr int Capacity = 100;

    // Index of the entry holding path (compared in lower case, with a trailing
    // separator added), or -1. An empty path finds the first free entry.
    int FindGameFolderIndex(const QString& path) const;
    bool AddGameFolder(const QString& path);
    bool RemoveGameFolder(const QString& path);
    int Count() const;

    std::array<GameFolder, Capacity> Entries;
};

void ImportGameFolders(const SettingsStore& store, GameFolderList& folders, const QString& target,
                       const QString& path);
void ExportGameFolders(SettingsStore& store, const GameFolderList& folders, const QString& target,
                       const QString& path);
