#include "config/SettingsStore.h"

#include "config/AbandonedLock.h"
#include "config/SaveFileLeftovers.h"

#include <QSettings>

namespace {

// QSettings splits groups and keys at "/", which every Linux folder path holds.
// Escaping "/" (and the escape character itself) keeps each text one group or key.
QString Encode(const QString& text) {
    QString encoded = text;
    encoded.replace(QLatin1Char('%'), QStringLiteral("%25"));
    encoded.replace(QLatin1Char('/'), QStringLiteral("%2F"));
    return encoded;
}

QString Decode(const QString& text) {
    QString decoded = text;
    decoded.replace(QStringLiteral("%2F"), QStringLiteral("/"));
    decoded.replace(QStringLiteral("%25"), QStringLiteral("%"));
    return decoded;
}

QString FullKey(const QString& section, const QString& key) {
    return Encode(section) + QLatin1Char('/') + Encode(key);
}

} // namespace

SettingsStore::SettingsStore(const QString& application)
    : m_settings(std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                             application, application)) {}

SettingsStore::~SettingsStore() = default;

QString SettingsStore::Read(const QString& section, const QString& key,
                            const QString& defaultValue) const {
    const QVariant value = m_settings->value(FullKey(section, key));
    return value.isValid() ? value.toString() : defaultValue;
}

bool SettingsStore::Contains(const QString& section, const QString& key) const {
    return m_settings->contains(FullKey(section, key));
}

void SettingsStore::Write(const QString& section, const QString& key, const QString& value) {
    m_settings->setValue(FullKey(section, key), value);
}

void SettingsStore::DeleteSection(const QString& section) {
    m_settings->remove(Encode(section));
}

QList<std::pair<QString, QString>> SettingsStore::ListSection(const QString& section) const {
    QList<std::pair<QString, QString>> pairs;
    m_settings->beginGroup(Encode(section));
    const QStringList keys = m_settings->childKeys();
    for (const QString& key : keys)
        pairs.append({Decode(key), m_settings->value(key).toString()});
    m_settings->endGroup();
    return pairs;
}

QStringList SettingsStore::Sections() const {
    QStringList sections;
    for (const QString& group : m_settings->childGroups())
        sections.append(Decode(group));
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
    // QSettings takes "<file>.lock" for a write and waits for a lock that a killed
    // process left behind until it has aged, about half a minute.
    RemoveAbandonedLock(m_settings->fileName() + QStringLiteral(".lock"));
    RemoveSaveFileLeftovers(m_settings->fileName());
    m_settings->sync();
}

SettingsStore::Batch::Batch(SettingsStore& store) : m_store(store) {
    ++m_store.m_batchDepth;
}

SettingsStore::Batch::~Batch() {
    if (--m_store.m_batchDepth == 0 && m_store.m_syncDue)
        m_store.WriteFile();
}

void SettingsStore::Clear() {
    m_settings->clear();
    WriteFile();
}

QString SettingsStore::FilePath() const {
    return m_settings->fileName();
}
