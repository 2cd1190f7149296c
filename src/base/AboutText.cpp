#include "base/AboutText.h"

#include <archive.h>

QString ProgramVersion() {
    return QStringLiteral(LUMBRA_VERSION);
}

QString Credits() {
    return QStringLiteral("Qt ") + QString::fromLatin1(qVersion()) +
           QStringLiteral(" (LGPL 3): windows, settings and files\n") +
           QString::fromLatin1(archive_version_string()) + QStringLiteral(" (BSD): zipped games");
}
