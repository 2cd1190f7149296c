#include "ui/ScreenFit.h"

#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QWidget>

namespace {

// Title bar and borders, which the window's geometry leaves out.
const QSize FrameRoom(16, 48);

// Asks for the whole page, where a plain scroll area asks for a few lines of it: the
// page scrolls only when the screen is too small. The room for a vertical scroll bar
// is asked for too, so that a page cut short in height is not also cut in width.
class PageScrollArea final : public QScrollArea {
public:
    using QScrollArea::QScrollArea;
    QSize sizeHint() const override {
        if (!widget())
            return QScrollArea::sizeHint();
        return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
    }
};

} // namespace

QScrollArea* ScrollingPage(QLayout* layout, QWidget* parent) {
    auto* page = new QWidget;
    page->setLayout(layout);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* area = new PageScrollArea(parent);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(page);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    return area;
}

QSize RoomOnScreen(const QWidget* window) {
    const QScreen* screen = window->screen();
    if (!screen)
        return QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    return screen->availableGeometry().size() - FrameRoom;
}

void ResizeToFit(QWidget* window) {
    window->resize(window->sizeHint().boundedTo(RoomOnScreen(window)));
}
