#include "config/Emulators.h"

#include "base/EventLog.h"
#include "base/StringHelpers.h"
#include "config/SettingsStore.h"

namespace {

const QString EmulatorsSection = QStringLiteral("Emulators");

// The files tried to start an emulator, in order: program information, shortcut,
// batch file, executable, and off Windows the bare name and a shell script.
QString LaunchFilesFor(const QString& name) {
    const QString base = name.toLower();
    QStringList files{base + QStringLiteral(".pif"), base + QStringLiteral(".lnk"),
                      base + QStringLiteral(".bat"), base + QStringLiteral(".exe")};
#ifndef Q_OS_WIN
    files << base << base + QStringLiteral(".sh");
#endif
    return files.join(QLatin1Char(';'));
}

} // namespace

int EmulatorTable::FindEmulatorIndex(const QString& name) const {
    if (name.isEmpty())
        return -1;
    for (int index = 0; index < Count; ++index) {
        if (Records[index].Name.compare(name, Qt::CaseInsensitive) == 0)
            return index;
    }
    return -1;
}

QString ChosenOrDefault(const QString& choice, const QString& fallback) {
    const bool useDefault =
        choice.isEmpty() || choice.compare(QLatin1String("default"), Qt::CaseInsensitive) == 0;
    return useDefault ? fallback : choice;
}

int EmulatorTable::GameEmulatorIndex(const QString& gameEmulator,
                                     const QString& defaultEmulator) const {
    return FindEmulatorIndex(ChosenOrDefault(gameEmulator, defaultEmulator));
}

void DefineEmulators(EmulatorTable& emulators, const SettingsStore& store) {
    for (int index = 0; index < EmulatorTable::Count; ++index) {
        EmulatorRecord& emulator = emulators.Records[index];
        emulator.Name = EmulatorTable::Names[index];
        emulator.LaunchFiles = LaunchFilesFor(emulator.Name);
        const QString value = store.Read(EmulatorsSection, emulator.Name);
        emulator.Folder = GetField(value, 1, QStringLiteral(";"));
        emulator.SaveFolder = GetField(value, 2, QStringLiteral(";"));
        LogEvent(QStringLiteral("Emulator Defined: ") + emulator.Name);
    }
}
