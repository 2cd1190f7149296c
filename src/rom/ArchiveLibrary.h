#pragma once

#include <QString>

// libarchive is opened on first use, not when Lumbra starts: most runs open no zip,
// and loading it with the libraries it needs cost every start some milliseconds.
// ArchiveLibrary.cpp defines the archive_* functions Lumbra calls, with libarchive's
// own prototypes, and each forwards to the library. archive_read_new, archive_write_new
// and archive_entry_new give null when it cannot be opened; nothing else is reached
// without what they give.

// Why libarchive could not be opened; empty once it is open.
QString ArchiveLibraryProblem();

// Why the library in `fileName` would not do as libarchive (it cannot be opened, or
// it lacks a function Lumbra calls); empty when it would. It is not kept open.
QString ArchiveLibraryProblemWith(const char* fileName);
