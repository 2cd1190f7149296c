#pragma once

#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <optional>

class EmulatorEnvironment;
struct CatalogueEntry;
struct FoundEmulator;

enum class EmulatorFileKind {
    StateSlot,
    AutoState,
    AllStates, // one file that holds every slot
    BatterySave
};

struct EmulatorFile {
    EmulatorFileKind Kind = EmulatorFileKind::StateSlot;
    int Slot = -1; // state slots only
    QString Path;
    bool Exists = false;

    friend bool operator==(const EmulatorFile&, const EmulatorFile&) = default;
};

// Where a found emulator writes its files for one game, and under which names. A
// folder is empty when the catalogue does not say where that kind of file goes.
struct EmulatorGameFiles {
    QString Base; // the name the emulator gives the game's files
    QString StateFolder;
    QString SaveFolder;
    QString ScreenshotFolder;
    // Each slot in order, then the automatic state, then the file of all slots: every
    // file the emulator may write, whether it exists or not.
    QList<EmulatorFile> States;
    std::optional<EmulatorFile> Battery;
    // A whole file name of one of the game's screenshots.
    QRegularExpression ScreenshotName;

    bool IsScreenshot(const QString& fileName) const;
    // The game's screenshots now in the screenshot folder: full paths, in name order.
    QStringList Screenshots() const;
    // The states and the battery save that exist, in the order above.
    QList<EmulatorFile> ExistingFiles() const;
};

// The files of the game at gamePath (its real path, an image or a zip archive) as the
// emulator names them: after the archive or the image inside, per the catalogue; with
// the game's md5 where the names hold it (of the image without its 512-byte copier
// header). The emulator's own settings file moves the folders as the catalogue says,
// and the player's folders of the found emulator win over both.
EmulatorGameFiles GameFilesFor(const CatalogueEntry& entry, const FoundEmulator& emulator,
                               const QString& gamePath, const EmulatorEnvironment& environment);
