#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

// Finds the file that a path means on a case-sensitive file system. The catalogue
// keeps names in lower case, as on Windows; each component is taken exactly when it
// exists, otherwise as its case-insensitive match in the parent folder (the first
// in sorted order). Folder listings are cached for the resolver's lifetime, so one
// resolver should live for one operation (a scan, a menu build).
class PathResolver {
public:
    // The existing path that path names, or an empty text when none does.
    QString Resolve(const QString& path);
    // The resolved path, or path itself when nothing matches (so that a later open
    // fails as it would have).
    QString ResolveOrKeep(const QString& path);
    bool Exists(const QString& path) { return !Resolve(path).isEmpty(); }
    bool IsFile(const QString& path);

private:
    const QStringList& Listing(const QString& folder);
    QHash<QString, QStringList> m_listings;
};

// One-off resolution with a fresh cache.
QString ResolvePath(const QString& path);
