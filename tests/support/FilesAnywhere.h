#pragma once

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <fcntl.h>
#include <unistd.h>

// Files outside a test's temporary folder (the settings store, the XDG folders), and
// file details the temporary-folder helpers do not set. Each returns false when the
// system refuses.

// Writes the bytes to the file at the absolute path, making its folders.
inline bool WriteFileAt(const QString& path, const QByteArray& bytes = QByteArray()) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

inline bool SetModifiedTime(const QString& path, const QDateTime& time) {
    QFile file(path);
    return file.open(QIODevice::ReadWrite) &&
           file.setFileTime(time, QFileDevice::FileModificationTime);
}

// An empty file "latin\xe9.smc", a name that is not valid UTF-8, in the folder while
// it lives: the temporary folder cannot name it to remove it.
struct NonUtf8NamedFile {
    explicit NonUtf8NamedFile(const QString& folder)
        : Path(QFile::encodeName(folder) + "/latin\xe9.smc") {
        ::close(::open(Path.constData(), O_CREAT | O_WRONLY, 0644));
    }
    ~NonUtf8NamedFile() { ::unlink(Path.constData()); }
    const QByteArray Path;
};
