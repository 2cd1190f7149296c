#include "platform/PrivateFolder.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#ifndef Q_OS_WIN
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#endif

bool MakePrivateFolder(const QString& path, QString* failure) {
#ifdef Q_OS_WIN
    if (QDir().mkpath(path))
        return true;
    if (failure)
        *failure = QStringLiteral("Cannot make the folder");
    return false;
#else
    const QString absolute = QDir::cleanPath(QDir(path).absolutePath());
    QString made;
    for (const QString& part : absolute.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        made += QLatin1Char('/') + part;
        if (::mkdir(QFile::encodeName(made).constData(), 0700) != 0 && errno != EEXIST) {
            if (failure)
                *failure = QString::fromLocal8Bit(std::strerror(errno));
            return false;
        }
    }
    return true;
#endif
}
