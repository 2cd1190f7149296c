#include "platform/ShortPath.h"

#include "platform/PathResolver.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

#ifndef Q_OS_WIN
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
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

// The links of this process, removed together when the emulator no longer needs them.
QStringList& MadeLinks() {
    static QStringList links;
    return links;
}

QString& LastFailure() {
    static QString failure;
    return failure;
}

#ifndef Q_OS_WIN

QString SystemReason() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

// The folder that holds the short-path links: lower case, free of blanks, and the
// user's alone, so that nobody else can point a link of Lumbra's elsewhere.
QString ShortLinkRoot() {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QString candidate = runtime + QStringLiteral("/lumbra-short");
    if (!runtime.isEmpty() && runtime.startsWith(QLatin1Char('/')) && IsShortForm(candidate) &&
        QFileInfo(runtime).isDir())
        return candidate;
    return QStringLiteral("/tmp/lumbra-short-") + QString::number(getuid());
}

// Makes the root when it is missing and checks it before each use: a real folder, not
// a link, owned by the user and writable by nobody else.
bool CheckLinkRoot(const QString& root) {
    const QByteArray name = QFile::encodeName(root);
    if (::mkdir(name.constData(), 0700) != 0 && errno != EEXIST) {
        LastFailure() = QStringLiteral("Could not make the folder for short paths, ") + root +
                        QStringLiteral(": ") + SystemReason();
        return false;
    }
    struct stat status {};
    const bool privateFolder = ::lstat(name.constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
                               status.st_uid == getuid() &&
                               (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
    if (!privateFolder)
        LastFailure() = QStringLiteral("The folder for short paths, ") + root +
                        QStringLiteral(", is not a private folder of yours (a folder that you "
                                       "own and nobody else can write to). Remove it and try "
                                       "again.");
    return privateFolder;
}

// Points link at target, replacing only a link: anything else in the private root
// was not made by Lumbra and stays.
bool PlaceLink(const QString& target, const QString& link) {
    const QByteArray linkName = QFile::encodeName(link);
    struct stat status {};
    if (::lstat(linkName.constData(), &status) == 0) {
        if (!S_ISLNK(status.st_mode)) {
            LastFailure() = link + QStringLiteral(" is in the way of a short path and is not "
                                                  "a link of Lumbra's; it was left as it is.");
            return false;
        }
        ::unlink(linkName.constData());
    }
    if (::symlink(QFile::encodeName(target).constData(), linkName.constData()) != 0) {
        LastFailure() = QStringLiteral("Could not make the short path ") + link +
                        QStringLiteral(": ") + SystemReason();
        return false;
    }
    MadeLinks().append(link);
    return true;
}

#else

QString ShortLinkRoot() {
    return QDir::tempPath() + QStringLiteral("/lumbra-short");
}

bool CheckLinkRoot(const QString& root) {
    return QDir().mkpath(root);
}

bool PlaceLink(const QString& target, const QString& link) {
    QFile::remove(link);
    if (!QFile::link(target, link))
        return false;
    MadeLinks().append(link);
    return true;
}

#endif

} // namespace

QString GetShortPath(const QString& path) {
    LastFailure().clear();
    QString resolved = ResolvePath(path);
    if (resolved.isEmpty())
        return QString();
    if (IsShortForm(resolved))
        return resolved;

    while (resolved.size() > 1 && resolved.endsWith(QLatin1Char('/')))
        resolved.chop(1);
    const QString root = ShortLinkRoot();
    if (!CheckLinkRoot(root))
        return QString();
    const QString hash = QString::fromLatin1(
        QCryptographicHash::hash(resolved.toUtf8(), QCryptographicHash::Sha1).toHex().left(8));
    const QString folder = root + QLatin1Char('/') + hash;
    QString name = QFileInfo(resolved).fileName().toLower();
    name.replace(Unquotable(), QStringLiteral("_"));
    const QString link = folder + QLatin1Char('/') + name;
    const QString target = QFileInfo(resolved).absoluteFilePath();

    if (QFileInfo(link).symLinkTarget() == target) {
        if (!MadeLinks().contains(link))
            MadeLinks().append(link);
        return link;
    }
    if (!QDir().mkpath(folder) || !PlaceLink(target, link))
        return QString();
    return link;
}

QString ShortPathFailure() {
    return LastFailure();
}

void RemoveShortPathLinks() {
    for (const QString& link : std::as_const(MadeLinks())) {
        if (QFileInfo(link).isSymLink())
            QFile::remove(link);
        QDir().rmdir(QFileInfo(link).path()); // only once empty
    }
    MadeLinks().clear();
}
