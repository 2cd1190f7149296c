#include "ui/SaveStatesMenu.h"

#include "catalogue/AppState.h"

#include <QMenu>

namespace {

void Show(QAction* action, const SaveStateItem& item) {
    action->setText(item.Caption);
    action->setEnabled(item.Enabled);
}

} // namespace

SaveStatesMenu::SaveStatesMenu(AppState& state, SystemShell& shell, QMenu* romMenu)
    : QObject(romMenu), m_state(state), m_shell(shell) {
    m_mnuSaveStates = romMenu->addMenu(QStringLiteral("Sa&ve States"));
    m_mnuSaveStates->setObjectName(QStringLiteral("mnuSaveStates"));
    for (int emulator = 0; emulator < EmulatorTable::Count; ++emulator) {
        const QString name = EmulatorTable::Names[emulator];
        QMenu* submenu = m_mnuSaveStates->addMenu(QLatin1Char('&') + name);
        submenu->setObjectName(QStringLiteral("mnuSaveStates_") + name);
        for (int slot = 0; slot < SaveStateSlots(emulator); ++slot) {
            QAction* item = submenu->addAction(QString());
            item->setObjectName(QStringLiteral("mnuSaveStates_%1_State(%2)").arg(name).arg(slot));
            connect(item, &QAction::triggered, this,
                    [this, emulator, slot] { Item_Click(emulator, slot); });
            m_stateItems[emulator].append(item);
        }
        submenu->addSeparator();
        m_sramItems[emulator] = submenu->addAction(QString());
        m_sramItems[emulator]->setObjectName(QStringLiteral("mnuSaveStates_%1_SRAM").arg(name));
        connect(m_sramItems[emulator], &QAction::triggered, this,
                [this, emulator] { Item_Click(emulator, -1); });
    }
    connect(m_mnuSaveStates, &QMenu::aboutToShow, this, &SaveStatesMenu::mnuSaveStates_Click);
    ShowItems(EmptySaveStateMenu());
}

void SaveStatesMenu::mnuSaveStates_Click() {
    if (m_gameIndex >= 0)
        ShowItems(BuildSaveStateMenu(m_state, m_gameIndex));
}

void SaveStatesMenu::ShowItems(SaveStateMenu items) {
    m_items = std::move(items);
    for (int emulator = 0; emulator < EmulatorTable::Count; ++emulator) {
        Show(m_sramItems[emulator], m_items[emulator].Sram);
        for (int slot = 0; slot < m_stateItems[emulator].size(); ++slot)
            Show(m_stateItems[emulator][slot], m_items[emulator].States[slot]);
    }
}

void SaveStatesMenu::Item_Click(int emulator, int slot) {
    const EmulatorSaveStates& items = m_items[emulator];
    SaveStateItemClick(m_state, m_shell, slot < 0 ? items.Sram : items.States.value(slot));
}
