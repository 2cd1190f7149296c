#include "platform/OsHelpers.h"

#include "base/StringHelpers.h"
#include "platform/PathResolver.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#ifndef Q_OS_WIN
#include <unistd.h>
#endif

namespace {

// White space and double quotes: a short path goes on command lines unquoted.
const QRegularExpression& Unquotable() {
    static const QRegularExpression pattern(QStringLiteral("[\\s\"]"));
    return pattern;
}

bool IsShortForm(const QString& path) {
    return !path.contains(Unquotable()) && path == path.toLower();
}

// The folder that holds the short-path links: lower case and free of blanks.
QString ShortLinkRoot() {
    QString temp = QDir::tempPath();
    if (!IsShortForm(temp))
        temp = QStringLiteral("/tmp");
#ifdef Q_OS_WIN
    const QString user = QStringLiteral("user");
#else
    const QString user = QString::number(getuid());
#endif
    return temp + QStringLiteral("/lumbra-short-") + user;
}

} // namespace

QString GetTempFolder() {
    return AddBackslash(QDir::toNativeSeparators(QDir::tempPath()));
}

QString GetShortPath(const QString& path) {
    QString resolved = ResolvePath(path);
    if (resolved.isEmpty())
        return QString();
    if (IsShortForm(resolved))
        return resolved;

    while (resolved.size() > 1 && resolved.endsWith(QLatin1Char('/')))
        resolved.chop(1);
    const QString hash = QString::fromLatin1(
        QCryptographicHash::hash(resolved.toUtf8(), QCryptographicHash::Sha1).toHex().left(8));
    const QString folder = ShortLinkRoot() + QLatin1Char('/') + hash;
    QString name = QFileInfo(resolved).fileName().toLower();
    name.replace(Unquotable(), QStringLiteral("_"));
    const QString link = folder + QLatin1Char('/') + name;

    if (QFileInfo(link).symLinkTarget() == QFileInfo(resolved).absoluteFilePath())
        return link;
    if (!QDir().mkpath(folder))
        return QString();
    QFile::remove(link);
    if (!QFile::link(resolved, link))
        return QString();
    return link;
}
