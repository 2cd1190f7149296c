#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <optional>

class EmulatorTable;
class SettingsStore;

// The main window's placement, in twips (1/1440 inch), and its state
// (0 normal, 1 minimised, 2 maximised).
struct WindowPlacement {
    qint32 Left = 1860;
    qint32 Top = 1260;
    qint32 Width = 6810;
    qint32 Height = 4260;
    qint16 State = 0;

    friend bool operator==(const WindowPlacement&, const WindowPlacement&) = default;
};

// Every global option, with its default. Flags hold check-box states (0 off, 1 on)
// and keep any other integer as read.
struct Settings {
    // Section "Folders": folders of this system, filled in by DefaultSettings()
    QString SnapshotFolder;
    QString SPCFolder;
    QString ExportFolder;
    QString UnzipFolder;

    // Section "Settings"
    QString SPC_App = QStringLiteral("zdspc.exe;");
    qint16 SPC_DisplayList = 0;
    QString SPC_OpenWith = QStringLiteral("%WIN");
    qint16 SPC_ShowMenu = 1;
    qint16 SPC_UseWizard = 1;
    QString DefaultEmulator = QStringLiteral("ZSnes");
    QString DefaultGroup = QStringLiteral("Ungrouped");
    qint16 AutoSwitchGroup = 1;
    qint16 RomBatchFileSupport = 1;
    qint16 UseBaseFilenames = 0;
    qint16 StateClickDeletes = 0;
    qint16 Snapshots_AutoRenameAll = 0;
    qint16 Snapshots_AutoUse1st = 0;
    qint16 Snapshots_HideIfPicExists = 1;
    QString Snapshots_NoSnapPic;
    qint16 Snapshots_Show = 1;
    qint16 Snapshots_UseWizard = 1;
    // While Lumbra waits for the emulator, the command line is shown before it starts.
    qint16 ShowCommandLine = 1;
    WindowPlacement MainForm;

    friend bool operator==(const Settings&, const Settings&) = default;
};

// The settings of a first run. Folders are ones that exist or can be made on this
// system: snapshots in Lumbra's data folder (made when first written to), exports
// and SPC files in the home folder, unzipped games in the temporary folder.
Settings DefaultSettings();

// The settings of the "Folders" and "Settings" sections by their store keys, as
// lumbra-cli's config command names them (any letter case): "Snapshot Folder",
// "DefaultEmulator", "MainForm" ... The emulators' own keys are not among them.
QStringList SettingKeys();
// The key's value as the store would hold it; nothing for an unknown key.
std::optional<QString> SettingText(const Settings& options, const QString& key);
enum class SettingChange { Done, UnknownKey, NotANumber };
// Numbers must be whole numbers of the setting's range; "MainForm" takes
// "left;top;width;height;state" in twips.
SettingChange SetSettingText(Settings& options, const QString& key, const QString& text);

// Move every setting (and the emulators' folders and default profiles) between
// memory and the store. The file target only logs what it would do.
void ImportSettings(const SettingsStore& store, Settings& options, EmulatorTable& emulators,
                    const QString& target, const QString& path);
void ExportSettings(SettingsStore& store, const Settings& options, const EmulatorTable& emulators,
                    const QString& target, const QString& path);
