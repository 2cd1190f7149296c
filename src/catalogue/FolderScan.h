#pragma once

#include <QString>

struct AppState;

// The game file patterns, matched without regard to case.
inline const QString GameFilePatterns =
    QStringLiteral("*.1;*.058;*.078;*.fig;*.sfc;*.smc;*.swc;*.zip");

// Scans one folder (not recursively) and appends its game files to the game list.
void GameList_ImportFileList(AppState& state, const QString& folder);
