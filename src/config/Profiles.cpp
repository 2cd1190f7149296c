#include "config/Profiles.h"

#include "config/Emulators.h"
#include "config/SettingsStore.h"

#include <utility>

QString ProfileSection(const QString& emulatorName) {
    return QStringLiteral("Profiles\\") + emulatorName;
}

QStringList ProfileNames(const SettingsStore& store, const QString& emulatorName) {
    QStringList names;
    for (const auto& [name, options] : store.ListSection(ProfileSection(emulatorName)))
        names.append(name);
    return names;
}

QString ReadProfile(const SettingsStore& store, const QString& emulatorName,
                    const QString& profileName) {
    return store.Read(ProfileSection(emulatorName), profileName);
}

void WriteProfile(SettingsStore& store, const QString& emulatorName, const QString& profileName,
                  const QString& options) {
    store.Write(ProfileSection(emulatorName), profileName, options);
    store.Sync();
}

bool RemoveProfile(SettingsStore& store, const QString& emulatorName, const QString& profileName) {
    const QStringList names = ProfileNames(store, emulatorName);
    QString stored = names.contains(profileName) ? profileName : QString();
    for (qsizetype index = 0; stored.isEmpty() && index < names.size(); ++index) {
        if (names[index].compare(profileName, Qt::CaseInsensitive) == 0)
            stored = names[index];
    }
    if (stored.isEmpty())
        return false;
    store.Remove(ProfileSection(emulatorName), stored);
    store.Sync();
    return true;
}

ProfileMenuModel::ProfileMenuModel() {
    m_items.append(ProfileMenuItem{QStringLiteral("<no profiles found>"), false, true, false});
}

void ProfileMenuModel::Build(const SettingsStore& store, const QString& gameEmulator,
                             const QString& gameProfile) {
    // The game's emulator as it stands: an empty, "Default" or unknown one leaves the
    // items as they are.
    const QString emulator = gameEmulator.toLower();
    for (const QLatin1String name : EmulatorTable::Names) {
        if (emulator == QString(name).toLower()) {
            ListProfiles(ProfileNames(store, name));
            break;
        }
    }

    for (ProfileMenuItem& item : m_items)
        item.Checked = item.Caption.compare(gameProfile, Qt::CaseInsensitive) == 0;
}

void ProfileMenuModel::ListProfiles(const QStringList& profiles) {
    for (qsizetype index = 0; index < profiles.size(); ++index) {
        if (m_items.size() < index + 1)
            m_items.append(ProfileMenuItem{});
        ProfileMenuItem& item = m_items[index];
        item.Caption = profiles[index];
        item.Enabled = true;
        item.Visible = true;
    }

    // Items left from earlier builds take part in the sort; only the captions move.
    for (qsizetype first = 0; first < m_items.size(); ++first) {
        for (qsizetype later = first + 1; later < m_items.size(); ++later) {
            if (m_items[later].Caption < m_items[first].Caption)
                std::swap(m_items[first].Caption, m_items[later].Caption);
        }
    }
}
