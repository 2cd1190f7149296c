#pragma once

#include "emulators/EmulatorCatalogue.h"

class QJsonObject;

// One entry of a catalogue file (README.md, section "Emulators Lumbra finds"). problem
// names the first key that is missing or of the wrong kind; empty when the entry can
// be used.
CatalogueEntry ReadCatalogueEntry(const QJsonObject& object, QString& problem);
