#pragma once

#include <QString>

struct archive_entry;

// An archive entry's path as text: its UTF-8 name when the archive gives one,
// otherwise the raw name decoded as a file name.
QString EntryPath(archive_entry* entry);

// The last path component ("\" counts as a separator too), or an empty text when that
// names no file ("", "." or "..").
QString FlatName(const QString& path);
