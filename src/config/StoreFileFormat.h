#pragma once

#include "config/StoreValues.h"

#include <QByteArray>
#include <QHash>
#include <QString>

// The file's sections by name, each with its keys by name. A key outside every
// section (the file's "[General]" part) stands in the section with the empty name.
using StoreSection = QHash<QString, StoreValue>;
using StoreContent = QHash<QString, StoreSection>;

// The INI text that QSettings reads and writes on Linux: sections and keys sorted,
// their names percent-escaped, values escaped and quoted as QSettings does, so that
// Lumbra and QSettings read each other's files and write the same bytes.
StoreContent ParseStoreText(const QByteArray& text);
QByteArray StoreText(const StoreContent& content);
