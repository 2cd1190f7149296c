#pragma once

#include "config/Profiles.h"

#include <QList>
#include <QObject>

class QAction;
class QMenu;
class QWidget;
struct AppState;

// The "&ROM Menu" of the selected game: prepared each time it opens, it offers the
// emulator and the settings profile for the game's next launch. The entries whose
// commands are not available yet stay disabled.
class RomMenu final : public QObject {
    Q_OBJECT
public:
    RomMenu(AppState& state, QWidget* owner);

    QMenu* Menu() const { return m_mnuRomMenu; }

    // Builds the submenus for the game; -1 means no game is selected.
    void Prepare(int gameIndex);

private:
    void AddPlaceholderEntries();
    void PrepareLaunchUsing();
    void PrepareProfiles();
    void mnuLaunchUsing_Click(QAction* item);
    void mnuProfile_Click(int itemIndex);
    void mnuProfile_New_Click();

    AppState& m_state;
    QWidget* m_owner;
    int m_gameIndex = -1;
    QMenu* m_mnuRomMenu = nullptr;
    QMenu* m_mnuLaunchUsing = nullptr;
    QMenu* m_mnuProfile = nullptr;
    QAction* m_mnuProfileBar = nullptr;
    QList<QAction*> m_profileItems;
    ProfileMenuModel m_profiles;
};
