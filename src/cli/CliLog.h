#pragma once

#include "base/EventLog.h"

// The command-line front's event log. It keeps the text so that a refused change
// can report its reason, and with --debug it also writes the text to standard
// error as it grows, exactly as the log window would hold it.
class CliLog final : public EventLogView {
public:
    explicit CliLog(bool echo);
    ~CliLog() override;

    QString Text() const override { return m_text; }
    void Append(const QString& text) override;

    // The log's last line: the outcome of the last operation.
    QString LastLine() const;

private:
    QString m_text;
    bool m_echo;
};
