#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class SettingsStore;

// The store section that holds an emulator's settings profiles: "Profiles\" + name.
QString ProfileSection(const QString& emulatorName);
QStringList ProfileNames(const SettingsStore& store, const QString& emulatorName);
QString ReadProfile(const SettingsStore& store, const QString& emulatorName,
                    const QString& profileName);
void WriteProfile(SettingsStore& store, const QString& emulatorName, const QString& profileName,
                  const QString& options);
// Removes the profile named so (without regard to case when no name matches exactly);
// false when the emulator has none of that name.
bool RemoveProfile(SettingsStore& store, const QString& emulatorName, const QString& profileName);

struct ProfileMenuItem {
    QString Caption;
    bool Enabled = false;
    bool Visible = true;
    bool Checked = false;
};

// The profile items of the game menu's "&Profile..." submenu. Items are created as
// needed and never removed: captions left from an earlier build stay, are sorted
// and ticked with the new ones, and can be chosen.
class ProfileMenuModel {
public:
    ProfileMenuModel();

    // Lists the profiles of the game's emulator (when it is one of the three),
    // sorts the captions and ticks the game's profile.
    void Build(const SettingsStore& store, const QString& gameEmulator, const QString& gameProfile);

    const QList<ProfileMenuItem>& Items() const { return m_items; }

private:
    // Captions the first items with the profiles, creating items as needed, and sorts.
    void ListProfiles(const QStringList& profiles);

    QList<ProfileMenuItem> m_items;
};
