#pragma once

#include <QHash>
#include <QSet>
#include <QString>

// Finds the file that a path means on a case-sensitive file system. The catalogue
// keeps names in lower case, as on Windows; each component is taken exactly when it
// exists, otherwise as its case-insensitive match in the parent folder (the first
// in sorted order). Folder listings and resolved folders are cached for the
// resolver's lifetime, so one resolver should live for one operation (a scan, a
// menu build): resolving 1,000 games of one folder then lists it once.
class PathResolver {
public:
    // The existing path that path names, or an empty text when none does.
    QString Resolve(const QString& path);
    // The resolved path, or path itself when nothing matches (so that a later open
    // fails as it would have).
    QString ResolveOrKeep(const QString& path);
    bool Exists(const QString& path) { return !Resolve(path).isEmpty(); }
    bool IsFile(const QString& path);

    struct Entry {
        QString Name;
        bool IsFile = false; // a regular file, or a link to one
        bool IsHidden = false;
        // The name is not valid UTF-8: Name shows it with U+FFFD, and no path made
        // from that text reaches the file.
        bool IsUndecodable = false;
        QString LowerName; // Name in lower case
    };
    // The entries of a resolved folder (ending in a separator), listed once per
    // resolver and kept for the later resolutions in it.
    const QList<Entry>& Entries(const QString& resolvedFolder);

private:
    struct Listing {
        QList<Entry> Entries;
        bool Indexed = false; // Names and ByLowerName filled, on the first look-up
        QSet<QString> Names;
        QHash<QString, QString> ByLowerName; // the first name in sorted order
    };

    Listing& ListFolder(const QString& folder);
    static QList<Entry> ReadFolder(const QString& folder);
    // The folder's entry that name means, or an empty text.
    QString Match(const QString& folder, const QString& name);
    QString ResolveFolder(const QString& folder);

    QHash<QString, Listing> m_listings;
    QHash<QString, QString> m_folders;
};

// One-off resolution with a fresh cache.
QString ResolvePath(const QString& path);
