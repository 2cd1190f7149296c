#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

// What Lumbra knows about the emulators it finds by itself, read from data files:
// how to find each one, how to start it, and where it writes its screenshots, save
// states and battery saves. No emulator is named in code; README.md, section
// "Emulators", describes the file format.

// One way an emulator may be installed, tried in the entry's order.
struct FindRule {
    enum class Kind {
        Program, // a program name searched in PATH
        File,    // a path; its file name may hold one "*" (AppImages)
        Flatpak  // an application id, installed when an exports folder holds it
    };
    Kind Type = Kind::Program;
    QString Target;
    // Put between the program and the rest of the command ("run", ..., the id for a
    // Flatpak, which is started through the flatpak program).
    QStringList Arguments;
    // Replace the entry's home and core folders for this kind of install.
    QString Home;
    QStringList CoreFolders;
};

// A folder that is the emulator's home when it expands and, if IfExists is given,
// that file exists.
struct HomeRule {
    QString Folder;
    QString IfExists;
};

// A subfolder added when a switch of the emulator's settings file is "true".
struct SubfolderRule {
    QString Setting;
    QString Folder;
};

// Where one kind of file goes: Folder, unless the emulator's settings file moves it
// (Setting holds another folder: "default" or a value starting with ":" keep Folder,
// an empty value means beside the game) or puts it beside the game (BesideGameSetting
// is "true"); then the switched-on subfolders, in order.
struct FileLocation {
    QString Folder;
    QString Setting;
    QString BesideGameSetting;
    QList<SubfolderRule> Subfolders;
};

struct StateRules : FileLocation {
    int FirstSlot = 0;
    int LastSlot = -1; // no slots when below FirstSlot
    QString SlotName;
    QMap<int, QString> SlotNames; // slots named otherwise than SlotName
    QString AutoName;             // the automatic state
    QString AllName;              // one file that holds every slot
};

struct SaveRules : FileLocation {
    QString BatteryName;
};

struct ScreenshotRules : FileLocation {
    QStringList Names; // patterns of a whole file name
};

// A core file that counts as a SNES core, with its readable name and the library
// name the core gives itself (which names the per-core folders).
struct CoreRule {
    QString File;
    QString Name;
    QString Library;
};

struct CatalogueEntry {
    QString Name;
    QList<FindRule> Find;
    QList<HomeRule> Homes;
    // Emulators that take a core (a libretro frontend): one found emulator per core.
    QStringList CoreFolders;
    QStringList CoreInfoFolders;
    QStringList CoreSystems; // a core whose .info names one of these systems counts too
    QList<CoreRule> Cores;
    QStringList Command;
    bool ReadsZip = true;
    bool NamesFromInnerFile = false; // a zipped game's files named after the file inside
    QString SettingsFile;
    ScreenshotRules Screenshots;
    StateRules States;
    SaveRules Saves;

    bool TakesCores() const { return !CoreFolders.isEmpty() || !Cores.isEmpty(); }
};

struct EmulatorCatalogue {
    QList<CatalogueEntry> Entries;
    QStringList FlatpakExports;
    // What was left out, and why: one line per file or entry.
    QStringList Problems;

    // The entry of that name, without regard to case; null when there is none.
    const CatalogueEntry* Find(const QString& name) const;
};

// The catalogue installed with the program (share/lumbra/emulators/emulators.json
// beside its bin folder), or the source tree's when it runs from its build folder.
QString BuiltInCatalogueFile();
// The player's own files: $XDG_DATA_HOME/Lumbra/emulators/*.json, in name order.
QStringList PlayerCatalogueFiles();

// The built-in catalogue with the player's files laid over it.
EmulatorCatalogue LoadEmulatorCatalogue();
// The files in order: an entry of a name already read replaces the keys it gives
// ("disabled": true removes it); top-level keys replace earlier ones.
EmulatorCatalogue LoadEmulatorCatalogue(const QStringList& files);
