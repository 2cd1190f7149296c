#pragma once

#include <QString>

// What the game menu's commands change in the main window: the game list and the
// group selector. The main window implements it.
class GameListView {
public:
    virtual ~GameListView() = default;

    // The group that the selector shows.
    virtual QString ShownGroup() const = 0;
    // The selected line shows the new caption and stays selected.
    virtual void ReplaceGameLine(const QString& caption) = 0;
    // Lists the shown group again and selects the line at the old position, or the last.
    virtual void RefillGameList() = 0;
    // Takes the selected line out and selects the line now at its position, or the
    // last; an emptied list shows the no-snapshot picture.
    virtual void RemoveGameLine() = 0;
    // Fills the selector again, still showing its group.
    virtual void RefillGroupList() = 0;
    // Shows the group's games with the game of that caption selected.
    virtual void SwitchToGroup(const QString& group, const QString& caption) = 0;
    // Shows the selected game again: its snapshot may have changed.
    virtual void RefreshGame() = 0;
};
