#pragma once

#include "export/ExportChoices.h"

#include <QString>
#include <QStringList>
#include <array>

class GameFolderList;
class GroupList;
class SettingsStore;
struct AppState;

inline const QString ExportPrefsSection = QStringLiteral("Export Prefs");
inline const QStringList DefaultFilePatterns = {QStringLiteral("*.058"), QStringLiteral("*.078"),
                                                QStringLiteral("*.1"),   QStringLiteral("*.fig"),
                                                QStringLiteral("*.sfc"), QStringLiteral("*.smc"),
                                                QStringLiteral("*.swc")};

// The export dialog's choices as the store keeps them: indexes into the dialog's
// lists, and the pattern list itself so that patterns the player typed are kept.
struct ExportPrefs {
    int ExportMethod = 0;
    int GameFolderIndex = 0;
    int GroupIndex = 0;
    QStringList FilePatterns = DefaultFilePatterns;
    int FilePatternIndex = 0;
    int SortMethod = 0;
    std::array<int, ColumnCount> WriteOrder{0, 1, 2, 3, 4, 5}; // indexes into ColumnKeys
    std::array<bool, ColumnCount> WriteOrderChecked{true, true, true, true, true, true};
    int FileFormat = 0;
};

// Whether a write order (indexes into ColumnKeys) names each column once.
bool NamesEachColumnOnce(const std::array<int, ColumnCount>& order);

// Values that are missing, not whole numbers or out of range keep their defaults;
// a write order that does not name each column once falls back to the default
// order. List indexes are checked against the lists when they are applied.
ExportPrefs LoadExportPrefs(const SettingsStore& store);
// Replaces the section, then writes the store to disk.
void SaveExportPrefs(SettingsStore& store, const ExportPrefs& prefs);

// The entries of the folder selector: every game folder with a trailing separator.
QStringList ExportFolderEntries(const GameFolderList& folders);
// The entries of the group selector: "Ungrouped", then the player's groups.
QStringList ExportGroupEntries(const GroupList& groups);

// The choices that prefs name, over the state's current lists. A list index out
// of range selects the list's first entry (or nothing when the list is empty).
ExportChoices ChoicesFromPrefs(const ExportPrefs& prefs, const AppState& state);
