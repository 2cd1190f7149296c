#pragma once

#include <QString>

class QSaveFile;

// Finishes a file written through QSaveFile: renames it over the old one only when
// every byte written reached the disk. Qt takes a short write (a disk that fills up
// during the write) for success, so the size is checked too. False, with the
// system's reason, when the old file stays as it was.
bool CommitWhole(QSaveFile& file, QString* reason = nullptr);
