#include "ui/RomMenu.h"

#include "catalogue/AppState.h"
#include "catalogue/GameCommands.h"
#include "catalogue/GroupViews.h"
#include "emulators/FoundEmulators.h"
#include "snapshots/SnapshotCommands.h"
#include "ui/BusyPointer.h"
#include "ui/GameListView.h"
#include "ui/SaveStatesMenu.h"
#include "ui/frmProfileEditor.h"
#include "ui/frmRomInfo.h"

#include <QMenu>

namespace {

// A group's name as a menu caption: "&" would underline the next letter.
QString MenuCaption(const QString& name) {
    QString caption = name;
    return caption.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

RomMenu::RomMenu(AppState& state, Prompts& prompts, SystemShell& shell, GameListView& view,
                 QWidget* owner)
    : QObject(owner), m_state(state), m_prompts(prompts), m_shell(shell), m_view(view),
      m_owner(owner) {
    m_mnuRomMenu = new QMenu(QStringLiteral("&ROM Menu"), owner);
    m_mnuRomMenu->setObjectName(QStringLiteral("mnuRomMenu"));
    CreateLaunchAndProfileEntries();
    m_saveStates = new SaveStatesMenu(state, shell, m_mnuRomMenu);
    m_gameEntries.append(m_saveStates->Menu()->menuAction());
    CreateGroupEntries();
    CreateGameEntries();
}

void RomMenu::CreateLaunchAndProfileEntries() {
    m_mnuLaunchUsing = m_mnuRomMenu->addMenu(QStringLiteral("&Launch Using..."));
    m_mnuLaunchUsing->setObjectName(QStringLiteral("mnuRomMenu_LaunchUsing"));
    connect(m_mnuLaunchUsing, &QMenu::triggered, this, &RomMenu::mnuLaunchUsing_Click);

    m_mnuProfile = m_mnuRomMenu->addMenu(QStringLiteral("&Profile..."));
    m_mnuProfile->setObjectName(QStringLiteral("mnuRomMenu_Profile"));
    m_mnuProfileBar = m_mnuProfile->addSeparator();
    m_mnuProfile->addAction(QStringLiteral("&Default"))
        ->setObjectName(QStringLiteral("mnuProfile_Default"));
    m_mnuProfile->addSeparator();
    m_mnuProfile->addAction(QStringLiteral("&Edit..."))
        ->setObjectName(QStringLiteral("mnuProfile_Edit"));
    AddEntry(m_mnuProfile, QStringLiteral("&New..."), QStringLiteral("mnuProfile_New"),
             &RomMenu::mnuProfile_New_Click);
    m_gameEntries << m_mnuLaunchUsing->menuAction() << m_mnuProfile->menuAction();
}

void RomMenu::CreateGroupEntries() {
    m_mnuSendToGroup = m_mnuRomMenu->addMenu(QStringLiteral("Send To &Group..."));
    m_mnuSendToGroup->setObjectName(QStringLiteral("mnuRomMenu_SendToGroup"));
    m_mnuSendToGroupBar = m_mnuSendToGroup->addSeparator();
    m_mnuSendToGroupFixed =
        AddEntry(m_mnuSendToGroup, FixedGroup, QStringLiteral("mnuSendToGroup_FixedGroup"),
                 &RomMenu::mnuSendToGroup_FixedGroup_Click);
    m_mnuSendToGroupFixed->setCheckable(true);
    m_mnuSendToGroup->addSeparator();
    AddEntry(m_mnuSendToGroup, QStringLiteral("&New Group..."),
             QStringLiteral("mnuSendToGroup_NewGroup"), &RomMenu::mnuSendToGroup_NewGroup_Click);
    m_gameEntries.append(m_mnuSendToGroup->menuAction());
}

void RomMenu::CreateGameEntries() {
    QMenu* snapshot = m_mnuRomMenu->addMenu(QStringLiteral("&Snapshot..."));
    snapshot->setObjectName(QStringLiteral("mnuRomMenu_Snapshot"));
    AddEntry(snapshot, QStringLiteral("&Change..."), QStringLiteral("mnuSnapshot_Change"),
             &RomMenu::mnuSnapshot_Change_Click);
    AddEntry(snapshot, QStringLiteral("&Open..."), QStringLiteral("mnuSnapshot_Open"),
             &RomMenu::mnuSnapshot_Open_Click);
    AddEntry(snapshot, QStringLiteral("Remo&ve"), QStringLiteral("mnuSnapshot_Remove"),
             &RomMenu::mnuSnapshot_Remove_Click);
    m_mnuRomMenu->addSeparator();
    m_mnuRomMenuRemove =
        AddEntry(m_mnuRomMenu, QStringLiteral("Remo&ve"), QStringLiteral("mnuRomMenu_Remove"),
                 &RomMenu::mnuRomMenu_Remove_Click);
    m_mnuRomMenuRename =
        AddEntry(m_mnuRomMenu, QStringLiteral("Re&name"), QStringLiteral("mnuRomMenu_Rename"),
                 &RomMenu::mnuRomMenu_Rename_Click);
    m_mnuRomMenu->addSeparator();
    m_mnuRomMenuGameInfo =
        AddEntry(m_mnuRomMenu, QStringLiteral("Game &Info..."),
                 QStringLiteral("mnuRomMenu_GameInfo"), &RomMenu::mnuRomMenu_GameInfo_Click);
    m_gameEntries << snapshot->menuAction() << m_mnuRomMenuRemove << m_mnuRomMenuRename
                  << m_mnuRomMenuGameInfo;
}

void RomMenu::AddKeysTo(const QList<QWidget*>& widgets) {
    m_mnuRomMenuRename->setShortcut(QKeySequence(Qt::Key_F2));
    m_mnuRomMenuRemove->setShortcut(QKeySequence(Qt::Key_Delete));
    m_mnuRomMenuGameInfo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_I));
    for (QAction* entry : {m_mnuRomMenuRename, m_mnuRomMenuRemove, m_mnuRomMenuGameInfo}) {
        // Only where the focus is: Delete in another control must not remove a game.
        entry->setShortcutContext(Qt::WidgetShortcut);
        for (QWidget* widget : widgets)
            widget->addAction(entry);
    }
}

