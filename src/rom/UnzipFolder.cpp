#include "rom/UnzipFolder.h"

#include "platform/PrivateFolder.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <QDateTime>
#include <QFileInfo>
#endif

namespace {

QByteArray TempName() {
    return ".lumbra-unzip-" + QByteArray::number(QRandomGenerator::global()->generate64(), 16);
}

} // namespace

#ifdef Q_OS_UNIX

UnzipFolder::UnzipFolder(const QString& path) {
    MakePrivateFolder(path);
    m_folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_folder < 0)
        Fail();
}

UnzipFolder::~UnzipFolder() {
    Abort();
    if (m_folder >= 0)
        ::close(m_folder);
}

bool UnzipFolder::IsOpen() const {
    return m_folder >= 0;
}

bool UnzipFolder::Fail() {
    m_error = QString::fromLocal8Bit(std::strerror(errno));
    return false;
}

std::optional<qint64> UnzipFolder::ModifiedTime(const QString& name) const {
    struct stat status {};
    if (::fstatat(m_folder, QFile::encodeName(name).constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return status.st_mtime;
}

bool UnzipFolder::Begin() {
    for (int attempt = 0; attempt < 16; ++attempt) {
        m_tempName = TempName();
        m_file = ::openat(m_folder, m_tempName.constData(),
                          O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
        if (m_file >= 0)
            return true;
        if (errno != EEXIST)
            break;
    }
    return Fail();
}

bool UnzipFolder::Write(const char* data, qint64 size) {
    while (size > 0) {
        const ssize_t written = ::write(m_file, data, static_cast<size_t>(size));
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return Fail();
        data += written;
        size -= written;
    }
    return true;
}

bool UnzipFolder::Commit(const QString& name, std::optional<qint64> modified) {
    if (modified) {
        const timespec times[2] = {{0, UTIME_OMIT}, {static_cast<time_t>(*modified), 0}};
        ::futimens(m_file, times);
    }
    const int closed = ::close(m_file);
    m_file = -1;
    if (closed == 0 && ::renameat(m_folder, m_tempName.constData(), m_folder,
                                  QFile::encodeName(name).constData()) == 0)
        return true;
    Fail();
    ::unlinkat(m_folder, m_tempName.constData(), 0);
    return false;
}

void UnzipFolder::Abort() {
    if (m_file < 0)
        return;
    ::close(m_file);
    m_file = -1;
    ::unlinkat(m_folder, m_tempName.constData(), 0);
}

void UnzipFolder::Remove(const QString& name) {
    ::unlinkat(m_folder, QFile::encodeName(name).constData(), 0);
}

#else

// Elsewhere through Qt's file calls: the same temporary name and rename, without the
// open folder handle.

UnzipFolder::UnzipFolder(const QString& path)
    : m_path(QDir(path).absolutePath() + QLatin1Char('/')) {
    if (!MakePrivateFolder(path, &m_error))
        m_error = QStringLiteral("Cannot make the folder: ") + m_error;
}

UnzipFolder::~UnzipFolder() {
    Abort();
}

bool UnzipFolder::IsOpen() const {
    return QFileInfo(m_path).isDir();
}

bool UnzipFolder::Fail() {
    m_error = m_file ? m_file->errorString() : QStringLiteral("Cannot write the file");
    return false;
}

std::optional<qint64> UnzipFolder::ModifiedTime(const QString& name) const {
    const QFileInfo info(m_path + name);
    if (!info.exists() && !info.isSymLink())
        return std::nullopt;
    return info.lastModified().toSecsSinceEpoch();
}

bool UnzipFolder::Begin() {
    m_file = new QFile(m_path + QString::fromLatin1(TempName()));
    return m_file->open(QIODevice::WriteOnly | QIODevice::NewOnly) || Fail();
}

bool UnzipFolder::Write(const char* data, qint64 size) {
    return m_file->write(data, size) == size || Fail();
}

bool UnzipFolder::Commit(const QString& name, std::optional<qint64> modified) {
    if (modified)
        m_file->setFileTime(QDateTime::fromSecsSinceEpoch(*modified),
                            QFileDevice::FileModificationTime);
    m_file->close();
    QFile::remove(m_path + name);
    const bool renamed = m_file->rename(m_path + name) || Fail();
    Abort();
    return renamed;
}

void UnzipFolder::Abort() {
    if (!m_file)
        return;
    m_file->close();
    if (m_file->fileName().startsWith(m_path + QLatin1String(".lumbra-unzip-")))
        m_file->remove();
    delete m_file;
    m_file = nullptr;
}

void UnzipFolder::Remove(const QString& name) {
    QFile::remove(m_path + name);
}

#endif
