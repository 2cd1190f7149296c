#include "support/TestFixtures.h"
#include "ui/frmEventLog.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

namespace {

const QString Loaded = QStringLiteral("\r\n\r\n=== Loaded frmEventLog ===");

class EventLogWindowTest : public LumbraTest {
protected:
    EventLogWindowTest() {
        EnableLog();
        frmEventLog::Install();
    }
    ~EventLogWindowTest() override { qDeleteAll(Windows()); }

    static QList<frmEventLog*> Windows() {
        QList<frmEventLog*> windows;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* window = qobject_cast<frmEventLog*>(widget))
                windows.append(window);
        return windows;
    }
    // The one open window (the test fails when there is not exactly one).
    static frmEventLog* Window() {
        const QList<frmEventLog*> windows = Windows();
        EXPECT_EQ(windows.size(), 1);
        return windows.value(0);
    }
    static QPlainTextEdit* TextBox() {
        frmEventLog* window = Window();
        return window ? window->findChild<QPlainTextEdit*>("txtEventLog") : nullptr;
    }
    // Closes the window as the player does and lets its deletion happen.
    static void CloseWindow() {
        Window()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

TEST_F(EventLogWindowTest, FirstLineOpensTheWindowAndLinesFollowItsLoadMarker) {
    EXPECT_TRUE(Windows().isEmpty());
    LogEvent(QStringLiteral("Exporting GroupList to: Registry... "));
    ASSERT_NE(TextBox(), nullptr);
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_FALSE(Window()->isModal());
    EXPECT_EQ(Window()->windowTitle(), "Event Log");
    EXPECT_TRUE(TextBox()->isReadOnly());

    LogEvent(QStringLiteral("Done."), true);
    LogEvent(QStringLiteral("Next"));
    EXPECT_EQ(LogText(), Loaded + "\r\nExporting GroupList to: Registry... Done.\r\nNext");
    EXPECT_EQ(TextBox()->document()->blockCount(), 5);
    EXPECT_TRUE(TextBox()->textCursor().atEnd());
}

TEST_F(EventLogWindowTest, ManyLinesStayInOrderAndTheBoxScrollsToTheNewest) {
    QString expected = Loaded;
    for (int i = 0; i < 300; ++i) {
        LogEvent(QStringLiteral("Line %1...").arg(i));
        LogEvent(QStringLiteral("Done."), true);
        expected += QStringLiteral("\r\nLine %1...Done.").arg(i);
    }
    EXPECT_EQ(LogText(), expected);
    QTest::qWait(0);
    const QScrollBar* scroll = TextBox()->verticalScrollBar();
    EXPECT_GT(scroll->maximum(), 0);
    EXPECT_EQ(scroll->value(), scroll->maximum());
}

TEST_F(EventLogWindowTest, ClosingDiscardsTheLogAndTheNextLineReopensAFreshOne) {
    LogEvent(QStringLiteral("Before"));
    CloseWindow();
    EXPECT_TRUE(Windows().isEmpty());
    LogEvent(QStringLiteral("After"));
    ASSERT_NE(Window(), nullptr);
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_EQ(LogText(), Loaded + "\r\nAfter"); // and no unload marker
}

TEST_F(EventLogWindowTest, WithoutDebugModeNoWindowIsCreated) {
    EventLog::SetDebugMode(false);
    for (int i = 0; i < 20; ++i)
        LogEvent(QStringLiteral("Line %1").arg(i), i % 2);
    EXPECT_TRUE(Windows().isEmpty());
    EXPECT_TRUE(LogText().isEmpty());
}

TEST_F(EventLogWindowTest, ToggleOpensHidesAndShowsAndKeepsTheText) {
    QWidget mainWindow;
    mainWindow.show();
    frmEventLog::Toggle(&mainWindow);
    ASSERT_NE(Window(), nullptr);
    EXPECT_TRUE(Window()->isVisible());

    frmEventLog::Toggle(&mainWindow);
    EXPECT_FALSE(Window()->isVisible());
    LogEvent(QStringLiteral("While hidden"));
    EXPECT_FALSE(Window()->isVisible());
    frmEventLog::Toggle(&mainWindow);
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_EQ(LogText(), Loaded + "\r\nWhile hidden");
}

TEST_F(EventLogWindowTest, LayoutKeepsAHundredTwipMarginAndActivationMovesTheCaretToTheEnd) {
    LogEvent(QStringLiteral("x"));
    frmEventLog* window = Window();
    window->resize(600, 400);
    const int x = qRound(100.0 * window->logicalDpiX() / 1440.0);
    const int y = qRound(100.0 * window->logicalDpiY() / 1440.0);
    EXPECT_EQ(TextBox()->geometry(), QRect(x, y, 600 - 2 * x, 400 - 2 * y));

    TextBox()->moveCursor(QTextCursor::Start);
    QEvent activate(QEvent::WindowActivate);
    QApplication::sendEvent(window, &activate);
    EXPECT_TRUE(TextBox()->textCursor().atEnd());
}

TEST_F(EventLogWindowTest, ShowModalReturnsWhenThePlayerClosesTheWindow) {
    LogEvent(QStringLiteral("Preparing to end"));
    bool wasModal = false;
    QTimer::singleShot(0, [&wasModal] {
        wasModal = frmEventLog::Instance()->isModal();
        frmEventLog::Instance()->close();
    });
    frmEventLog::ShowModal();
    EXPECT_TRUE(wasModal);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(Windows().isEmpty());
}

} // namespace
