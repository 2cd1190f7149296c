#pragma once

#include "catalogue/GameListing.h"
#include "ui/GameListView.h"

#include <QMainWindow>
#include <optional>

class FindGameField;
class FirstRunHint;
class Launcher;
class Prompts;
class QComboBox;
class QLabel;
class SnapshotPane;
class QListWidget;
class QMenu;
class QStatusBar;
class RomMenu;
class SystemShell;
struct AppState;
struct ScanReport;

// The main window: the group selector, the selected group's games, the selected
// game's snapshot, the menus, and the load and close sequences.
class frmMain final : public QMainWindow, public GameListView {
    Q_OBJECT
public:
    // Why the window closes: the close box, the program (Exit), the end of the
    // player's session, or the task list.
    enum CloseReason { FormControlMenu = 0, FormCode = 1, AppWindows = 2, FormTaskManager = 3 };

    frmMain(AppState& state, Prompts& prompts, SystemShell& shell, Launcher& launcher,
            QWidget* parent = nullptr);

    // Restores the placement, imports the groups, rebuilds the game list and shows
    // the default group. Called once before the window is shown.
    void Form_Load();
    // Lays the controls out for the snapshot setting and stores the placement.
    void Form_Resize();
    // Closes the window for the given reason, running the close sequence.
    void CloseFor(CloseReason reason);

    int cboGroupList_SearchIndex(const QString& text) const;
    int lstGameList_SearchIndex(const QString& caption) const;

    // Opens the settings dialog on the named page, or on the first.
    void OpenSettings(const QString& page = QString());
    // Names the files a scan left out in the status bar (a full catalogue, say).
    void ShowScanReport(const ScanReport& report);

    // What the game menu changes.
    QString ShownGroup() const override;
    void ReplaceGameLine() override;
    void RefillGameList() override;
    void RemoveGameLine() override;
    void RefillGroupList() override;
    void SwitchToGroup(const QString& group, const QString& caption) override;
    void RefreshGame() override;

signals:
    // The window has closed for good: the program ends.
    void Closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CreateControls();
    void CreateMenus();
    void cboGroupList_AddGroupList();
    void lstGameList_AddGameList(const QString& group);
    // Lists the lines of the listing that the typed words keep.
    void ShowListing();
    void txtFilter_Change();
    void txtFilter_PlayFirst();
    void SelectGroup(const QString& group);
    // The selector line of the group, or of "Ungrouped" when the group is gone.
    int cboGroupList_IndexOrUngrouped(const QString& group) const;
    void cboGroupList_Click();
    void lstGameList_Click();
    void lstGameList_DblClick();
    // The selected game, or -1 while no line is selected.
    int CurrentGame() const;
    void SelectGameLine(int row);
    // The row that lists the game, or -1.
    int GameRow(int gameIndex) const;
    void PopupRomMenu(const QPoint& position);
    void ShowSnapshot(const QString& fileName, const QString& snapshotFolder);
    void ShowNoSnapshot();
    bool ShowPicture(const QString& path);
    // The status bar and the game menu's keys follow the selected game.
    void UpdateStatusBar();
    void mnuOptions_GroupManager_Click();
    void SaveEverythingBusy();
    // Saves for the close; when the store cannot be written, asks whether to try
    // again, to quit without saving (true) or to keep the window open (false).
    bool SaveForClose();
    void ApplyPlacement();
    void PlaceFirstWindow();
    void StorePlacement();
    int TwipsToPixels(int twips) const;
    int PixelsToTwips(int pixels) const;

    AppState& m_state;
    Prompts& m_prompts;
    SystemShell& m_shell;
    Launcher& m_launcher;
    QString m_currentGroup;
    // The current group's games, sorted, with the texts that the filter searches.
    GameListing m_listing;
    // The game behind each line of the list, row by row.
    QList<GameLine> m_shownLines;
    int m_selectedGame = -1;
    CloseReason m_closeReason = FormControlMenu;
    bool m_loaded = false;
    bool m_closed = false;
    // A close asked for while a game is played waits until the launch returns.
    bool m_launching = false;
    std::optional<CloseReason> m_closeAfterLaunch;
    // The layout that an odd snapshot setting keeps: the last one applied.
    bool m_layoutWithSnapshot = true;

    QWidget* m_inner = nullptr;
    QComboBox* m_cboGroupList = nullptr;
    FindGameField* m_txtFilter = nullptr;
    QListWidget* m_lstGameList = nullptr;
    SnapshotPane* m_picSnapshot = nullptr;
    QStatusBar* m_stbStatusBar = nullptr;
    QLabel* m_lblScanReport = nullptr;
    FirstRunHint* m_firstRunHint = nullptr;
    QMenu* m_mnuDevMenu = nullptr;
    RomMenu* m_romMenu = nullptr;
};
