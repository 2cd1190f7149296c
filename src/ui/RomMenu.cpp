#include "ui/RomMenu.h"

#include "app/AppState.h"
#include "ui/frmProfileEditor.h"

#include <QMenu>

namespace {

QAction* AddDisabled(QMenu* menu, const QString& caption, const QString& name) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    action->setEnabled(false);
    return action;
}

} // namespace

RomMenu::RomMenu(AppState& state, QWidget* owner) : QObject(owner), m_state(state), m_owner(owner) {
    m_mnuRomMenu = new QMenu(QStringLiteral("&ROM Menu"), owner);
    m_mnuRomMenu->setObjectName(QStringLiteral("mnuRomMenu"));

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
    QAction* mnuNew = m_mnuProfile->addAction(QStringLiteral("&New..."));
    mnuNew->setObjectName(QStringLiteral("mnuProfile_New"));
    connect(mnuNew, &QAction::triggered, this, &RomMenu::mnuProfile_New_Click);

    AddPlaceholderEntries();
}

void RomMenu::AddPlaceholderEntries() {
    QMenu* saveStates = m_mnuRomMenu->addMenu(QStringLiteral("Sa&ve States"));
    saveStates->setObjectName(QStringLiteral("mnuRomMenu_SaveStates"));
    for (const EmulatorRecord& emulator : m_state.Emulators.Records) {
        QMenu* perEmulator = saveStates->addMenu(QStringLiteral("&") + emulator.Name);
        AddDisabled(perEmulator, QStringLiteral("No SRAM File"),
                    QStringLiteral("mnuSaveStates_Sram"));
    }
    saveStates->setEnabled(false);

    QMenu* sendToGroup = m_mnuRomMenu->addMenu(QStringLiteral("Send To &Group..."));
    sendToGroup->setObjectName(QStringLiteral("mnuRomMenu_SendToGroup"));
    AddDisabled(sendToGroup, FixedGroup, QStringLiteral("mnuSendToGroup_FixedGroup"));
    sendToGroup->addSeparator();
    AddDisabled(sendToGroup, QStringLiteral("&New Group..."),
                QStringLiteral("mnuSendToGroup_NewGroup"));
    sendToGroup->setEnabled(false);

    QMenu* snapshot = m_mnuRomMenu->addMenu(QStringLiteral("&Snapshot..."));
    snapshot->setObjectName(QStringLiteral("mnuRomMenu_Snapshot"));
    AddDisabled(snapshot, QStringLiteral("&Change..."), QStringLiteral("mnuSnapshot_Change"));
    AddDisabled(snapshot, QStringLiteral("&Open..."), QStringLiteral("mnuSnapshot_Open"));
    AddDisabled(snapshot, QStringLiteral("Remo&ve"), QStringLiteral("mnuSnapshot_Remove"));
    snapshot->setEnabled(false);

    m_mnuRomMenu->addSeparator();
    AddDisabled(m_mnuRomMenu, QStringLiteral("Remo&ve"), QStringLiteral("mnuRomMenu_Remove"));
    AddDisabled(m_mnuRomMenu, QStringLiteral("Re&name"), QStringLiteral("mnuRomMenu_Rename"));
    m_mnuRomMenu->addSeparator();
    AddDisabled(m_mnuRomMenu, QStringLiteral("Game &Info..."),
                QStringLiteral("mnuRomMenu_GameInfo"));
}

void RomMenu::Prepare(int gameIndex) {
    m_gameIndex = gameIndex;
    const bool hasGame = gameIndex >= 0;
    m_mnuLaunchUsing->setEnabled(hasGame);
    m_mnuProfile->setEnabled(hasGame);
    if (!hasGame)
        return;
    PrepareLaunchUsing();
    PrepareProfiles();
}

void RomMenu::PrepareLaunchUsing() {
    if (m_mnuLaunchUsing->actions().size() < EmulatorTable::Count) {
        for (const EmulatorRecord& emulator : m_state.Emulators.Records)
            m_mnuLaunchUsing->addAction(emulator.Name)->setCheckable(true);
        m_mnuLaunchUsing->addSeparator();
        m_mnuLaunchUsing->addAction(QStringLiteral("Default"))->setCheckable(true);
    }
    const QString& emulator = m_state.Games.Records[m_gameIndex].Emulator;
    for (QAction* item : m_mnuLaunchUsing->actions())
        item->setChecked(!item->isSeparator() &&
                         item->text().compare(emulator, Qt::CaseInsensitive) == 0);
}

void RomMenu::PrepareProfiles() {
    m_profiles.Build(m_state.Store, m_state.Games.Records[m_gameIndex]);
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
