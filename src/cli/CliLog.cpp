#include "cli/CliLog.h"

#include <cstdio>

CliLog::CliLog(bool echo) : m_echo(echo) {
    EventLog::SetDebugMode(true);
    EventLog::Attach(this);
}

CliLog::~CliLog() {
    EventLog::Detach(this);
    if (m_echo)
        std::fputs("\n", stderr);
}

void CliLog::SetText(const QString& text) {
    if (m_echo) {
        const QString added = text.startsWith(m_text) ? text.mid(m_text.size()) : text;
        std::fputs(added.toLocal8Bit().constData(), stderr);
        std::fflush(stderr);
    }
    m_text = text;
}

QString CliLog::LastLine() const {
    return m_text.mid(m_text.lastIndexOf(QStringLiteral("\r\n")) + 2);
}
