#include "emulators/FoundEmulatorTable.h"

#include <utility>

namespace {

QString KindName(EmulatorFileKind kind) {
    switch (kind) {
    case EmulatorFileKind::StateSlot:
        return QStringLiteral("state");
    case EmulatorFileKind::AutoState:
        return QStringLiteral("auto state");
    case EmulatorFileKind::AllStates:
        return QStringLiteral("all states");
    case EmulatorFileKind::BatterySave:
        return QStringLiteral("battery save");
    }
    return QString();
}

} // namespace

FoundEmulatorTable::FoundEmulatorTable(const SettingsStore& store, EmulatorCatalogue catalogue,
                                       EmulatorEnvironment environment)
    : m_catalogue(std::move(catalogue)), m_environment(std::move(environment)),
      m_emulators(ReadFoundEmulators(store)) {}

const FoundEmulator* FoundEmulatorTable::Find(const QString& name) const {
    for (const FoundEmulator& emulator : m_emulators) {
        if (emulator.Name.compare(name, Qt::CaseInsensitive) == 0)
            return &emulator;
    }
    return nullptr;
}

const CatalogueEntry* FoundEmulatorTable::EntryOf(const FoundEmulator& emulator) const {
    return m_catalogue.Find(emulator.Entry);
}

std::optional<EmulatorCommand> FoundEmulatorTable::Command(const QString& name,
                                                           const QString& options,
                                                           const QString& gamePath) const {
    const FoundEmulator* emulator = Find(name);
    if (!emulator)
        return std::nullopt;
    return ExpandEmulatorCommand(*emulator, options, gamePath);
}

bool FoundEmulatorTable::ReadsZip(const QString& name) const {
    const FoundEmulator* emulator = Find(name);
    const CatalogueEntry* entry = emulator ? EntryOf(*emulator) : nullptr;
    return entry && entry->ReadsZip;
}

std::optional<EmulatorGameFiles> FoundEmulatorTable::GameFiles(const QString& name,
                                                               const QString& gamePath) const {
    const FoundEmulator* emulator = Find(name);
    const CatalogueEntry* entry = emulator ? EntryOf(*emulator) : nullptr;
    if (!entry)
        return std::nullopt;
    return GameFilesFor(*entry, *emulator, gamePath, m_environment);
}

QList<SavedGameFile> FoundEmulatorTable::SavedFiles(const QString& gamePath) const {
    QList<SavedGameFile> saved;
    for (const FoundEmulator& emulator : m_emulators) {
        const std::optional<EmulatorGameFiles> files = GameFiles(emulator.Name, gamePath);
        if (!files)
            continue;
        for (const EmulatorFile& file : files->ExistingFiles())
            saved.append({emulator.Name, KindName(file.Kind), file.Slot, file.Path});
        for (const QString& screenshot : files->Screenshots())
            saved.append({emulator.Name, QStringLiteral("screenshot"), -1, screenshot});
    }
    return saved;
}