QAction* RomMenu::AddEntry(QMenu* menu, const QString& caption, const QString& name,
                           void (RomMenu::*handler)()) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, handler);
    return action;
}

void RomMenu::Prepare(int gameIndex) {
    SetGame(gameIndex);
    if (gameIndex < 0)
        return;
    PrepareLaunchUsing();
    PrepareSendToGroup();
    PrepareProfiles();
}

void RomMenu::SetGame(int gameIndex) {
    m_gameIndex = gameIndex;
    m_saveStates->SetGame(gameIndex);
    for (QAction* entry : m_gameEntries)
        entry->setEnabled(gameIndex >= 0);
}

void RomMenu::PrepareLaunchUsing() {
    if (m_mnuLaunchUsing->actions().size() < EmulatorTable::Count) {
        for (const EmulatorRecord& emulator : m_state.Emulators.Records)
            m_mnuLaunchUsing->addAction(emulator.Name)->setCheckable(true);
        m_mnuLaunchUsingBar = m_mnuLaunchUsing->addSeparator();
        m_mnuLaunchUsing->addAction(QStringLiteral("Default"))->setCheckable(true);
    }
    for (QAction* item : std::as_const(m_foundEmulatorItems)) {
        m_mnuLaunchUsing->removeAction(item);
        item->deleteLater();
    }
    m_foundEmulatorItems.clear();
    for (const FoundEmulator& found : ReadFoundEmulators(m_state.Store)) {
        auto* item = new QAction(found.Name, m_mnuLaunchUsing);
        item->setCheckable(true);
        m_mnuLaunchUsing->insertAction(m_mnuLaunchUsingBar, item);
        m_foundEmulatorItems.append(item);
    }
    const QString& emulator = m_state.Games.Records[m_gameIndex].Emulator;
    for (QAction* item : m_mnuLaunchUsing->actions())
        item->setChecked(!item->isSeparator() &&
                         item->text().compare(emulator, Qt::CaseInsensitive) == 0);
}

// One item per group line of the group selector, the line "Ungrouped" hidden (the
// fixed group has its own item) and "All Games" never offered: it is no group. The
// selector's line is ticked.
void RomMenu::PrepareSendToGroup() {
    QStringList lines = SelectorLines(m_state.Groups);
    lines.removeFirst(); // "All Games"
    const qsizetype shown = lines.indexOf(TickedGroup());
    while (m_groupItems.size() < lines.size()) {
        auto* item = new QAction(m_mnuSendToGroup);
        item->setObjectName(QStringLiteral("mnuSendToGroup_Group"));
        item->setCheckable(true);
        const int itemIndex = static_cast<int>(m_groupItems.size());
        connect(item, &QAction::triggered, this,
                [this, itemIndex] { mnuSendToGroup_Group_Click(itemIndex); });
        m_mnuSendToGroup->insertAction(m_mnuSendToGroupBar, item);
        m_groupItems.append(item);
    }
    for (qsizetype i = 0; i < m_groupItems.size(); ++i) {
        QAction* item = m_groupItems[i];
        const bool isGroup = i < lines.size() && lines[i] != FixedGroup;
        item->setData(lines.value(i));
        item->setText(MenuCaption(lines.value(i)));
        item->setVisible(isGroup); // items of groups removed since stay hidden
        item->setChecked(i == shown);
    }
    m_mnuSendToGroupFixed->setChecked(
        m_state.Games.Records[m_gameIndex].Group.compare(FixedGroup, Qt::CaseInsensitive) == 0);
}

void RomMenu::PrepareProfiles() {
    const GameRecord& game = m_state.Games.Records[m_gameIndex];
    m_profiles.Build(m_state.Store, game.Emulator, game.Profile);
    const QList<ProfileMenuItem>& items = m_profiles.Items();
    while (m_profileItems.size() < items.size()) {
        auto* item = new QAction(m_mnuProfile);
        item->setObjectName(QStringLiteral("mnuProfile_Item"));
        item->setCheckable(true);
        const int itemIndex = static_cast<int>(m_profileItems.size());
        connect(item, &QAction::triggered, this,
                [this, itemIndex] { mnuProfile_Click(itemIndex); });
        m_mnuProfile->insertAction(m_mnuProfileBar, item);
        m_profileItems.append(item);
    }
    for (int i = 0; i < items.size(); ++i) {
        m_profileItems[i]->setText(items[i].Caption);
        m_profileItems[i]->setEnabled(items[i].Enabled);
        m_profileItems[i]->setVisible(items[i].Visible);
        m_profileItems[i]->setChecked(items[i].Checked);
    }
}

