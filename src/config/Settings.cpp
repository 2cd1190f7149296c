#include "config/Settings.h"

#include "base/EventLog.h"
#include "base/StringHelpers.h"
#include "config/Emulators.h"
#include "config/SettingsStore.h"
#include "config/StorageTarget.h"

#include <QDir>
#include <QStandardPaths>
#include <algorithm>
#include <limits>
#include <variant>

namespace {

const QString FoldersSection = QStringLiteral("Folders");
const QString SettingsSection = QStringLiteral("Settings");
const QString MainFormKey = QStringLiteral("MainForm");
// An emulator's folder and save folder start empty: not set up yet.
const QString EmulatorDefault = QStringLiteral(";;");
const QString Delimiter = QStringLiteral(";");

using Member = std::variant<QString Settings::*, qint16 Settings::*>;

struct SettingKey {
    QLatin1String Key;
    Member Field;
};

// The keys of the "Folders" section before the emulators' keys, in stored order.
// "Unzip Folder" has its own default, the temporary folder.
const SettingKey FolderKeys[] = {
    {QLatin1String("Snapshot Folder"), &Settings::SnapshotFolder},
    {QLatin1String("SPC Folder"), &Settings::SPCFolder},
    {QLatin1String("Export Folder"), &Settings::ExportFolder},
    {QLatin1String("Unzip Folder"), &Settings::UnzipFolder},
};

// The keys of the "Settings" section, in stored order; "MainForm" follows them.
const SettingKey OptionKeys[] = {
    {QLatin1String("SPC_App"), &Settings::SPC_App},
    {QLatin1String("SPC_DisplayList"), &Settings::SPC_DisplayList},
    {QLatin1String("SPC_OpenWith"), &Settings::SPC_OpenWith},
    {QLatin1String("SPC_ShowMenu"), &Settings::SPC_ShowMenu},
    {QLatin1String("SPC_UseWizard"), &Settings::SPC_UseWizard},
    {QLatin1String("DefaultEmulator"), &Settings::DefaultEmulator},
    {QLatin1String("DefaultGroup"), &Settings::DefaultGroup},
    {QLatin1String("AutoSwitchGroup"), &Settings::AutoSwitchGroup},
    {QLatin1String("RomBatchFileSupport"), &Settings::RomBatchFileSupport},
    {QLatin1String("UseBaseFilenames"), &Settings::UseBaseFilenames},
    {QLatin1String("StateClickDeletes"), &Settings::StateClickDeletes},
    {QLatin1String("Snapshots_AutoRenameAll"), &Settings::Snapshots_AutoRenameAll},
    {QLatin1String("Snapshots_AutoUse1st"), &Settings::Snapshots_AutoUse1st},
    {QLatin1String("Snapshots_HideIfPicExists"), &Settings::Snapshots_HideIfPicExists},
    {QLatin1String("Snapshots_NoSnapPic"), &Settings::Snapshots_NoSnapPic},
    {QLatin1String("Snapshots_Show"), &Settings::Snapshots_Show},
    {QLatin1String("Snapshots_UseWizard"), &Settings::Snapshots_UseWizard},
    {QLatin1String("ShowCommandLine"), &Settings::ShowCommandLine},
};

// A whole number of the type written as decimal text, or nothing.
template <typename Integer> std::optional<Integer> NumberIn(const QString& text) {
    bool ok = false;
    const qlonglong value = text.trimmed().toLongLong(&ok, 10);
    if (!ok || value < std::numeric_limits<Integer>::min() ||
        value > std::numeric_limits<Integer>::max())
        return std::nullopt;
    return static_cast<Integer>(value);
}

// A number stored as decimal text. Text that is not a number of the type keeps the
// fallback; an empty text reads as emptyValue.
template <typename Integer>
Integer ParseNumber(const QString& text, Integer fallback, Integer emptyValue) {
    if (text.trimmed().isEmpty())
        return emptyValue;
    return NumberIn<Integer>(text).value_or(fallback);
}

void WriteKeys(SettingsStore& store, const QString& section, const Settings& options,
               const SettingKey* begin, const SettingKey* end) {
    for (const SettingKey* entry = begin; entry != end; ++entry) {
        if (const auto* text = std::get_if<QString Settings::*>(&entry->Field))
            store.Write(section, entry->Key, options.**text);
        else
            store.Write(section, entry->Key,
                        QString::number(options.*std::get<qint16 Settings::*>(entry->Field)));
    }
}

void ReadKeys(const SettingsStore& store, const QString& section, Settings& options,
              const Settings& defaults, const SettingKey* begin, const SettingKey* end) {
    for (const SettingKey* entry = begin; entry != end; ++entry) {
        if (const auto* text = std::get_if<QString Settings::*>(&entry->Field)) {
            options.** text = store.Read(section, entry->Key, defaults.**text);
        } else {
            const auto flag = std::get<qint16 Settings::*>(entry->Field);
            const qint16 fallback = defaults.*flag;
            options.*flag = ParseNumber(store.Read(section, entry->Key, QString::number(fallback)),
                                        fallback, fallback);
        }
    }
}

QString PlacementText(const WindowPlacement& placement) {
    return QStringList{QString::number(placement.Left), QString::number(placement.Top),
                       QString::number(placement.Width), QString::number(placement.Height),
                       QString::number(placement.State)}
        .join(Delimiter);
}

// The placement fields; a missing trailing field (the state, in the default) reads as 0.
WindowPlacement ParsePlacement(const QString& text) {
    const WindowPlacement defaults;
    const auto field = [&text](int number, auto fallback) {
        return ParseNumber(GetField(text, number, Delimiter), fallback, decltype(fallback){0});
    };
    WindowPlacement placement;
    placement.Left = field(1, defaults.Left);
    placement.Top = field(2, defaults.Top);
    placement.Width = field(3, defaults.Width);
    placement.Height = field(4, defaults.Height);
    placement.State = field(5, defaults.State);
    return placement;
}

// The emulator that an emulator key of "Folders" belongs to: looked up by name, or
// by table position while the table has not been defined yet.
int EmulatorIndexFor(const EmulatorTable& emulators, int position) {
    const int index = emulators.FindEmulatorIndex(EmulatorTable::Names[position]);
    return index >= 0 ? index : position;
}

// The entry of a "Folders" or "Settings" key, without regard to case.
const SettingKey* FindKey(const QString& key) {
    const auto named = [&key](const SettingKey& entry) {
        return key.compare(entry.Key, Qt::CaseInsensitive) == 0;
    };
    if (const auto* entry = std::find_if(std::begin(FolderKeys), std::end(FolderKeys), named);
        entry != std::end(FolderKeys))
        return entry;
    const auto* entry = std::find_if(std::begin(OptionKeys), std::end(OptionKeys), named);
    return entry != std::end(OptionKeys) ? entry : nullptr;
}

} // namespace

