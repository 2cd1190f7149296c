#include "config/SettingsStore.h"

#include "config/StoreFile.h"
#include "config/StoreValues.h"

#include <QStandardPaths>
#include <algorithm>

namespace {

// The file's names split at "/", which every Linux folder path holds. Escaping "/"
// (and the escape character itself) keeps each text one section or key name.
QString Encode(const QString& text) {
    if (!text.contains(QLatin1Char('%')) && !text.contains(QLatin1Char('/')))
        return text;
    QString encoded = text;
    encoded.replace(QLatin1Char('%'), QStringLiteral("%25"));
    encoded.replace(QLatin1Char('/'), QStringLiteral("%2F"));
    return encoded;
}

QString Decode(const QString& text) {
    if (!text.contains(QLatin1Char('%')))
        return text;
    QString decoded = text;
    decoded.replace(QStringLiteral("%2F"), QStringLiteral("/"));
    decoded.replace(QStringLiteral("%25"), QStringLiteral("%"));
    return decoded;
}

// Where QSettings keeps the per-user store of the application in its native form:
// "$XDG_CONFIG_HOME/Lumbra/Lumbra.conf" on Linux.
QString StorePath(const QString& application) {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QLatin1Char('/') + application + QLatin1Char('/') + application +
           QStringLiteral(".conf");
}

// An empty section or key name folds into the other, as QSettings folds the "/"
// between them away: the pair names a key of the General part.
std::pair<QString, QString> FileName(const QString& fileSection, const QString& key) {
    const QString encodedKey = Encode(key);
    if (!fileSection.isEmpty() && !encodedKey.isEmpty())
        return {fileSection, encodedKey};
    return {QString(), fileSection + encodedKey};
}

} // namespace

SettingsStore::SettingsStore(const QString& application) : m_path(StorePath(application)) {}

StoreFile& SettingsStore::File() const {
    if (!m_file)
        m_file = StoreFile::Open(m_path);
    return *m_file;
}

// Changes not synced yet are saved when the store goes, as QSettings saves them.
SettingsStore::~SettingsStore() {
    if (m_file && m_file->HasUnsavedChanges())
        WriteFile();
}

const QString& SettingsStore::FileSection(const QString& section) const {
    if (section != m_lastSection || m_lastFileSection.isNull()) {
        m_lastSection = section;
        m_lastFileSection = Encode(section);
        if (m_lastFileSection.isNull())
            m_lastFileSection = QStringLiteral("");
    }
    return m_lastFileSection;
}

QString SettingsStore::Read(const QString& section, const QString& key,
                            const QString& defaultValue) const {
    const auto [fileSection, fileKey] = FileName(FileSection(section), key);
    const StoreValue* value = File().Find(fileSection, fileKey);
    return value && !IsAbsentValue(*value) ? TextOfValue(*value) : defaultValue;
}

bool SettingsStore::Contains(const QString& section, const QString& key) const {
    const auto [fileSection, fileKey] = FileName(FileSection(section), key);
    return File().Find(fileSection, fileKey) != nullptr;
}

void SettingsStore::Write(const QString& section, const QString& key, const QString& value) {
    const auto [fileSection, fileKey] = FileName(FileSection(section), key);
    File().Set(fileSection, fileKey, ValueOfText(value));
}

void SettingsStore::Remove(const QString& section, const QString& key) {
    const auto [fileSection, fileKey] = FileName(FileSection(section), key);
    // A name of the General part also names the section of that name, as in QSettings.
    if (fileSection.isEmpty())
        File().RemoveSection(fileKey);
    else
        File().Remove(fileSection, fileKey);
}

void SettingsStore::DeleteSection(const QString& section) {
    File().RemoveSection(FileSection(section));
}

QList<std::pair<QString, QString>> SettingsStore::ListSection(const QString& section) const {
    QList<std::pair<QString, QString>> pairs;
    const StoreSection found = File().Content().value(FileSection(section));
    QStringList keys = found.keys();
    std::sort(keys.begin(), keys.end());
    for (const QString& key : std::as_const(keys)) {
        // A key under a further "/" belongs to a subsection, not to this one.
        if (!key.contains(QLatin1Char('/')))
            pairs.append({Decode(key), TextOfValue(found.value(key))});
    }
    return pairs;
}

QStringList SettingsStore::Sections() const {
    QStringList names;
    const StoreContent& content = File().Content();
    for (auto it = content.cbegin(); it != content.cend(); ++it) {
        if (!it.key().isEmpty() && !it->isEmpty())
            names.append(it.key());
    }
    std::sort(names.begin(), names.end());
    QStringList sections;
    for (const QString& name : std::as_const(names))
        sections.append(Decode(name));
    return sections;
}

void SettingsStore::Sync() {
    if (m_batchDepth > 0)
        m_syncDue = true;
    else
        WriteFile();
}

void SettingsStore::WriteFile() {
    m_syncDue = false;
    QString reason;
    m_writeError.clear();
    if (!File().Save(reason))
        m_writeError = QStringLiteral("Could not save the settings to ") + m_path +
                       QStringLiteral(": ") + reason;
}

SettingsStore::Batch::Batch(SettingsStore& store) : m_store(store) {
    ++m_store.m_batchDepth;
}

SettingsStore::Batch::~Batch() {
    if (--m_store.m_batchDepth == 0 && m_store.m_syncDue)
        m_store.WriteFile();
}

void SettingsStore::Clear() {
    File().Clear();
    WriteFile();
}

QString SettingsStore::FilePath() const {
    return m_path;
}