void RomMenu::mnuLaunchUsing_Click(QAction* item) {
    if (m_gameIndex < 0)
        return;
    QString& emulator = m_state.Games.Records[m_gameIndex].Emulator;
    if (item->text().compare(emulator, Qt::CaseInsensitive) != 0)
        emulator = item->text();
}

void RomMenu::mnuProfile_Click(int itemIndex) {
    if (m_gameIndex >= 0)
        m_state.Games.Records[m_gameIndex].Profile = m_profileItems[itemIndex]->text();
}

void RomMenu::mnuProfile_New_Click() {
    if (m_gameIndex < 0)
        return;
    GameRecord& game = m_state.Games.Records[m_gameIndex];
    const int emulator =
        m_state.Emulators.GameEmulatorIndex(game.Emulator, m_state.Options.DefaultEmulator);
    if (emulator < 0)
        return;
    const std::optional<QString> name = frmProfileEditor::NewProfile(
        m_state.Store, m_state.Emulators.Records[emulator].Name, m_owner);
    if (name && !name->trimmed().isEmpty())
        game.Profile = name->trimmed();
}

void RomMenu::mnuSendToGroup_Group_Click(int itemIndex) {
    SendTo(m_groupItems[itemIndex]->data().toString());
}

void RomMenu::mnuSendToGroup_FixedGroup_Click() {
    SendTo(FixedGroup);
}

QString RomMenu::TickedGroup() const {
    const QString shown = m_view.ShownGroup();
    if (!IsAllGamesView(shown))
        return shown;
    const QString& own = m_state.Games.Records[m_gameIndex].Group;
    const int entry = m_state.Groups.FindGroup(own);
    return entry >= 0 ? m_state.Groups.Entries[entry] : FixedGroup;
}

void RomMenu::SendTo(const QString& group) {
    if (m_gameIndex < 0 || TickedGroup() == group)
        return;
    SendToGroup(m_state, m_gameIndex, group);
    const GameRecord& game = m_state.Games.Records[m_gameIndex];
    if (m_state.Options.AutoSwitchGroup != 0)
        m_view.SwitchToGroup(game.Group, game.Caption);
    else
        m_view.RemoveGameLine();
}

void RomMenu::mnuSendToGroup_NewGroup_Click() {
    if (m_gameIndex < 0)
        return;
    const std::optional<QString> group = SendToNewGroup(m_state, m_prompts, m_gameIndex);
    if (!group)
        return;
    m_view.RefillGroupList();
    // Only exactly 1 switches here, while any value but 0 does for an existing group.
    if (m_state.Options.AutoSwitchGroup == 1)
        m_view.SwitchToGroup(*group, m_state.Games.Records[m_gameIndex].Caption);
    else
        m_view.RemoveGameLine();
}

void RomMenu::mnuSnapshot_Change_Click() {
    if (m_gameIndex < 0)
        return;
    ChangeSnapshot(m_state, m_prompts, m_shell, m_state.Games.Records[m_gameIndex].Filename);
    m_view.RefreshGame();
}

void RomMenu::mnuSnapshot_Open_Click() {
    if (m_gameIndex < 0)
        return;
    OpenSnapshot(m_state, m_prompts, m_shell, m_state.Games.Records[m_gameIndex].Filename);
    m_view.RefreshGame();
}

void RomMenu::mnuSnapshot_Remove_Click() {
    if (m_gameIndex < 0)
        return;
    RemoveSnapshot(m_state, m_shell, m_state.Games.Records[m_gameIndex].Filename);
    m_view.RefreshGame();
}

void RomMenu::mnuRomMenu_Remove_Click() {
    if (m_gameIndex < 0)
        return;
    RemoveGame(m_state.Games, m_gameIndex);
    m_view.RefillGameList();
}

void RomMenu::mnuRomMenu_Rename_Click() {
    if (m_gameIndex < 0)
        return;
    if (RenameGame(m_state.Games, m_prompts, m_gameIndex))
        m_view.ReplaceGameLine();
}

void RomMenu::mnuRomMenu_GameInfo_Click() {
    if (m_gameIndex < 0)
        return;
    RomInfoRequest request;
    {
        const BusyPointer busy; // questions still show the normal pointer
        request = PrepareRomInfo(m_state, m_prompts, m_gameIndex);
    }
    std::optional<QString> caption;
    {
        frmRomInfo dialog(m_state.Games, m_prompts, request, m_owner);
        dialog.exec();
        caption = dialog.NewCaption();
    }
    FinishRomInfo(m_state, m_prompts, request);
    if (caption)
        m_view.ReplaceGameLine();
}
