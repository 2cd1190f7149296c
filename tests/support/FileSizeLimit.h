#pragma once

#include <QProcess>

// Stands in for a full disk: writing beyond the limit fails with EFBIG ("File too
// large"), as a write to a full file system fails with ENOSPC, and the signal that
// would end the writer is ignored.

// For this process, while the object lives.
class FileSizeLimit {
public:
    explicit FileSizeLimit(qint64 bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    qint64 m_saved = 0;
};

// For a child process started with process.
void LimitChildFileSize(QProcess& process, qint64 bytes);
