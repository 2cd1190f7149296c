#include "snapshots/SnapshotWizard.h"
#include "support/WindowTest.h"
#include "ui/MainWindowLayout.h"
#include "ui/ScreenFit.h"
#include "ui/SnapshotPane.h"
#include "ui/frmProfileEditor.h"
#include "ui/frmSnapshotWizard.h"

#include <QFontMetrics>
#include <QLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

// 1280x800 at twice the scale: what every window has to fit, in logical pixels.
const QSize SmallScreen(640, 400);

// The smallest size the window can be given: what its layout needs, or its fixed size.
QSize SmallestSize(const QWidget* window) {
    QSize smallest = window->minimumSize();
    if (const QLayout* layout = window->layout();
        layout && layout->sizeConstraint() != QLayout::SetNoConstraint)
        smallest = smallest.expandedTo(layout->totalMinimumSize());
    if (window->minimumSize() == window->maximumSize())
        smallest = window->minimumSize();
    return smallest;
}

using DialogsFitTest = WindowTest;

TEST_F(DialogsFitTest, EveryDialogFitsASmallScreenAndALongFileNameLosesItsMiddle) {
    const QString name = QString(50, 'a') + "_zzzzz.smc"; // 60 characters
    SeedGames("Games", {{name, "Zelda;Ungrouped"}}, "All Games");
    StartWindow();
    List()->setCurrentRow(0);
    for (const QString entry :
         {"mnuOptions_GroupManager", "mnuOptions_Settings", "mnuOptions_Export_GameList",
          "mnuOptions_About", "mnuRomMenu_GameInfo"}) {
        QSize smallest; // of the dialog opened through the main window's menu entry
        InDialog([&] { Control<QAction>(entry)->trigger(); },
                 [&](QDialog* dialog) {
                     smallest = SmallestSize(dialog);
                     if (entry == "mnuOptions_Export_GameList") { // its choices scroll
                         EXPECT_NE(dialog->findChild<QScrollArea*>(), nullptr);
                     }
                     if (entry != "mnuRomMenu_GameInfo")
                         return;
                     const auto* label = ControlIn<QLabel>(dialog, "lblFilename");
                     EXPECT_EQ(label->toolTip(), name); // shown whole there only
                     EXPECT_TRUE(label->text().startsWith("Filename: aaa") &&
                                 label->text().endsWith("zz.smc") &&
                                 label->text().contains(QChar(0x2026)))
                         << label->text().toStdString();
                     EXPECT_LE(QFontMetrics(label->font()).horizontalAdvance(label->text()),
                               ControlIn(dialog, "fraGeneral")->width());
                 });
        EXPECT_FALSE(smallest.isEmpty()) << entry.toStdString();
        EXPECT_EQ(smallest.boundedTo(SmallScreen), smallest) << entry.toStdString();
    }

    ScriptedPrompts prompts;
    SnapshotWizard wizard(m_state, prompts);
    frmProfileEditor editor(m_state.Store, "Snes9X");
    frmSnapshotWizard wizardWindow(wizard);
    frmEventLog::Toggle(m_window.get());
    ASSERT_NE(frmEventLog::Instance(), nullptr);
    for (const QWidget* window : std::initializer_list<const QWidget*>{
             &editor, &wizardWindow, frmEventLog::Instance(), m_window.get()}) {
        const QSize smallest = SmallestSize(window);
        EXPECT_EQ(smallest.boundedTo(SmallScreen), smallest) << window->objectName().toStdString();
    }
}

TEST(ScreenFitTest, APageCutShortInHeightScrollsOnlyUpAndDown) {
    QDialog dialog;
    auto* page = new QVBoxLayout;
    for (int line = 0; line < 200; ++line)
        page->addWidget(new QLabel(QStringLiteral("A line of the page, %1").arg(line)));
    QScrollArea* area = ScrollingPage(page, &dialog);
    (new QVBoxLayout(&dialog))->addWidget(area);
    ResizeToFit(&dialog);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    EXPECT_LE(dialog.height(), RoomOnScreen(&dialog).height());
    EXPECT_TRUE(area->verticalScrollBar()->isVisible());
    EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
}

TEST(MainWindowLayoutTest, TheFirstWindowHoldsA2xSnapshotAnd20LinesAndPicturesScaleByWholeSteps) {
    for (const int lineHeight : {14, 18, 24}) {
        const QSize inner = MainWindowLayout::FirstInnerSize(lineHeight, 1);
        const QRect pane = MainWindowLayout::SnapshotPaneGeometry(inner);
        EXPECT_EQ(FitPicture({256, 224}, pane.size() - QSize(2, 2)).Size, QSize(512, 448));
        EXPECT_GE(inner.height() - MainWindowLayout::ListTop - 5, 20 * lineHeight);
        EXPECT_GE(pane.left() - 10, 240); // the list's width
        // With a menu bar, a status bar and the window's frame, on 1280x800.
        EXPECT_LE(inner.width() + 16, 1280);
        EXPECT_LE(inner.height() + 2 * 30 + 48, 800);
    }
    // Pictures scale by whole steps and shrink smoothly.
    EXPECT_EQ(FitPicture({256, 224}, {800, 700}).Size, QSize(768, 672)); // 3x
    EXPECT_TRUE(FitPicture({256, 224}, {800, 700}).Sharp);
    EXPECT_EQ(FitPicture({256, 224}, {767, 700}).Size, QSize(512, 448)); // 3x no longer fits
    EXPECT_EQ(FitPicture({256, 224}, {256, 224}).Size, QSize(256, 224));
    EXPECT_FALSE(FitPicture({4000, 3000}, {512, 448}).Sharp);
    EXPECT_EQ(FitPicture({4000, 3000}, {512, 448}).Size, QSize(512, 384)); // its own shape
    EXPECT_EQ(SnapshotPane::SizeWithin({1000, 448}), QSize(512, 448));
    EXPECT_EQ(SnapshotPane::SizeWithin({512, 1000}), QSize(512, 448));
}

} // namespace
