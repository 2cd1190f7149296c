#pragma once

#include "catalogue/ScanReport.h"

#include <QString>

class PathResolver;
struct AppState;

// The game file patterns, matched without regard to case.
inline const QString GameFilePatterns =
    QStringLiteral("*.1;*.058;*.078;*.fig;*.sfc;*.smc;*.swc;*.zip");

// Scans one folder (not recursively) and appends its game files to the game list.
// The resolver keeps the folder's listing for the rest of the operation.
ScanReport GameList_ImportFileList(AppState& state, const QString& folder, PathResolver& resolver);
ScanReport GameList_ImportFileList(AppState& state, const QString& folder);
