#pragma once

#include <QString>
#include <functional>

// The surface that holds the event log's text: the log window, a memory buffer,
// or the command-line front's standard error. The log has no buffer of its own.
class EventLogView {
public:
    virtual ~EventLogView() = default;
    virtual QString Text() const = 0;
    // Adds text at the end of the log, line breaks included.
    virtual void Append(const QString& text) = 0;
};

// The process-wide event log. It exists only in debug mode: outside it every
// call returns at once and nothing is kept.
class EventLog {
public:
    static bool DebugMode() { return s_debugMode; }
    static void SetDebugMode(bool on) { s_debugMode = on; }

    // Called when a line arrives and no view is attached; it is expected to
    // create a view and attach it. Without an opener the log keeps its text in
    // a memory view.
    static void SetViewOpener(std::function<void()> opener);
    static void Attach(EventLogView* view);
    static void Detach(EventLogView* view);
    static EventLogView* View();
    static void OpenView();

    static void Append(const QString& message, bool noNewLine);
    static QString Text();

    // Back to the state at program start: debug mode off, no view, no opener.
    static void Reset();

private:
    static inline bool s_debugMode = false;
};

// Appends a line (or, with noNewLine, continues the current one). The message
// is only turned into a string in debug mode, so a disabled log costs nothing.
template <typename Message> inline void LogEvent(const Message& message, bool noNewLine = false) {
    if (!EventLog::DebugMode())
        return;
    EventLog::Append(QString(message), noNewLine);
}

// The window-load and window-unload markers, each after an empty line.
void LogWindowLoaded(const QString& windowName);
void LogWindowUnloaded(const QString& windowName);

// "Error #" + number + " accured in " + procedure, as a new line.
void LogError(int errorNumber, const QString& procedureName);
