#include "config/StoreFile.h"

#include "config/AbandonedLock.h"
#include "config/SaveFileLeftovers.h"
#include "config/StoreValues.h"
#include "platform/SaveFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QLockFile>
#include <QSaveFile>
#include <QSettings>
#include <QTemporaryFile>
#include <algorithm>
#include <memory>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

#if defined(Q_OS_WIN) || defined(Q_OS_DARWIN)

// The native store is no INI file here (the registry, a property list):
// QSettings reads and writes it, one key at a time.
StoreContent ReadContent(const QString& path, QString& error) {
    Q_UNUSED(path);
    Q_UNUSED(error);
    StoreContent content;
    QSettings settings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Lumbra"),
                       QStringLiteral("Lumbra"));
    for (const QString& name : settings.allKeys()) {
        const qsizetype slash = name.indexOf(QLatin1Char('/'));
        content[slash < 0 ? QString() : name.left(slash)].insert(
            name.mid(slash + 1), ValueOfText(settings.value(name).toString()));
    }
    return content;
}

bool WriteContent(const QString& path, const StoreContent& content, QString& error) {
    Q_UNUSED(path);
    QSettings settings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Lumbra"),
                       QStringLiteral("Lumbra"));
    settings.clear();
    for (auto section = content.cbegin(); section != content.cend(); ++section) {
        for (auto key = section->cbegin(); key != section->cend(); ++key) {
            if (!IsAbsentValue(*key))
                settings.setValue(section.key().isEmpty()
                                      ? key.key()
                                      : section.key() + QLatin1Char('/') + key.key(),
                                  TextOfValue(*key));
        }
    }
    settings.sync();
    if (settings.status() == QSettings::NoError)
        return true;
    error = QStringLiteral("the settings could not be written");
    return false;
}

#else

// A file that exists but cannot be read whole gives an error and no content.
StoreContent ReadContent(const QString& path, QString& error) {
    QFile file(path);
    if (!file.exists())
        return StoreContent();
    QByteArray text;
    if (file.open(QIODevice::ReadOnly))
        text = file.readAll();
    if (!file.isOpen() || file.error() != QFileDevice::NoError) {
        error =
            QStringLiteral("the file could not be read (") + file.errorString() + QLatin1Char(')');
        return StoreContent();
    }
    return ParseStoreText(text);
}

bool WriteContent(const QString& path, const StoreContent& content, QString& error) {
    const bool created = !QFileInfo::exists(path);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        error = file.errorString();
        return false;
    }
    file.write(StoreText(content));
    if (!CommitWhole(file, &error))
        return false;
    // As QSettings leaves a file it creates: readable by all, written by its owner.
    if (created)
        QFile::setPermissions(path, QFile::permissions(path) | QFile::ReadOwner |
                                        QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    return true;
}

#endif

// QLockFile reports only that the lock file could not be made. Writing a file of the
// store's size beside it fails the same way and gives the system's reason.
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

// Empty sections are no part of the file.
bool SameContent(const StoreContent& a, const StoreContent& b) {
    const auto covered = [](const StoreContent& some, const StoreContent& other) {
        for (auto it = some.cbegin(); it != some.cend(); ++it) {
            if (!it->isEmpty() && other.value(it.key()) != *it)
                return false;
        }
        return true;
    };
    return covered(a, b) && covered(b, a);
}

} // namespace

std::shared_ptr<StoreFile> StoreFile::Open(const QString& path) {
    // One thread uses the store; the files stay while any store holds them.
    static QHash<QString, std::weak_ptr<StoreFile>> open;
    std::shared_ptr<StoreFile> file = open.value(path).lock();
    if (file) {
        file->Refresh();
        return file;
    }
    file = std::make_shared<StoreFile>(path);
    open.insert(path, file);
    return file;
}

StoreFile::StoreFile(const QString& path) : m_path(path) {
    Load();
}