QStringList SettingKeys() {
    QStringList keys;
    for (const SettingKey& entry : FolderKeys)
        keys.append(entry.Key);
    for (const SettingKey& entry : OptionKeys)
        keys.append(entry.Key);
    keys.append(MainFormKey);
    return keys;
}

std::optional<QString> SettingText(const Settings& options, const QString& key) {
    if (key.compare(MainFormKey, Qt::CaseInsensitive) == 0)
        return PlacementText(options.MainForm);
    const SettingKey* entry = FindKey(key);
    if (!entry)
        return std::nullopt;
    if (const auto* text = std::get_if<QString Settings::*>(&entry->Field))
        return options.**text;
    return QString::number(options.*std::get<qint16 Settings::*>(entry->Field));
}

SettingChange SetSettingText(Settings& options, const QString& key, const QString& text) {
    if (key.compare(MainFormKey, Qt::CaseInsensitive) == 0) {
        const QStringList fields = text.split(Delimiter);
        const bool numbers =
            fields.size() == 5 && std::all_of(fields.begin(), fields.end(), [](const QString& f) {
                return NumberIn<qint32>(f).has_value();
            });
        if (!numbers)
            return SettingChange::NotANumber;
        options.MainForm = ParsePlacement(text);
        return SettingChange::Done;
    }
    const SettingKey* entry = FindKey(key);
    if (!entry)
        return SettingChange::UnknownKey;
    if (const auto* member = std::get_if<QString Settings::*>(&entry->Field)) {
        options.** member = text;
        return SettingChange::Done;
    }
    const std::optional<qint16> value = NumberIn<qint16>(text);
    if (!value)
        return SettingChange::NotANumber;
    options.*std::get<qint16 Settings::*>(entry->Field) = *value;
    return SettingChange::Done;
}

