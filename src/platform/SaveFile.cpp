#include "platform/SaveFile.h"

#include <QSaveFile>

#ifndef Q_OS_WIN
#include <cerrno>
#include <cstring>
#include <unistd.h>
#endif

namespace {

bool Fail(QSaveFile& file, QString* reason, const QString& why) {
    if (reason)
        *reason = why;
    file.cancelWriting();
    return false;
}

// Why the disk did not take every byte. Qt's own text is often "Unknown error", so
// one more byte at the end is written, which fails the same way with the system's reason.
QString WriteFailureReason(QSaveFile& file) {
#ifndef Q_OS_WIN
    if (::lseek(file.handle(), 0, SEEK_END) >= 0 && ::write(file.handle(), "\n", 1) < 0)
        return QString::fromLocal8Bit(std::strerror(errno));
#endif
    return QStringLiteral("the file was written only in part");
}

} // namespace

bool CommitWhole(QSaveFile& file, QString* reason) {
    const qint64 written = file.pos();
    if (!file.flush() || file.size() != written)
        return Fail(file, reason, WriteFailureReason(file));
    if (!file.commit()) {
        if (reason)
            *reason = file.errorString();
        return false;
    }
    return true;
}
