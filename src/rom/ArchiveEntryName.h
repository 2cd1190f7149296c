#pragma once

#include <QString>

struct archive_entry;

// An archive entry's path as text: its UTF-8 name when the archive gives one,
// otherwise the raw name decoded as a file name. Control characters are replaced:
// the name goes into file names, messages, the event log and command lines.
QString EntryPath(archive_entry* entry);

// The last path component ("\" counts as a separator too), or an empty text when that
// names no file ("", "." or "..").
QString FlatName(const QString& path);
