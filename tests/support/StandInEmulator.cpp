#include "support/StandInEmulator.h"

#include <QDir>
#include <QFile>

namespace {

QString ArgumentsFile(const QString& script) {
    return script + QStringLiteral(".args.txt");
}

QString FolderFile(const QString& script) {
    return script + QStringLiteral(".cwd.txt");
}

QString ReadText(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// A shell word that stands for exactly the given text.
QByteArray SingleQuoted(const QString& text) {
    return '\'' + QFile::encodeName(text).replace('\'', "'\\''") + '\'';
}

} // namespace

bool StandInEmulator::Ran() const {
    return QFile::exists(ArgumentsFile(Path));
}

QStringList StandInEmulator::Arguments() const {
    QStringList lines = ReadText(ArgumentsFile(Path)).split(QLatin1Char('\n'));
    lines.removeLast(); // after the last line's end
    return lines;
}

QString StandInEmulator::WorkingFolder() const {
    return ReadText(FolderFile(Path)).trimmed();
}

QStringList StandInEmulator::Screenshots() const {
    return QDir(SaveFolder).entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name);
}

void StandInEmulator::Reset() const {
    QFile::remove(ArgumentsFile(Path));
    QFile::remove(FolderFile(Path));
}

StandInEmulator WriteStandInEmulator(const QString& folder, const QString& name, bool executable,
                                     const QString& saveFolder) {
    StandInEmulator standIn{folder + QLatin1Char('/') + name,
                            saveFolder.isEmpty() ? folder + QStringLiteral("/save") : saveFolder};
    QDir().mkpath(standIn.SaveFolder);
    const QByteArray save = SingleQuoted(standIn.SaveFolder + QLatin1Char('/'));
    const QByteArray arguments = SingleQuoted(ArgumentsFile(standIn.Path));
    const QByteArray partial = SingleQuoted(ArgumentsFile(standIn.Path) + QStringLiteral(".part"));

    QFile script(standIn.Path);
    if (!script.open(QIODevice::WriteOnly))
        return standIn;
    script.write("#!/bin/sh\npwd -P > " + SingleQuoted(FolderFile(standIn.Path)) + "\nn=1\n");
    script.write("while [ -e " + save + "shot$n.png ]; do n=$((n + 1)); done\n");
    script.write("echo screenshot > " + save + "shot$n.png\n: > " + partial + "\n");
    script.write("for argument in \"$@\"; do printf '%s\\n' \"$argument\" >> " + partial +
                 "; done\n");
    script.write("mv " + partial + " " + arguments + "\nexit 0\n");
    script.close();

    QFile::Permissions permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    if (executable)
        permissions |= QFile::ExeOwner | QFile::ExeGroup;
    script.setPermissions(permissions);
    return standIn;
}

QString WriteStandInScript(const QString& path, const QByteArray& lines) {
    QFile script(path);
    if (script.open(QIODevice::WriteOnly)) {
        script.write("#!/bin/sh\n" + lines + '\n');
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    return path;
}
