#include "rom/ArchiveEntryName.h"

#include "base/StringHelpers.h"

#include <QFile>
#include <algorithm>
#include <archive_entry.h>

QString EntryPath(archive_entry* entry) {
    if (const char* utf8 = archive_entry_pathname_utf8(entry))
        return ReplaceControlCharacters(QString::fromUtf8(utf8));
    const char* raw = archive_entry_pathname(entry);
    return raw ? ReplaceControlCharacters(QFile::decodeName(raw)) : QString();
}

QString FlatName(const QString& path) {
    const qsizetype cut =
        std::max(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
    const QString name = path.mid(cut + 1);
    if (name == QLatin1String(".") || name == QLatin1String(".."))
        return QString();
    return name;
}
