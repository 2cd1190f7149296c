#include "config/AbandonedLock.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QThread>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace {

// A lock's owner writes its process number right after creating the file; an
// empty lock younger than this may still be filling.
constexpr int FillingMs = 50;

#ifdef Q_OS_UNIX
// QLockFile also holds an flock() on its file while it owns it, and the system
// drops that the moment the owner dies, however it dies.
bool HeldByLiveProcess(const QString& lockPath) {
    const int fd = ::open(QFile::encodeName(lockPath).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool held = ::flock(fd, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(fd);
    return held;
}
#endif

} // namespace

void RemoveAbandonedLock(const QString& lockPath) {
    QFileInfo info(lockPath);
    if (!info.exists())
        return;
#ifdef Q_OS_UNIX
    if (info.size() == 0) {
        const qint64 age = info.lastModified().msecsTo(QDateTime::currentDateTime());
        if (age >= 0 && age < FillingMs)
            QThread::msleep(static_cast<unsigned long>(FillingMs - age));
    }
    if (!HeldByLiveProcess(lockPath))
        QFile::remove(lockPath);
#else
    // Elsewhere QLockFile's own test (a dead owner) is the best there is.
    QLockFile lock(lockPath);
    qint64 pid = 0;
    QString host;
    QString application;
    if (!lock.getLockInfo(&pid, &host, &application))
        QFile::remove(lockPath);
#endif
}
