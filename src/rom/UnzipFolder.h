#pragma once

#include <QString>
#include <QtGlobal>
#include <optional>

// The folder an extraction writes into, held open for the whole extraction. Names are
// single path components. A file is written under a fresh temporary name and then
// renamed to its own name, so whatever already has that name (a symbolic link, a hard
// link to a file elsewhere, a FIFO) is replaced and never written through.
class UnzipFolder {
public:
    // Opens the folder, making it when it is missing.
    explicit UnzipFolder(const QString& path);
    ~UnzipFolder();
    UnzipFolder(const UnzipFolder&) = delete;
    UnzipFolder& operator=(const UnzipFolder&) = delete;

    bool IsOpen() const;
    // The system's reason for the last failure.
    QString ErrorText() const { return m_error; }

    // The modification time (seconds since the epoch) of what the folder holds under
    // that name, links not followed; nothing when it holds nothing of that name.
    std::optional<qint64> ModifiedTime(const QString& name) const;

    // One file at a time: Begin, any number of Write, then Commit or Abort.
    bool Begin();
    bool Write(const char* data, qint64 size);
    // Gives the file its name (and the modification time, when known).
    bool Commit(const QString& name, std::optional<qint64> modified);
    void Abort();

    void Remove(const QString& name);

private:
    bool Fail();

    QString m_error;
#ifdef Q_OS_UNIX
    int m_folder = -1;
    int m_file = -1;
    QByteArray m_tempName;
#else
    QString m_path;
    class QFile* m_file = nullptr;
#endif
};
