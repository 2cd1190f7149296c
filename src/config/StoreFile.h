#pragma once

#include "config/StoreFileFormat.h"

#include <QList>
#include <QString>
#include <memory>

// The store file read once and kept in memory, one copy per file for the whole
// process: every SettingsStore of the process sees the others' changes at once,
// as QSettings objects do. Opening it again, or saving, first reads what another
// process may have written since (one stat tells), keeping this process's changes
// on top. A save writes the file only when its content changed.
class StoreFile {
public:
    static std::shared_ptr<StoreFile> Open(const QString& path);

    const QString& Path() const { return m_path; }
    const StoreContent& Content() const { return m_content; }
    const StoreValue* Find(const QString& section, const QString& key) const;

    void Set(const QString& section, const QString& key, const StoreValue& value);
    // Removes the key and the keys below it ("key/...").
    void Remove(const QString& section, const QString& key);
    // Removes the section and a key of the General part with its name.
    void RemoveSection(const QString& section);
    void Clear();

    bool HasUnsavedChanges() const { return !m_unsaved.isEmpty(); }
    // Reads the file again if another process wrote it since it was read.
    void Refresh();
    // Writes the file (beside it, then renamed over it) when this process changed
    // its content; false with the reason when the write failed.
    bool Save(QString& error);

    explicit StoreFile(const QString& path);

private:
    struct Identity {
        qint64 Size = -1;
        qint64 Inode = 0;
        qint64 ModifiedNs = 0;
        qint64 ChangedNs = 0;
        bool operator==(const Identity&) const = default;
    };
    // A change not saved yet, kept to lay it over what another process wrote.
    struct Change {
        enum class Kind { Set, Remove, RemoveSection, Clear } What;
        QString Section;
        QString Key;
        StoreValue Value;
    };

    static Identity IdentityOf(const QString& path);
    void Apply(const Change& change);
    // Applies the change and keeps it until it is saved.
    void Record(Change change);
    void Load();

    QString m_path;
    StoreContent m_content;
    StoreContent m_saved; // the content as the file holds it
    Identity m_loaded;
    QString m_readError; // why the file could not be read; no save replaces it then
    QList<Change> m_unsaved;
};
