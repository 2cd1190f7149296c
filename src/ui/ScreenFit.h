#pragma once

#include <QSize>

class QLayout;
class QScrollArea;
class QWidget;

// Windows that fit a small screen (1280x800 at twice the scale is 640x400): a long
// page scrolls, and a window opens no larger than the screen holds.

// The layout's controls on a page inside a scroll area that has no frame: the page
// scrolls when the window is smaller than the page.
QScrollArea* ScrollingPage(QLayout* layout, QWidget* parent);

// The room a window has on its screen, its frame aside.
QSize RoomOnScreen(const QWidget* window);

// Sizes the window to its size hint, as far as its screen holds it.
void ResizeToFit(QWidget* window);
