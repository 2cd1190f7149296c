#include "launch/PathResolver.h"

#include <QDir>
#include <QFileInfo>

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

const QStringList& PathResolver::Listing(const QString& folder) {
    auto it = m_listings.find(folder);
    if (it == m_listings.end()) {
        const QStringList entries =
            QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                   QDir::Name);
        it = m_listings.insert(folder, entries);
    }
    return *it;
}

QString PathResolver::Resolve(const QString& path) {
    if (path.trimmed().isEmpty())
        return QString();
    const QString normalized = WithForwardSlashes(path);
    if (QFileInfo::exists(normalized))
        return normalized;

    const bool absolute = normalized.startsWith(QLatin1Char('/'));
    const bool trailingSlash = normalized.endsWith(QLatin1Char('/'));
    QString resolved = absolute ? QStringLiteral("/") : QString();
    const QStringList components = normalized.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString& component : components) {
        const QString folder = resolved.isEmpty() ? QStringLiteral(".") : resolved;
        const QString exact = resolved + component;
        QString match;
        if (component == QLatin1String(".") || component == QLatin1String("..") ||
            QFileInfo::exists(exact)) {
            match = component;
        } else {
            for (const QString& entry : Listing(folder)) {
                if (entry.compare(component, Qt::CaseInsensitive) == 0) {
                    match = entry;
                    break;
                }
            }
        }
        if (match.isEmpty())
            return QString();
        resolved += match + QLatin1Char('/');
    }
    if (!trailingSlash && resolved.size() > 1)
        resolved.chop(1);
    return resolved;
}

QString PathResolver::ResolveOrKeep(const QString& path) {
    const QString resolved = Resolve(path);
    return resolved.isEmpty() ? path : resolved;
}

bool PathResolver::IsFile(const QString& path) {
    const QString resolved = Resolve(path);
    return !resolved.isEmpty() && QFileInfo(resolved).isFile();
}

QString ResolvePath(const QString& path) { return PathResolver().Resolve(path); }
