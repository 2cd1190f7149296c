#include "ui/SaveStatesMenu.h"

#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "emulators/FoundEmulatorTable.h"
#include "platform/PathResolver.h"
#include "savestates/FoundSaveStates.h"

#include <QMenu>

namespace {

void Show(QAction* action, const SaveStateItem& item) {
    action->setText(item.Caption);
    action->setEnabled(item.Enabled);
}

EmulatorSaveFile::Kind SaveFileKind(EmulatorFileKind kind) {
    switch (kind) {
    case EmulatorFileKind::StateSlot:
        return EmulatorSaveFile::Kind::Slot;
    case EmulatorFileKind::AutoState:
        return EmulatorSaveFile::Kind::Auto;
    case EmulatorFileKind::AllStates:
        return EmulatorSaveFile::Kind::AllSlots;
    case EmulatorFileKind::BatterySave:
        break;
    }
    return EmulatorSaveFile::Kind::Battery;
}

QList<EmulatorSaveFile> SaveFiles(const EmulatorGameFiles& files) {
    QList<EmulatorSaveFile> saveFiles;
    for (const EmulatorFile& file : files.States)
        saveFiles.append({SaveFileKind(file.Kind), file.Slot, file.Path, file.Exists});
    if (files.Battery)
        saveFiles.append(
            {EmulatorSaveFile::Kind::Battery, -1, files.Battery->Path, files.Battery->Exists});
    return saveFiles;
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
    ShowFoundEmulators();
}

void SaveStatesMenu::ShowFoundEmulators() {
    for (QMenu* submenu : std::as_const(m_foundMenus)) {
        m_mnuSaveStates->removeAction(submenu->menuAction());
        submenu->setObjectName(QString());
        submenu->deleteLater();
    }
    m_foundMenus.clear();
    if (m_gameIndex < 0)
        return;
    const GameRecord& game = m_state.Games.Records[m_gameIndex];
    const QString gamePath =
        PathResolver().ResolveOrKeep(AddBackslash(game.Folder) + game.Filename);
    const FoundEmulatorTable table(m_state.Store, LoadEmulatorCatalogue());
    for (const FoundEmulator& emulator : table.Emulators()) {
        const std::optional<EmulatorGameFiles> files = table.GameFiles(emulator.Name, gamePath);
        if (!files)
            continue;
        const FoundEmulatorSaveStates items =
            BuildFoundSaveStates(emulator.Name, SaveFiles(*files));
        QString caption = emulator.Name;
        QMenu* submenu =
            m_mnuSaveStates->addMenu(caption.replace(QLatin1Char('&'), QStringLiteral("&&")));
        const QString prefix = QStringLiteral("mnuSaveStates_") + emulator.Name + QLatin1Char('_');
        submenu->setObjectName(prefix.chopped(1));
        const auto add = [this, submenu](const SaveStateItem& item, const QString& name) {
            QAction* action = submenu->addAction(QString());
            action->setObjectName(name);
            action->setStatusTip(item.Tag);
            Show(action, item);
            connect(action, &QAction::triggered, this,
                    [this, item] { SaveStateItemClick(m_state, m_shell, item); });
        };
        // Named as the three's are: "..._State(0)", then "..._Auto", "..._All", "..._SRAM".
        for (const SaveStateItem& item : items.States)
            add(item,
                prefix + QStringLiteral("State") + item.Caption.section(QLatin1Char(' '), 0, 0));
        for (const SaveStateItem& item : items.Others)
            add(item, prefix + item.Caption.section(QLatin1Char(' '), 0, 0).mid(1).chopped(1));
        submenu->addSeparator();
        add(items.Battery, prefix + QStringLiteral("SRAM"));
        m_foundMenus.append(submenu);
    }
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