StoreFile::Identity StoreFile::IdentityOf(const QString& path) {
    Identity identity;
#ifdef Q_OS_UNIX
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return identity;
    identity.Size = status.st_size;
    identity.Inode = static_cast<qint64>(status.st_ino);
    identity.ModifiedNs = status.st_mtim.tv_sec * 1000000000LL + status.st_mtim.tv_nsec;
    identity.ChangedNs = status.st_ctim.tv_sec * 1000000000LL + status.st_ctim.tv_nsec;
#else
    const QFileInfo info(path);
    if (!info.exists())
        return identity;
    identity.Size = info.size();
    identity.ModifiedNs = info.lastModified().toMSecsSinceEpoch() * 1000000LL;
    identity.ChangedNs = info.metadataChangeTime().toMSecsSinceEpoch() * 1000000LL;
#endif
    return identity;
}

void StoreFile::Load() {
    m_loaded = IdentityOf(m_path);
    m_readError.clear();
    m_content = ReadContent(m_path, m_readError);
    m_saved = m_content;
}

void StoreFile::Refresh() {
    if (IdentityOf(m_path) == m_loaded)
        return;
    Load();
    for (const Change& change : std::as_const(m_unsaved))
        Apply(change);
}

const StoreValue* StoreFile::Find(const QString& section, const QString& key) const {
    const auto found = m_content.constFind(section);
    if (found == m_content.constEnd())
        return nullptr;
    const auto value = found->constFind(key);
    return value == found->constEnd() ? nullptr : &*value;
}

void StoreFile::Apply(const Change& change) {
    switch (change.What) {
    case Change::Kind::Set: {
        StoreSection& section = m_content[change.Section];
        const auto it = section.find(change.Key);
        if (it == section.end() || !(*it == change.Value))
            section.insert(change.Key, change.Value);
        break;
    }
    case Change::Kind::Remove: {
        const auto section = m_content.find(change.Section);
        if (section == m_content.end())
            break;
        section->remove(change.Key);
        const QString below = change.Key + QLatin1Char('/');
        section->removeIf([&below](const auto& key) { return key.key().startsWith(below); });
        break;
    }
    case Change::Kind::RemoveSection: {
        m_content.remove(change.Section);
        const auto general = m_content.find(QString());
        if (general != m_content.end())
            general->remove(change.Section);
        break;
    }
    case Change::Kind::Clear:
        m_content.clear();
        break;
    }
}

void StoreFile::Record(Change change) {
    Apply(change);
    m_unsaved.append(std::move(change));
}

void StoreFile::Set(const QString& section, const QString& key, const StoreValue& value) {
    Record({Change::Kind::Set, section, key, value});
}

void StoreFile::Remove(const QString& section, const QString& key) {
    Record({Change::Kind::Remove, section, key, StoreValue()});
}

void StoreFile::RemoveSection(const QString& section) {
    Record({Change::Kind::RemoveSection, section, QString(), StoreValue()});
}

void StoreFile::Clear() {
    m_unsaved.clear(); // nothing before a clear matters
    Record({Change::Kind::Clear, QString(), QString(), StoreValue()});
}

bool StoreFile::Save(QString& error) {
    if (m_unsaved.isEmpty()) {
        Refresh();
        return true;
    }
    const QString lockPath = m_path + QStringLiteral(".lock");
    // The lock that QSettings takes for a write, so that the two never interleave;
    // one left behind by a killed process would hold a save for half a minute.
    RemoveAbandonedLock(lockPath);
    RemoveSaveFileLeftovers(m_path);
    QLockFile lock(lockPath);
    if (!QDir().mkpath(QFileInfo(m_path).absolutePath()) || !lock.lock()) {
        error = WhyNotWritable(m_path);
        return false;
    }
    Refresh();
    // What this process changed must not replace a file whose content it never saw.
    if (!m_readError.isEmpty()) {
        error = m_readError;
        return false;
    }
    // Sections removed and written again as they were are no change either.
    if (SameContent(m_content, m_saved)) {
        m_unsaved.clear();
        return true;
    }
    if (!WriteContent(m_path, m_content, error))
        return false; // the changes stay, for the next save
    m_unsaved.clear();
    m_saved = m_content;
    m_loaded = IdentityOf(m_path);
    return true;
}
