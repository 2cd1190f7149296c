#pragma once

#include <QHash>
#include <QString>

// The "key = value" lines of an emulator's own settings file (RetroArch's
// retroarch.cfg, a libretro core's .info file). A value may stand in double quotes;
// lines starting with "#" and lines without "=" are passed over. Empty when the file
// cannot be read.
QHash<QString, QString> ReadKeyValueFile(const QString& path);
