#pragma once

#include <QString>

class EmulatorEnvironment;
struct CatalogueEntry;

// The emulator's own folder: the install's home when it has one of its own (a
// Flatpak's or a Snap's, a template of the catalogue), otherwise the first of the
// entry's home rules that applies. "{programdir}" is the program's folder. Empty when
// none applies.
QString EmulatorHome(const CatalogueEntry& entry, const QString& installHome,
                     const QString& program, const EmulatorEnvironment& environment);
