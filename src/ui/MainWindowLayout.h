#pragma once

#include <QRect>
#include <QSize>

// Where the main window's controls go inside it: the group selector, the filter
// and the game list on the left, the snapshot pane on the right.
namespace MainWindowLayout {

constexpr int Margin = 5;
constexpr int FilterTop = 33;
constexpr int ListTop = 61;
constexpr int ListLines = 20;       // what the first window shows of the list
constexpr int FirstPictureStep = 2; // and of a snapshot: one SNES screen at 2x

// The list keeps a third of the width, and never less than this.
constexpr int ListMinimumWidth = 240;

// The snapshot pane: the screen's shape, as large as the width the list leaves.
QRect SnapshotPaneGeometry(QSize inner);
// The first window's inside, when no placement is stored: room for a snapshot at
// 2x (with the pane's frame) and 20 lines of the list.
QSize FirstInnerSize(int listLineHeight, int paneFrame);

} // namespace MainWindowLayout
