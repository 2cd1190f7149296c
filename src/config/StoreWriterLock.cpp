#include "config/StoreWriterLock.h"

#include "config/SettingsStore.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QThread>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace {

constexpr int RetryMs = 50;

QByteArray RoleName(StoreWriterLock::Holder role) {
    return role == StoreWriterLock::Holder::Window ? QByteArrayLiteral("window")
                                                   : QByteArrayLiteral("command");
}

// The lock lives beside the store's file: one store, one writer.
QString LockPath(const SettingsStore& store) {
    const QFileInfo storeFile(store.FilePath());
    QDir().mkpath(storeFile.absolutePath());
    return storeFile.absolutePath() + QLatin1Char('/') + storeFile.completeBaseName() +
           QStringLiteral(".writer");
}

} // namespace

StoreWriterLock::StoreWriterLock(const SettingsStore& store, Holder role)
    : m_storePath(store.FilePath()), m_path(LockPath(store)), m_role(role) {}

void StoreWriterLock::NoteFailure(const QString& reason) {
    m_failure = QStringLiteral("Could not save the settings to ") + m_storePath +
                QStringLiteral(": ") + reason;
}

StoreWriterLock::~StoreWriterLock() {
    Release();
}

bool StoreWriterLock::TryAcquire(int commandWaitMs) {
    QElapsedTimer waited;
    waited.start();
    m_failure.clear();
    while (!TryOnce()) {
        if (!m_failure.isEmpty())
            return false;
        ReadHolder();
        if (m_heldBy == Holder::Window || waited.elapsed() >= commandWaitMs)
            return false;
        QThread::msleep(RetryMs);
    }
    return true;
}

QString StoreWriterLock::HolderProcessText() const {
    return m_holderProcess > 0 ? QStringLiteral(" (process %1)").arg(m_holderProcess) : QString();
}

#ifdef Q_OS_UNIX

bool StoreWriterLock::TryOnce() {
    if (m_fd >= 0)
        return true;
    // Close-on-exec: an emulator started from Lumbra must not inherit the lock.
    const int fd =
        ::open(QFile::encodeName(m_path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd < 0) {
        NoteFailure(QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    }
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        ::close(fd);
        return false;
    }
    const QByteArray holder =
        QByteArray::number(QCoreApplication::applicationPid()) + '\n' + RoleName(m_role) + '\n';
    // The note only names the holder for the refusal message; the lock holds without it.
    [[maybe_unused]] const bool noted =
        ::ftruncate(fd, 0) == 0 && ::write(fd, holder.constData(), holder.size()) > 0;
    m_fd = fd;
    return true;
}

void StoreWriterLock::Release() {
    if (m_fd < 0)
        return;
    // The file stays: removing it could let two writers lock two different files.
    [[maybe_unused]] const int cleared = ::ftruncate(m_fd, 0);
    ::close(m_fd);
    m_fd = -1;
}

void StoreWriterLock::ReadHolder() {
    m_heldBy = Holder::Command;
    m_holderProcess = 0;
    QFile note(m_path);
    if (!note.open(QIODevice::ReadOnly))
        return;
    const QList<QByteArray> lines = note.readAll().split('\n');
    m_holderProcess = lines.value(0).toLongLong();
    if (lines.value(1) == RoleName(Holder::Window))
        m_heldBy = Holder::Window;
}

#else

bool StoreWriterLock::TryOnce() {
    if (m_portableLock)
        return true;
    auto lock = std::make_unique<QLockFile>(m_path);
    lock->setStaleLockTime(0); // a live holder is never stale, however long it runs
    if (!lock->tryLock(0)) {
        if (lock->error() != QLockFile::LockFailedError)
            NoteFailure(QStringLiteral("the lock file could not be made"));
        return false;
    }
    m_portableLock = std::move(lock);
    return true;
}

void StoreWriterLock::Release() {
    m_portableLock.reset();
}

// QLockFile notes the holder's process number and application name; the window
// runs as "Lumbra", the command-line front as "lumbra-cli".
void StoreWriterLock::ReadHolder() {
    QString host;
    QString application;
    m_holderProcess = 0;
    QLockFile(m_path).getLockInfo(&m_holderProcess, &host, &application);
    m_heldBy = application == QLatin1String("Lumbra") ? Holder::Window : Holder::Command;
}

#endif
