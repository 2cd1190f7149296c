#pragma once

#include <QList>
#include <QString>
#include <memory>
#include <utility>

class StoreFile;

// The key of a stored list's entry: its index written with two digits, "00" to "99".
inline QString IndexKey(int index) {
    return QStringLiteral("%1").arg(index, 2, 10, QLatin1Char('0'));
}

// The per-user settings store: sections of string keys and string values under the
// application name. Section and key texts round-trip exactly, whatever separators
// they hold ("Profiles\ZSnes", "Game List\/home/me/SNES Roms/").
class SettingsStore {
public:
    explicit SettingsStore(const QString& application = QStringLiteral("Lumbra"));
    ~SettingsStore();
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    QString Read(const QString& section, const QString& key,
                 const QString& defaultValue = QString()) const;
    bool Contains(const QString& section, const QString& key) const;
    void Write(const QString& section, const QString& key, const QString& value);
    // Removes one key of a section; nothing happens when it is absent.
    void Remove(const QString& section, const QString& key);
    void DeleteSection(const QString& section);
    // The section's own name/value pairs, in the store's order.
    QList<std::pair<QString, QString>> ListSection(const QString& section) const;
    // Every section that holds at least one key.
    QStringList Sections() const;

    // Writes pending changes to disk; called once after a whole export. Inside a
    // batch it only notes that a write is due.
    void Sync();

    // Gathers the exports of one save (the close, one command) into one write of
    // the file, made when the outermost batch ends.
    class Batch {
    public:
        explicit Batch(SettingsStore& store);
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        SettingsStore& m_store;
    };

    // Why the last write of the file failed ("Could not save the settings to
    // <file>: <the system's reason>"), or an empty text when it succeeded.
    QString WriteError() const { return m_writeError; }

    // Removes every section (tests and a reset).
    void Clear();
    QString FilePath() const;

private:
    void WriteFile();
    // The section's name in the file; a run of writes to one section names it once.
    const QString& FileSection(const QString& section) const;

    // Opened on first use, so that a writer that takes the writer lock first reads
    // the store as the last writer left it.
    StoreFile& File() const;

    QString m_path;
    mutable std::shared_ptr<StoreFile> m_file;
    mutable QString m_lastSection;
    mutable QString m_lastFileSection;
    QString m_writeError;
    int m_batchDepth = 0;
    bool m_syncDue = false;
};
