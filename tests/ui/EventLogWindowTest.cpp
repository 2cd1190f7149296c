#include "support/TestFixtures.h"
#include "support/WidgetSteps.h"
#include "ui/frmEventLog.h"

#include <QScrollBar>

namespace {

const QString Loaded = "\r\n\r\n=== Loaded frmEventLog ===";

class EventLogWindowTest : public LumbraTest {
protected:
    ~EventLogWindowTest() override { qDeleteAll(Windows()); }
    static QList<QWidget*> Windows() {
        QList<QWidget*> windows = QApplication::topLevelWidgets();
        windows.removeIf([](QWidget* widget) { return !qobject_cast<frmEventLog*>(widget); });
        return windows;
    }
    // The one open window (the test fails when there is not exactly one).
    static frmEventLog* Window() {
        EXPECT_EQ(Windows().size(), 1);
        return frmEventLog::Instance();
    }
    static QPlainTextEdit* TextBox() { return Window()->findChild<QPlainTextEdit*>("txtEventLog"); }
};

TEST_F(EventLogWindowTest, OpensWithTheFirstLineFollowsTheNewestAndClosingDiscardsTheLog) {
    frmEventLog::Install();
    LogEvent("Unseen"); // outside debug mode: nothing logged, no window
    EXPECT_TRUE(Windows().isEmpty() && LogText().isEmpty());
    EnableLog();
    QString expected = Loaded;
    for (int i = 0; i < 300; ++i) {
        LogEvent(QStringLiteral("Line %1...").arg(i));
        LogEvent("Done.", true);
        expected += QStringLiteral("\r\nLine %1...Done.").arg(i);
    }
    EXPECT_EQ(LogText(), expected);
    frmEventLog* window = Window();
    ASSERT_TRUE(window && window->isVisible() && !window->isModal() && TextBox()->isReadOnly());
    EXPECT_TRUE(TextBox()->document()->blockCount() == 303 && TextBox()->textCursor().atEnd());
    // Once painted, whatever the fonts, the newest line is in view.
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    QCoreApplication::processEvents();
    const QScrollBar* scroll = TextBox()->verticalScrollBar();
    EXPECT_GT(scroll->maximum(), 0);
    EXPECT_EQ(scroll->value(), scroll->maximum());
    EXPECT_TRUE(TextBox()->viewport()->rect().contains(TextBox()->cursorRect()));

    // A margin of 100 twips, and activation brings the caret back to the end.
    window->resize(600, 400);
    const int x = qRound(100.0 * window->logicalDpiX() / 1440.0);
    const int y = qRound(100.0 * window->logicalDpiY() / 1440.0);
    EXPECT_EQ(TextBox()->geometry(), QRect(x, y, 600 - 2 * x, 400 - 2 * y));
    TextBox()->moveCursor(QTextCursor::Start);
    QEvent activate(QEvent::WindowActivate);
    QApplication::sendEvent(window, &activate);
    EXPECT_TRUE(TextBox()->textCursor().atEnd());

    window->close(); // discards the log; the next line opens a fresh window
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    LogEvent("After");
    ASSERT_TRUE(Window() && Window()->isVisible());
    frmEventLog::Toggle(nullptr); // hiding keeps the text
    LogEvent("While hidden");
    EXPECT_FALSE(Window()->isVisible());
    frmEventLog::Toggle(nullptr);
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_EQ(LogText(), Loaded + "\r\nAfter\r\nWhile hidden"); // and no unload marker
}

} // namespace
