#include "ui/MainWindowLayout.h"

#include "ui/SnapshotPane.h"

#include <algorithm>

namespace MainWindowLayout {

namespace {

int ListWidthAtLeast(int innerWidth) {
    return std::max(ListMinimumWidth, innerWidth / 3);
}

} // namespace

QRect SnapshotPaneGeometry(QSize inner) {
    const QSize area(inner.width() - ListWidthAtLeast(inner.width()) - 3 * Margin,
                     inner.height() - 2 * Margin);
    const QSize pane = SnapshotPane::SizeWithin(area);
    return {inner.width() - pane.width() - Margin, Margin, pane.width(), pane.height()};
}

QSize FirstInnerSize(int listLineHeight, int paneFrame) {
    const QSize pane = SnapshotPane::ScreenSize * FirstPictureStep + QSize(2, 2) * paneFrame;
    const int height = std::max(pane.height() + 2 * Margin,
                                ListTop + ListLines * listLineHeight + 2 * paneFrame + Margin);
    int width = pane.width() + ListMinimumWidth + 3 * Margin;
    while (SnapshotPaneGeometry({width, height}).width() < pane.width() ||
           SnapshotPaneGeometry({width, height}).height() < pane.height())
        ++width;
    return {width, height};
}

} // namespace MainWindowLayout
