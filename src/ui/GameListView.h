#pragma once

#include <QString>

// What the game menu's commands change in the main window: the game list and the
// group selector. The main window implements it.
class GameListView {
public:
    virtual ~GameListView() = default;

    // The group that the selector shows.
    virtual QString ShownGroup() const = 0;
    // The selected game shows its new caption, in its place in the sorted list, and
    // stays selected.
    virtual void ReplaceGameLine() = 0;
    // Lists the shown group again and selects the line at the old position, or the last.
    virtual void RefillGameList() = 0;
    // The selected game has left the shown group: its line goes (in "All Games" it
    // stays), and the line now at its position, or the last, is selected; an emptied
    // list shows the no-snapshot picture.
    virtual void RemoveGameLine() = 0;
    // Fills the selector again, still showing its group.
    virtual void RefillGroupList() = 0;
    // Shows the group's games with the game of that caption selected.
    virtual void SwitchToGroup(const QString& group, const QString& caption) = 0;
    // Shows the selected game again: its snapshot may have changed.
    virtual void RefreshGame() = 0;
};
