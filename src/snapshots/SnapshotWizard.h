#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class Prompts;
struct AppState;

// The snapshot wizard's logic: which images were in the emulator's screenshot
// folder before play, which are new after it, and turning one of them into the
// game's snapshot. frmSnapshotWizard shows it; lumbra-cli drives it without one.
class SnapshotWizard {
public:
    SnapshotWizard(AppState& state, Prompts& prompts);
    // Unloading: renames the remaining new images when AutoRenameAll is set.
    ~SnapshotWizard();
    SnapshotWizard(const SnapshotWizard&) = delete;
    SnapshotWizard& operator=(const SnapshotWizard&) = delete;

    QString RomFilename() const;
    void SetRomFilename(const QString& fileName); // keeps the text before the first "."
    int ImageCount() const;
    QString FilePath() const;
    // Keeps only the images whose file names pass (an emulator's own screenshot
    // names); set before the folder.
    void SetImageFilter(std::function<bool(const QString&)> filter);
    void SetFilePath(const QString& folder); // takes the before list
    void SortForNewImages();                 // takes the after list, finds the new images
    bool AutoUseFirst() const;
    void SetAutoUseFirst(bool on);
    bool AutoRenameAll() const;
    void SetAutoRenameAll(bool on);
    bool FirstPicUsed() const;
    // Whether the game had a snapshot when the wizard loaded.
    bool PicExists() const;

    // The new images, in the order found (lstNewImages).
    QStringList NewImages() const;
    // The use command on the new image at index. It unloads the wizard, and so
    // renames the other new images when AutoRenameAll is set. False when the command
    // ended early, the wizard still open: the player declined to replace an existing
    // snapshot, the move failed, or no image has that index.
    bool UseSnapshot(int index);

private:
    // The window's load, at the first use that needs the files (the game's name is
    // stored first: the snapshot probe needs it), and its unload.
    void Load();
    void Unload();
    // Moves the image into the snapshot folder, asking before it replaces a snapshot.
    bool MoveToSnapshotFolder(const QString& image, const QString& target);
    void RenameRemainingImages();
    QStringList ListedImages() const;

    AppState& m_state;
    Prompts& m_prompts;
    QString m_romFilename;
    QString m_filePath;
    std::function<bool(const QString&)> m_imageFilter;
    QStringList m_before;
    QStringList m_newImages;
    bool m_autoUseFirst = false;
    bool m_autoRenameAll = false;
    bool m_firstPicUsed = false;
    bool m_picExists = false;
    bool m_loaded = false;
};

// Shows the wizard modally after play; the window's dialog, or nothing at all
// where there is no window.
class SnapshotWizardView {
public:
    virtual ~SnapshotWizardView() = default;
    virtual void ShowModal(SnapshotWizard& wizard) = 0;
};
