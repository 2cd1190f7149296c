#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>

// A system laid out in a temporary folder for finding emulators: a home folder, a
// folder that is all of PATH, and a root folder under which the emulator catalogue's
// absolute paths (/usr/lib/x86_64-linux-gnu/libretro, /var/lib/flatpak/...) are laid.
//
//     const FakeSystem system(TempPath("system"));
//     system.WriteProgram(system.Bin() + "/retroarch");
//     system.WriteFile(system.Root("/usr/lib/x86_64-linux-gnu/libretro/snes9x_libretro.so"));
//     const EmulatorCatalogue catalogue = LoadEmulatorCatalogue({system.WriteCatalogue()});
//     DetectEmulators(catalogue, EmulatorEnvironment(system.Environment()));
class FakeSystem {
public:
    explicit FakeSystem(const QString& folder);

    QString Home() const { return m_folder + QStringLiteral("/home"); }
    QString Bin() const { return m_folder + QStringLiteral("/bin"); }
    // The place of an absolute path of the real system.
    QString Root(const QString& absolutePath) const;

    // A program that only exits, with execute permission; folders made as needed.
    QString WriteProgram(const QString& path) const;
    QString WriteFile(const QString& path, const QByteArray& bytes = QByteArray()) const;

    // The built-in catalogue with every absolute path moved under the root, written to
    // path (by default in the system's folder); returns the path.
    QString WriteCatalogue(const QString& path = QString()) const;

    // HOME, PATH (Bin only), XDG_CONFIG_HOME and XDG_DATA_HOME under the home folder.
    QProcessEnvironment Environment() const;

private:
    QString m_folder;
};
