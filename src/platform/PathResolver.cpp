#include "platform/PathResolver.h"

#include "base/StringHelpers.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#ifdef Q_OS_UNIX
#include <dirent.h>
#include <sys/stat.h>
#endif

namespace {

QString WithForwardSlashes(const QString& path) {
#ifdef Q_OS_WIN
    return path;
#else
    QString normalized = path;
    normalized.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return normalized;
#endif
}

} // namespace

#ifdef Q_OS_UNIX

// readdir() rather than QDirIterator, which passes over names that are not valid
// UTF-8 without a word; the player must hear of those files.
QList<PathResolver::Entry> PathResolver::ReadFolder(const QString& folder) {
    QList<Entry> entries;
    const QByteArray path = QFile::encodeName(folder.isEmpty() ? QStringLiteral(".") : folder);
    DIR* dir = ::opendir(path.constData());
    if (!dir)
        return entries;
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    while (const dirent* entry = ::readdir(dir)) {
        const QByteArrayView raw(entry->d_name);
        if (raw == "." || raw == "..")
            continue;
        utf8.resetState();
        const QString name = utf8(raw);
        bool isFile = entry->d_type == DT_REG;
        if (entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN) {
            struct stat target {};
            isFile =
                ::fstatat(::dirfd(dir), entry->d_name, &target, 0) == 0 && S_ISREG(target.st_mode);
        }
        entries.append({name, isFile, raw.startsWith('.'), utf8.hasError(), LowerCase(name)});
    }
    ::closedir(dir);
    return entries;
}

#else

QList<PathResolver::Entry> PathResolver::ReadFolder(const QString& folder) {
    QList<Entry> entries;
    QDirIterator it(folder.isEmpty() ? QStringLiteral(".") : folder,
                    QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (it.hasNext()) {
        it.next();
        const QFileInfo info = it.fileInfo();
        entries.append(
            {info.fileName(), info.isFile(), info.isHidden(), false, LowerCase(info.fileName())});
    }
    return entries;
}

#endif

PathResolver::Listing& PathResolver::ListFolder(const QString& folder) {
    auto it = m_listings.find(folder);
    if (it == m_listings.end())
        it = m_listings.insert(folder, Listing{ReadFolder(folder), false, {}, {}});
    return *it;
}

const QList<PathResolver::Entry>& PathResolver::Entries(const QString& resolvedFolder) {
    return ListFolder(resolvedFolder).Entries;
}

QString PathResolver::Match(const QString& folder, const QString& name) {
    if (name == QLatin1String(".") || name == QLatin1String(".."))
        return name;
    // A folder not listed yet is listed only when the exact name is not there: the
    // parents of a game folder are mostly spelled right, its files mostly not.
    if (!m_listings.contains(folder) && QFileInfo::exists(folder + name))
        return name;
    Listing& listing = ListFolder(folder);
    if (!listing.Indexed) {
        for (const Entry& entry : std::as_const(listing.Entries)) {
            if (entry.IsUndecodable)
                continue;
            listing.Names.insert(entry.Name);
            QString& first = listing.ByLowerName[entry.LowerName];
            if (first.isEmpty() || entry.Name < first)
                first = entry.Name;
        }
        listing.Indexed = true;
    }
    if (listing.Names.contains(name))
        return name;
    return listing.ByLowerName.value(LowerCase(name));
}

// folder ends in "/" (or is empty for the current folder); so does the result.
QString PathResolver::ResolveFolder(const QString& folder) {
    if (folder.isEmpty() || folder == QLatin1String("/"))
        return folder;
    const auto cached = m_folders.constFind(folder);
    if (cached != m_folders.constEnd())
        return *cached;
    const qsizetype slash = folder.lastIndexOf(QLatin1Char('/'), -2);
    const QString parent = ResolveFolder(folder.left(slash + 1));
    QString resolved;
    if (!parent.isEmpty() || slash < 0) {
        const QString name = folder.mid(slash + 1, folder.size() - slash - 2);
        const QString match = name.isEmpty() ? name : Match(parent, name);
        if (!match.isEmpty() || name.isEmpty())
            resolved = parent + match + (match.isEmpty() ? QString() : QStringLiteral("/"));
        if (name.isEmpty())
            resolved = parent; // a doubled separator
    }
    m_folders.insert(folder, resolved);
    return resolved;
}

QString PathResolver::Resolve(const QString& path) {
    if (path.trimmed().isEmpty())
        return QString();
    QString normalized = WithForwardSlashes(path);
    const bool trailingSlash = normalized.endsWith(QLatin1Char('/'));
    if (trailingSlash && normalized.size() > 1)
        normalized.chop(1);
    const qsizetype slash = normalized.lastIndexOf(QLatin1Char('/'));
    const QString folder = ResolveFolder(normalized.left(slash + 1));
    if (folder.isEmpty() && slash >= 0)
        return QString();
    const QString name = normalized.mid(slash + 1);
    if (name.isEmpty())
        return folder; // the root
    const QString match = Match(folder, name);
    if (match.isEmpty())
        return QString();
    return folder + match + (trailingSlash ? QStringLiteral("/") : QString());
}

QString PathResolver::ResolveOrKeep(const QString& path) {
    const QString resolved = Resolve(path);
    return resolved.isEmpty() ? path : resolved;
}

bool PathResolver::IsFile(const QString& path) {
    const QString resolved = Resolve(path);
    return !resolved.isEmpty() && QFileInfo(resolved).isFile();
}

QString ResolvePath(const QString& path) {
    return PathResolver().Resolve(path);
}
