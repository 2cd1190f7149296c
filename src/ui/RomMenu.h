#pragma once

#include "config/Profiles.h"

#include <QList>
#include <QObject>

class GameListView;
class Prompts;
class QAction;
class QMenu;
class QWidget;
class SaveStatesMenu;
class SystemShell;
struct AppState;

// The "&ROM Menu" of the selected game, prepared each time it opens: the emulator
// and settings profile for the next launch, the save states, the group, the
// snapshot, removing and renaming the game, and its information.
class RomMenu final : public QObject {
    Q_OBJECT
public:
    RomMenu(AppState& state, Prompts& prompts, SystemShell& shell, GameListView& view,
            QWidget* owner);

    QMenu* Menu() const { return m_mnuRomMenu; }

    // Builds the submenus for the game; -1 means no game is selected and disables
    // every entry.
    void Prepare(int gameIndex);
    // Follows the selected game without building the submenus, so that the keys of
    // Rename, Remove and Game Info act on it while the menu is closed.
    void SetGame(int gameIndex);
    // F2, Delete and Ctrl+I run Rename, Remove and Game Info while one of the
    // widgets has the keyboard focus; the menu shows the keys.
    void AddKeysTo(const QList<QWidget*>& widgets);

private:
    void CreateLaunchAndProfileEntries();
    void CreateGroupEntries();
    void CreateGameEntries();
    QAction* AddEntry(QMenu* menu, const QString& caption, const QString& name,
                      void (RomMenu::*handler)());
    void PrepareLaunchUsing();
    void PrepareSendToGroup();
    void PrepareProfiles();
    void mnuLaunchUsing_Click(QAction* item);
    void mnuProfile_Click(int itemIndex);
    void mnuProfile_New_Click();
    void mnuSendToGroup_Group_Click(int itemIndex);
    void mnuSendToGroup_FixedGroup_Click();
    void mnuSendToGroup_NewGroup_Click();
    void SendTo(const QString& group);
    // The group whose item is ticked: the one shown, or in "All Games" the game's own.
    QString TickedGroup() const;
    void mnuSnapshot_Change_Click();
    void mnuSnapshot_Open_Click();
    void mnuSnapshot_Remove_Click();
    void mnuRomMenu_Remove_Click();
    void mnuRomMenu_Rename_Click();
    void mnuRomMenu_GameInfo_Click();

    AppState& m_state;
    Prompts& m_prompts;
    SystemShell& m_shell;
    GameListView& m_view;
    QWidget* m_owner;
    int m_gameIndex = -1;
    QMenu* m_mnuRomMenu = nullptr;
    QMenu* m_mnuLaunchUsing = nullptr;
    QAction* m_mnuLaunchUsingBar = nullptr;
    QList<QAction*> m_foundEmulatorItems; // after the three, as found when the menu opened
    QMenu* m_mnuProfile = nullptr;
    QAction* m_mnuProfileBar = nullptr;
    QList<QAction*> m_profileItems;
    ProfileMenuModel m_profiles;
    SaveStatesMenu* m_saveStates = nullptr;
    QMenu* m_mnuSendToGroup = nullptr;
    QAction* m_mnuSendToGroupBar = nullptr;
    QAction* m_mnuSendToGroupFixed = nullptr;
    QList<QAction*> m_groupItems;  // one per line of the group selector
    QList<QAction*> m_gameEntries; // enabled only while a game is selected
    QAction* m_mnuRomMenuRemove = nullptr;
    QAction* m_mnuRomMenuRename = nullptr;
    QAction* m_mnuRomMenuGameInfo = nullptr;
};
