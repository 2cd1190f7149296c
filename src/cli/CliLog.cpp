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

void CliLog::Append(const QString& text) {
    m_text += text;
    if (m_echo) {
        std::fputs(text.toLocal8Bit().constData(), stderr);
        std::fflush(stderr);
    }
}

QString CliLog::LastLine() const {
    return m_text.mid(m_text.lastIndexOf(QStringLiteral("\r\n")) + 2);
}
