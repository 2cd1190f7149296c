#pragma once

#include <QString>

// Whether a file name has one of the SNES game image extensions (".1", ".058", ".078",
// ".fig", ".sfc", ".smc", ".swc") in any letter case.
bool IsGameImage(const QString& name);

// A game file is a zip archive when its name's last three characters are "zip", in
// any letter case.
bool IsZippedGame(const QString& fileName);
