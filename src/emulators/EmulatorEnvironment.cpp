#include "emulators/EmulatorEnvironment.h"

#include <QDir>

EmulatorEnvironment::EmulatorEnvironment(const QProcessEnvironment& environment)
    : m_environment(environment) {}

QString EmulatorEnvironment::Home() const {
    const QString home = Variable(QStringLiteral("HOME"));
    return home.isEmpty() ? QDir::homePath() : QDir::cleanPath(home);
}

QString EmulatorEnvironment::ConfigHome() const {
    return XdgFolder(QStringLiteral("XDG_CONFIG_HOME"), QStringLiteral("/.config"));
}

QString EmulatorEnvironment::DataHome() const {
    return XdgFolder(QStringLiteral("XDG_DATA_HOME"), QStringLiteral("/.local/share"));
}

QStringList EmulatorEnvironment::SearchPath() const {
    return Variable(QStringLiteral("PATH")).split(QDir::listSeparator(), Qt::SkipEmptyParts);
}

QString EmulatorEnvironment::Variable(const QString& name) const {
    return m_environment.value(name);
}

QString EmulatorEnvironment::XdgFolder(const QString& variable, const QString& fallback) const {
    const QString folder = Variable(variable);
    // The XDG base directory rules ignore a relative path.
    if (!folder.isEmpty() && QDir::isAbsolutePath(folder))
        return QDir::cleanPath(folder);
    return Home() + fallback;
}
