#pragma once

#include "savestates/SaveStateMenu.h"

#include <QList>
#include <QObject>
#include <array>

class QAction;
class QMenu;
class SystemShell;
struct AppState;

// The "Sa&ve States" submenu of the game menu: one submenu per emulator with its
// save-state slots and SRAM file, rebuilt for the game each time it opens; after the
// three, one submenu per emulator Lumbra found, with the files it writes for the game.
class SaveStatesMenu final : public QObject {
    Q_OBJECT
public:
    SaveStatesMenu(AppState& state, SystemShell& shell, QMenu* romMenu);

    QMenu* Menu() const { return m_mnuSaveStates; }
    // The game whose files the menu lists; -1 for none.
    void SetGame(int gameIndex) { m_gameIndex = gameIndex; }

private:
    void mnuSaveStates_Click();
    void ShowItems(SaveStateMenu items);
    void Item_Click(int emulator, int slot); // slot -1 is the SRAM item
    void ShowFoundEmulators();

    AppState& m_state;
    SystemShell& m_shell;
    int m_gameIndex = -1;
    QMenu* m_mnuSaveStates = nullptr;
    std::array<QAction*, EmulatorTable::Count> m_sramItems{};
    std::array<QList<QAction*>, EmulatorTable::Count> m_stateItems;
    SaveStateMenu m_items;
    QList<QMenu*> m_foundMenus;
};
