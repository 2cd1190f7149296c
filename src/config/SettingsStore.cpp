#include "config/SettingsStore.h"

#include "config/AbandonedLock.h"
#include "config/SaveFileLeftovers.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <algorithm>

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

// QSettings reports only that a write failed. Writing a file of the store's size
// beside it, as QSettings does, fails the same way and gives the system's reason.
QString WhyNotWritable(const QString& storeFile) {
    const QFileInfo info(storeFile);
    if (!QDir().mkpath(info.absolutePath()))
        return QStringLiteral("its folder cannot be made");
    QTemporaryFile probe(info.absolutePath() + QStringLiteral("/.") + info.fileName() +
                         QStringLiteral(".probe-XXXXXX"));
    if (!probe.open())
        return probe.errorString();
    const QByteArray bytes(std::max<qint64>(info.size(), 4096), '\n');
    if (probe.write(bytes) != bytes.size() || !probe.flush())
        return probe.errorString();
    return QStringLiteral("the file could not be written");
}

} // namespace

SettingsStore::SettingsStore(const QString& application) : m_application(application) {}

QSettings& SettingsStore::File() const {
    if (!m_settings)
        m_settings = std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                                 m_application, m_application);
    return *m_settings;
}

SettingsStore::~SettingsStore() = default;

QString SettingsStore::Read(const QString& section, const QString& key,
                            const QString& defaultValue) const {
    const QVariant value = File().value(FullKey(section, key));
    return value.isValid() ? value.toString() : defaultValue;
}

bool SettingsStore::Contains(const QString& section, const QString& key) const {
    return File().contains(FullKey(section, key));
}

void SettingsStore::Write(const QString& section, const QString& key, const QString& value) {
    File().setValue(FullKey(section, key), value);
}

void SettingsStore::Remove(const QString& section, const QString& key) {
    File().remove(FullKey(section, key));
}

void SettingsStore::DeleteSection(const QString& section) {
    File().remove(Encode(section));
}

QList<std::pair<QString, QString>> SettingsStore::ListSection(const QString& section) const {
    QList<std::pair<QString, QString>> pairs;
    File().beginGroup(Encode(section));
    const QStringList keys = File().childKeys();
    for (const QString& key : keys)
        pairs.append({Decode(key), File().value(key).toString()});
    File().endGroup();
    return pairs;
}

QStringList SettingsStore::Sections() const {
    QStringList sections;
    for (const QString& group : File().childGroups())
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
    RemoveAbandonedLock(File().fileName() + QStringLiteral(".lock"));
    RemoveSaveFileLeftovers(File().fileName());
    File().sync();
    m_writeError.clear();
    if (File().status() != QSettings::NoError)
        m_writeError = QStringLiteral("Could not save the settings to ") + FilePath() +
                       QStringLiteral(": ") + WhyNotWritable(FilePath());
}

SettingsStore::Batch::Batch(SettingsStore& store) : m_store(store) {
    ++m_store.m_batchDepth;
}

SettingsStore::Batch::~Batch() {
    if (--m_store.m_batchDepth == 0 && m_store.m_syncDue)
        m_store.WriteFile();
}

void SettingsStore::Clear() {
    File().clear();
    WriteFile();
}

QString SettingsStore::FilePath() const {
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    // Where QSettings keeps the store, named without opening it: the writer lock
    // is taken on this path before anything is read.
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QLatin1Char('/') + m_application + QLatin1Char('/') + m_application +
           QStringLiteral(".conf");
#else
    return File().fileName();
#endif
}
