#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

// Sets an environment variable until the end of the scope, then restores it.
class EnvironmentChange {
public:
    EnvironmentChange(const char* name, const QString& value)
        : m_name(name), m_was(qgetenv(name)), m_set(qEnvironmentVariableIsSet(name)) {
        qputenv(name, value.toLocal8Bit());
    }
    ~EnvironmentChange() { m_set ? qputenv(m_name, m_was) : qunsetenv(m_name); }
    EnvironmentChange(const EnvironmentChange&) = delete;
    EnvironmentChange& operator=(const EnvironmentChange&) = delete;

private:
    const char* m_name;
    QByteArray m_was;
    bool m_set;
};
