#pragma once

#include "base/EventLog.h"

#include <QWidget>

class QPlainTextEdit;

// The event log window: its text box holds the whole log. One instance at most;
// it is created when a line arrives in debug mode and none is open, and closing
// it discards the log, so the next line opens a fresh one.
class frmEventLog final : public QWidget, public EventLogView {
    Q_OBJECT

public:
    // Makes the event log open this window whenever it needs a view.
    static void Install();
    // The open window, creating (loading) it if there is none.
    static frmEventLog* Open();
    // The open window, or nullptr.
    static frmEventLog* Instance();
    // Hides the window if it is visible; otherwise shows it and gives the focus
    // back to focusWindow. Hiding keeps the text.
    static void Toggle(QWidget* focusWindow);
    // Shows the window modally and returns when the player closes it.
    static void ShowModal();

    ~frmEventLog() override;

    QString Text() const override;
    void Append(const QString& text) override;

signals:
    void Closed();

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    frmEventLog();
    void MoveCaretToEnd();

    QPlainTextEdit* m_txtEventLog = nullptr;
};
