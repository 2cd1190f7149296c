#pragma once

#include <QString>
#include <array>

struct AppState;
class GameList;

// The fixed group: always present, never stored, never added or removed.
inline const QString FixedGroup = QStringLiteral("Ungrouped");

// The player's own groups: 100 names, packed from index 0 in order of creation.
class GroupList {
public:
    static constexpr int Capacity = 100;

    // -1 for exactly "Ungrouped"; otherwise the first entry equal to name without
    // regard to case, or -1. An empty name finds the first free entry.
    int FindGroup(const QString& name) const;
    bool AddGroup(const QString& name);
    bool RemoveGroup(const QString& name);
    int Count() const;

    std::array<QString, Capacity> Entries;
};

// Sends every game of the removed group (compared without regard to case) to
// "Ungrouped"; the walk stops at the first record with an empty caption.
void UngroupGames(GameList& games, const QString& groupName);

void ImportGroupList(AppState& state, const QString& target, const QString& fileName);
void ExportGroupList(AppState& state, const QString& target, const QString& fileName);
