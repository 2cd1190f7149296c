#pragma once

#include "catalogue/GameRecord.h"
#include "catalogue/ScanReport.h"

#include <array>

class PathResolver;
class Progress;
struct AppState;

// The catalogue: 1,000 fixed slots used from index 0 without gaps; the first
// record with an empty Filename ends the list.
class GameList {
public:
    static constexpr int Capacity = 1000;

    void ClearGameList();
    // searchType "filename" or "title"; compared in lower case over all 1,000 slots.
    // An empty "filename" finds the first free slot. Any other type gives -1.
    int FindGame(const QString& searchType, const QString& value) const;
    int Count() const;
    void TagDuplicates();

    std::array<GameRecord, Capacity> Records;
};

// The start-up load: scan every game folder, lay the stored data over it, tag
// duplicates. Says which files were left out.
ScanReport RebuildGameList(AppState& state, Progress& progress);

// The resolver carries folder listings over from a scan just made.
void ImportGameList(AppState& state, const QString& target, const QString& fileName,
                    Progress& progress, PathResolver& resolver);
void ImportGameList(AppState& state, const QString& target, const QString& fileName,
                    Progress& progress);
void ExportGameList(AppState& state, const QString& target, const QString& fileName);