Settings DefaultSettings() {
    Settings defaults;
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    defaults.SnapshotFolder =
        AddBackslash(QDir::toNativeSeparators(data + QStringLiteral("/Lumbra/snapshots")));
    defaults.SPCFolder = AddBackslash(QDir::toNativeSeparators(QDir::homePath()));
    defaults.ExportFolder = defaults.SPCFolder;
    // A private folder: in the shared temporary folder an archive's "readme.txt"
    // would replace another program's file, and the flush would then delete it.
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    defaults.UnzipFolder =
        AddBackslash(QDir::toNativeSeparators(cache + QStringLiteral("/Lumbra/unzip")));
    return defaults;
}

void ExportSettings(SettingsStore& store, const Settings& options, const EmulatorTable& emulators,
                    const QString& target, const QString& path) {
    switch (ParseStorageTarget(target)) {
    case StorageTarget::None:
        return;
    case StorageTarget::File:
        LogEvent(QStringLiteral("Exporting Settings to file: ") + path);
        return;
    case StorageTarget::Store:
        break;
    }

    LogEvent(QStringLiteral("Exporting Settings to: Registry..."));

    WriteKeys(store, FoldersSection, options, std::begin(FolderKeys), std::end(FolderKeys));
    for (int position = 0; position < EmulatorTable::Count; ++position) {
        const EmulatorRecord& emulator = emulators.Records[EmulatorIndexFor(emulators, position)];
        store.Write(FoldersSection, EmulatorTable::Names[position],
                    emulator.Folder + Delimiter + emulator.SaveFolder + Delimiter +
                        emulator.DefaultProfile);
    }

    WriteKeys(store, SettingsSection, options, std::begin(OptionKeys), std::end(OptionKeys));
    store.Write(SettingsSection, MainFormKey, PlacementText(options.MainForm));

    store.Sync();
    LogEvent(QStringLiteral("Done."), true);
}

void ImportSettings(const SettingsStore& store, Settings& options, EmulatorTable& emulators,
                    const QString& target, const QString& path) {
    switch (ParseStorageTarget(target)) {
    case StorageTarget::None:
        return;
    case StorageTarget::File:
        LogEvent(QStringLiteral("Importing Settings from file: ") + path);
        return;
    case StorageTarget::Store:
        break;
    }

    LogEvent(QStringLiteral("Importing Settings from: Registry..."));
    const Settings defaults = DefaultSettings();

    ReadKeys(store, FoldersSection, options, defaults, std::begin(FolderKeys),
             std::end(FolderKeys));
    for (int position = 0; position < EmulatorTable::Count; ++position) {
        EmulatorRecord& emulator = emulators.Records[EmulatorIndexFor(emulators, position)];
        const QString value =
            store.Read(FoldersSection, EmulatorTable::Names[position], EmulatorDefault);
        emulator.Folder = GetField(value, 1, Delimiter);
        emulator.SaveFolder = GetField(value, 2, Delimiter);
        emulator.DefaultProfile = GetField(value, 3, Delimiter);
    }

    ReadKeys(store, SettingsSection, options, defaults, std::begin(OptionKeys),
             std::end(OptionKeys));
    options.MainForm = ParsePlacement(
        store.Read(SettingsSection, MainFormKey, QStringLiteral("1860;1260;6810;4260")));

    LogEvent(QStringLiteral("Done."), true);
}
