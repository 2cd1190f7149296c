#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

// What of the process environment says where emulators are installed and where they
// keep their files: the home folder, the XDG base folders, PATH, and any variable a
// catalogue entry names (such as MEDNAFEN_HOME). Tests build one from their own
// variables instead of changing the process's.
class EmulatorEnvironment {
public:
    explicit EmulatorEnvironment(
        const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());

    QString Home() const;
    // $XDG_CONFIG_HOME when it is an absolute path, else ~/.config.
    QString ConfigHome() const;
    // $XDG_DATA_HOME when it is an absolute path, else ~/.local/share.
    QString DataHome() const;
    // The folders of PATH, in order; empty entries left out.
    QStringList SearchPath() const;
    // The variable's value; empty when it is not set.
    QString Variable(const QString& name) const;

private:
    QString XdgFolder(const QString& variable, const QString& fallback) const;

    QProcessEnvironment m_environment;
};
