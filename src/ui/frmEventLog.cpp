#include "ui/frmEventLog.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollBar>

namespace {

const QString WindowName = QStringLiteral("frmEventLog");
const QString LineBreak = QStringLiteral("\r\n");

QPointer<frmEventLog> g_instance;

// 100 twips (1/1440 inch) at the given dots per inch, in pixels.
int Margin(int dpi) {
    return (100 * dpi + 720) / 1440;
}

} // namespace

void frmEventLog::Install() {
    EventLog::SetViewOpener([] { Open(); });
}

frmEventLog* frmEventLog::Instance() {
    return g_instance.data();
}

frmEventLog* frmEventLog::Open() {
    if (g_instance)
        return g_instance;
    auto* window = new frmEventLog();
    g_instance = window;
    // Attached first, so that the load marker below goes into this window and
    // does not ask the log to open another one.
    EventLog::Attach(window);
    LogWindowLoaded(WindowName);
    window->show();
    return window;
}

void frmEventLog::Toggle(QWidget* focusWindow) {
    if (g_instance && g_instance->isVisible()) {
        g_instance->hide();
        return;
    }
    Open()->show();
    if (focusWindow)
        focusWindow->activateWindow();
}

void frmEventLog::ShowModal() {
    frmEventLog* window = Open();
    QEventLoop loop;
    connect(window, &frmEventLog::Closed, &loop, &QEventLoop::quit);
    connect(window, &QObject::destroyed, &loop, &QEventLoop::quit);
    window->hide();
    window->setWindowModality(Qt::ApplicationModal);
    window->show();
    window->activateWindow();
    loop.exec();
}

frmEventLog::frmEventLog() {
    setObjectName(WindowName);
    setWindowTitle(QStringLiteral("Event Log"));
    setAttribute(Qt::WA_DeleteOnClose);

    m_txtEventLog = new QPlainTextEdit(this);
    m_txtEventLog->setObjectName(QStringLiteral("txtEventLog"));
    m_txtEventLog->setReadOnly(true);
    // Read-only, but the caret still shows where the newest line is.
    m_txtEventLog->setTextInteractionFlags(Qt::TextSelectableByMouse |
                                           Qt::TextSelectableByKeyboard);
    // The text is laid out lazily, so the scroll range can still grow after a line
    // was added (at the first show, or when the fonts measure differently): while
    // the caret is at the end, the newest line stays in view.
    QScrollBar* scroll = m_txtEventLog->verticalScrollBar();
    connect(scroll, &QScrollBar::rangeChanged, this, [this, scroll](int, int maximum) {
        if (m_txtEventLog->textCursor().atEnd())
            scroll->setValue(maximum);
    });
    resize(480, 320);
}

frmEventLog::~frmEventLog() {
    EventLog::Detach(this);
    // No "=== Unloaded frmEventLog ===" here: writing it would ask the log for a
    // view again and re-open this window while the program shuts down.
}

QString frmEventLog::Text() const {
    // The text box keeps lines as blocks; the log's lines end in "\r\n".
    QString text = m_txtEventLog->toPlainText();
    text.replace(QLatin1Char('\n'), LineBreak);
    return text;
}

void frmEventLog::Append(const QString& text) {
    QTextCursor cursor(m_txtEventLog->document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(text);
    MoveCaretToEnd();
    // Painted now, so that lines written inside long loops show before the loop yields.
    m_txtEventLog->viewport()->repaint();
}

void frmEventLog::MoveCaretToEnd() {
    QTextCursor cursor = m_txtEventLog->textCursor();
    cursor.movePosition(QTextCursor::End);
    m_txtEventLog->setTextCursor(cursor);
    m_txtEventLog->ensureCursorVisible();
}

bool frmEventLog::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate)
        MoveCaretToEnd();
    return QWidget::event(event);
}

void frmEventLog::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isMinimized())
        return;
    const int marginX = Margin(logicalDpiX());
    const int marginY = Margin(logicalDpiY());
    m_txtEventLog->setGeometry(marginX, marginY, qMax(0, width() - 2 * marginX),
                               qMax(0, height() - 2 * marginY));
}

void frmEventLog::closeEvent(QCloseEvent* event) {
    // Closing unloads the window: the log loses its view and its text, and the
    // next line opens a fresh window.
    EventLog::Detach(this);
    m_txtEventLog->clear();
    if (g_instance == this)
        g_instance = nullptr;
    event->accept();
    emit Closed();
}
