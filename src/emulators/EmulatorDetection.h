#pragma once

#include "emulators/FoundEmulators.h"

#include <QList>

class EmulatorEnvironment;
struct EmulatorCatalogue;

// Searches this system for the catalogue's emulators by their find rules; nothing is
// started. For each entry the first rule that finds a program wins. An entry that
// takes cores gives one emulator per SNES core found, named "<entry> (<core name>)",
// and none when no core is found; any other entry gives one emulator under its own
// name. Each comes with the entry's command, the install's arguments put after
// "{program}".
QList<FoundEmulator> DetectEmulators(const EmulatorCatalogue& catalogue,
                                     const EmulatorEnvironment& environment);

// The first executable file of that name in PATH; empty when there is none.
QString FindInSearchPath(const QString& program, const EmulatorEnvironment& environment);
