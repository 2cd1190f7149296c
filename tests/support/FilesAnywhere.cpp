#include "FilesAnywhere.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <fcntl.h>
#include <unistd.h>

bool WriteFileAt(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

bool SetModifiedTime(const QString& path, const QDateTime& time) {
    QFile file(path);
    return file.open(QIODevice::ReadWrite) &&
           file.setFileTime(time, QFileDevice::FileModificationTime);
}

NonUtf8NamedFile::NonUtf8NamedFile(const QString& folder)
    : m_path(QFile::encodeName(folder) + "/latin\xe9.smc") {
    ::close(::open(m_path.constData(), O_CREAT | O_WRONLY, 0644));
}

NonUtf8NamedFile::~NonUtf8NamedFile() {
    ::unlink(m_path.constData());
}
