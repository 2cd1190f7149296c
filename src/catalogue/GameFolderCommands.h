#pragma once

#include "catalogue/ScanReport.h"

#include <QString>
#include <optional>

class Progress;
struct AppState;

struct FolderAddResult {
    enum Outcome { Refused, Added, LostAfterAdd };
    Outcome Result = Refused; // a refusal is already in the event log
    int Index = -1;           // the new entry of the game-folder list
    ScanReport Report;
};

// Adds a game folder (stored as given, so pass it with a trailing separator), scans
// it into the catalogue, lays the stored game data over the catalogue and tags
// duplicates. The settings dialog's "Add..." and lumbra-cli's "folders add" both
// come here.
FolderAddResult AddGameFolderAndScan(AppState& state, const QString& folder, Progress& progress);

// Removes a game folder and rebuilds the catalogue from the folders left; nothing
// when the folder is not in the list.
std::optional<ScanReport> RemoveGameFolderAndReload(AppState& state, const QString& folder,
                                                    Progress& progress);
