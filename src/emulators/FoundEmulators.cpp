#include "emulators/FoundEmulators.h"

#include "config/Emulators.h"
#include "config/SettingsStore.h"

#include <algorithm>
#include <iterator>

namespace {

using Field = QString FoundEmulator::*;
// The stored fields, in order.
constexpr Field Fields[] = {&FoundEmulator::Entry,
                            &FoundEmulator::Program,
                            &FoundEmulator::Core,
                            &FoundEmulator::Command,
                            &FoundEmulator::DefaultProfile,
                            &FoundEmulator::Home,
                            &FoundEmulator::ScreenshotFolder,
                            &FoundEmulator::StateFolder,
                            &FoundEmulator::SaveFolder};

QString Escape(QString text) {
    return text.replace(QLatin1Char('%'), QStringLiteral("%25"))
        .replace(QLatin1Char(';'), QStringLiteral("%3B"));
}

QString Unescape(QString text) {
    return text.replace(QStringLiteral("%3B"), QStringLiteral(";"))
        .replace(QStringLiteral("%25"), QStringLiteral("%"));
}

} // namespace

QString FoundEmulatorValue(const FoundEmulator& emulator) {
    QStringList fields;
    for (const Field field : Fields)
        fields.append(Escape(emulator.*field));
    return fields.join(QLatin1Char(';'));
}

FoundEmulator ParseFoundEmulator(const QString& name, const QString& value) {
    FoundEmulator emulator;
    emulator.Name = name;
    const QStringList fields = value.split(QLatin1Char(';'));
    for (qsizetype index = 0; index < std::ssize(Fields); ++index)
        emulator.*Fields[index] = Unescape(fields.value(index));
    return emulator;
}

QList<FoundEmulator> ReadFoundEmulators(const SettingsStore& store) {
    QList<FoundEmulator> emulators;
    for (const auto& [name, value] : store.ListSection(FoundEmulatorsSection))
        emulators.append(ParseFoundEmulator(name, value));
    std::sort(emulators.begin(), emulators.end(), [](const auto& first, const auto& second) {
        return first.Name.compare(second.Name, Qt::CaseInsensitive) < 0;
    });
    return emulators;
}

std::optional<FoundEmulator> FindFoundEmulator(const SettingsStore& store, const QString& name) {
    for (const FoundEmulator& emulator : ReadFoundEmulators(store)) {
        if (emulator.Name.compare(name, Qt::CaseInsensitive) == 0)
            return emulator;
    }
    return std::nullopt;
}

void WriteFoundEmulator(SettingsStore& store, const FoundEmulator& emulator) {
    store.Write(FoundEmulatorsSection, emulator.Name, FoundEmulatorValue(emulator));
    store.Sync();
}

bool RemoveFoundEmulator(SettingsStore& store, const QString& name) {
    const std::optional<FoundEmulator> found = FindFoundEmulator(store, name);
    if (!found)
        return false;
    store.Remove(FoundEmulatorsSection, found->Name);
    store.Sync();
    return true;
}

std::optional<QString> EmulatorName(const SettingsStore& store, const QString& name) {
    for (const QLatin1String designName : EmulatorTable::Names) {
        if (name.compare(designName, Qt::CaseInsensitive) == 0)
            return QString(designName);
    }
    if (const std::optional<FoundEmulator> found = FindFoundEmulator(store, name))
        return found->Name;
    return std::nullopt;
}

StoredDetection StoreDetectedEmulators(SettingsStore& store, const QList<FoundEmulator>& detected) {
    const QList<FoundEmulator> before = ReadFoundEmulators(store);
    StoredDetection stored;
    for (FoundEmulator emulator : detected) {
        const auto earlier = std::find_if(before.begin(), before.end(), [&](const auto& old) {
            return old.Name == emulator.Name;
        });
        if (earlier != before.end()) {
            if (earlier->Program == emulator.Program && earlier->Home == emulator.Home)
                emulator.Command = earlier->Command;
            emulator.DefaultProfile = earlier->DefaultProfile;
            emulator.ScreenshotFolder = earlier->ScreenshotFolder;
            emulator.StateFolder = earlier->StateFolder;
            emulator.SaveFolder = earlier->SaveFolder;
        }
        stored.Found.append(emulator);
    }
    for (const FoundEmulator& old : before) {
        const bool again = std::any_of(stored.Found.begin(), stored.Found.end(),
                                       [&](const auto& found) { return found.Name == old.Name; });
        if (!again)
            stored.Gone.append(old.Name);
    }
    const SettingsStore::Batch oneWrite(store);
    store.DeleteSection(FoundEmulatorsSection);
    for (const FoundEmulator& emulator : stored.Found)
        store.Write(FoundEmulatorsSection, emulator.Name, FoundEmulatorValue(emulator));
    store.Sync();
    return stored;
}
