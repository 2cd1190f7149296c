#include "base/EventLog.h"

namespace {

class MemoryView final : public EventLogView {
public:
    QString Text() const override { return m_text; }
    void Append(const QString& text) override { m_text += text; }
    void Clear() { m_text.clear(); }

private:
    QString m_text;
};

MemoryView g_memoryView;
EventLogView* g_view = nullptr;
std::function<void()> g_opener;

} // namespace

void EventLog::SetViewOpener(std::function<void()> opener) {
    g_opener = std::move(opener);
}

void EventLog::Attach(EventLogView* view) {
    g_view = view;
}

void EventLog::Detach(EventLogView* view) {
    if (g_view == view)
        g_view = nullptr;
}

EventLogView* EventLog::View() {
    return g_view;
}

void EventLog::OpenView() {
    if (g_view)
        return;
    if (g_opener)
        g_opener();
    if (!g_view)
        g_view = &g_memoryView;
}

void EventLog::Append(const QString& message, bool noNewLine) {
    if (!s_debugMode)
        return;
    OpenView();
    g_view->Append(noNewLine ? message : QStringLiteral("\r\n") + message);
}

QString EventLog::Text() {
    return g_view ? g_view->Text() : QString();
}

void EventLog::Reset() {
    s_debugMode = false;
    g_view = nullptr;
    g_opener = nullptr;
    g_memoryView.Clear();
}

void LogWindowLoaded(const QString& windowName) {
    LogEvent(QStringLiteral("\r\n=== Loaded ") + windowName + QStringLiteral(" ==="));
}

void LogWindowUnloaded(const QString& windowName) {
    LogEvent(QStringLiteral("\r\n=== Unloaded ") + windowName + QStringLiteral(" ==="));
}

void LogError(int errorNumber, const QString& procedureName) {
    LogEvent(QStringLiteral("Error #") + QString::number(errorNumber) +
             QStringLiteral(" accured in ") + procedureName);
}
