#include "ui/frmMain.h"

#include "app/Startup.h"
#include "base/AppTitle.h"
#include "base/EventLog.h"
#include "base/Prompts.h"
#include "catalogue/AppState.h"
#include "catalogue/GameFilter.h"
#include "catalogue/GroupViews.h"
#include "catalogue/PlayStatistics.h"
#include "catalogue/ScanReport.h"
#include "launch/Launcher.h"
#include "platform/PathResolver.h"
#include "platform/ShortPath.h"
#include "snapshots/Snapshot.h"
#include "ui/BusyPointer.h"
#include "ui/FindGameField.h"
#include "ui/FirstRunHint.h"
#include "ui/MainWindowLayout.h"
#include "ui/RomMenu.h"
#include "ui/ScreenFit.h"
#include "ui/SnapshotPane.h"
#include "ui/frmAbout.h"
#include "ui/frmEventLog.h"
#include "ui/frmExportGameList.h"
#include "ui/frmGroupManager.h"
#include "ui/frmLoadGameList.h"
#include "ui/frmSettings.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPixmap>
#include <QScreen>
#include <QSignalBlocker>
#include <QStatusBar>
#include <algorithm>

namespace {

const QString Store = QStringLiteral("reg");
const QString RomFoldersPage = QStringLiteral("ROM Folders");
// Longer captions (a hand-edited store can hold any length) are cut for display;
// the line's whole caption stays in the shown lines.
constexpr int ShownCaptionLength = 256;
using MainWindowLayout::FilterTop;
using MainWindowLayout::ListTop;

QString ShownCaption(const QString& caption) {
    return caption.size() > ShownCaptionLength ? caption.left(ShownCaptionLength) + QChar(0x2026)
                                               : caption;
}

QAction* AddAction(QMenu* menu, const QString& caption, const QString& name) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    return action;
}

} // namespace

frmMain::frmMain(AppState& state, Prompts& prompts, SystemShell& shell, Launcher& launcher,
                 QWidget* parent)
    : QMainWindow(parent), m_state(state), m_prompts(prompts), m_shell(shell),
      m_launcher(launcher) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(AppTitle);
    CreateControls();
    CreateMenus();
}

void frmMain::CreateControls() {
    m_inner = new QWidget(this);
    setCentralWidget(m_inner);

    m_cboGroupList = new QComboBox(m_inner);
    m_cboGroupList->setObjectName(QStringLiteral("cboGroupList"));
    connect(m_cboGroupList, &QComboBox::activated, this, &frmMain::cboGroupList_Click);

    m_txtFilter = new FindGameField(m_inner);
    connect(m_txtFilter, &QLineEdit::textChanged, this, &frmMain::txtFilter_Change);
    connect(m_txtFilter, &FindGameField::PlayFirst, this, &frmMain::txtFilter_PlayFirst);
    connect(m_txtFilter, &FindGameField::ToList, this,
            [this] { m_lstGameList->setFocus(Qt::TabFocusReason); });

    m_lstGameList = new QListWidget(m_inner);
    m_lstGameList->setObjectName(QStringLiteral("lstGameList"));
    m_lstGameList->setUniformItemSizes(true); // one line each: no text is measured per item
    m_lstGameList->installEventFilter(this);
    m_lstGameList->viewport()->installEventFilter(this);
    connect(m_lstGameList, &QListWidget::currentRowChanged, this, &frmMain::lstGameList_Click);
    connect(m_lstGameList, &QListWidget::itemDoubleClicked, this, &frmMain::lstGameList_DblClick);

    m_picSnapshot = new SnapshotPane(m_inner);
    m_picSnapshot->setObjectName(QStringLiteral("picSnapshot"));

    m_stbStatusBar = new QStatusBar(this);
    m_stbStatusBar->setObjectName(QStringLiteral("stbStatusBar"));
    setStatusBar(m_stbStatusBar);
    m_lblScanReport = new QLabel(m_stbStatusBar);
    m_lblScanReport->setObjectName(QStringLiteral("lblScanReport"));
    m_stbStatusBar->addPermanentWidget(m_lblScanReport);
    m_lblScanReport->hide();
    m_firstRunHint =
        new FirstRunHint(m_lstGameList, m_stbStatusBar, [this] { OpenSettings(RomFoldersPage); });
    m_inner->installEventFilter(this); // once its children exist
}

void frmMain::CreateMenus() {
    QMenu* options = menuBar()->addMenu(QStringLiteral("&Options"));
    options->setObjectName(QStringLiteral("mnuOptions"));
    connect(AddAction(options, QStringLiteral("&Group Manager"),
                      QStringLiteral("mnuOptions_GroupManager")),
            &QAction::triggered, this, &frmMain::mnuOptions_GroupManager_Click);
    connect(AddAction(options, QStringLiteral("&Front-End Settings..."),
                      QStringLiteral("mnuOptions_Settings")),
            &QAction::triggered, this, [this] { OpenSettings(); });
    connect(AddAction(options, QStringLiteral("Game F&olders..."),
                      QStringLiteral("mnuOptions_GameFolders")),
            &QAction::triggered, this, [this] { OpenSettings(RomFoldersPage); });
    QMenu* exportMenu = options->addMenu(QStringLiteral("&Export..."));
    exportMenu->setObjectName(QStringLiteral("mnuOptions_Export"));
    connect(AddAction(exportMenu, QStringLiteral("Game &List"),
                      QStringLiteral("mnuOptions_Export_GameList")),
            &QAction::triggered, this,
            [this] { frmExportGameList(m_state, m_prompts, m_shell, this).exec(); });
    options->addSeparator();
    connect(
        AddAction(options, QStringLiteral("&About Lumbra..."), QStringLiteral("mnuOptions_About")),
        &QAction::triggered, this, [this] { frmAbout(m_prompts, m_shell, this).exec(); });
    options->addSeparator();
    connect(AddAction(options, QStringLiteral("E&xit"), QStringLiteral("mnuOptions_Exit")),
            &QAction::triggered, this, [this] { CloseFor(FormCode); });

    m_romMenu = new RomMenu(m_state, m_prompts, m_shell, *this, this);
    menuBar()->addMenu(m_romMenu->Menu());
    m_romMenu->AddKeysTo({m_lstGameList, m_txtFilter});
    QAction* find = AddAction(options, QStringLiteral("F&ind a Game"), QStringLiteral("mnuFind"));
    find->setShortcut(QKeySequence::Find);
    options->insertAction(options->actions().constFirst(), find);
    connect(find, &QAction::triggered, m_txtFilter, &FindGameField::Focus);
    connect(m_romMenu->Menu(), &QMenu::aboutToShow, this,
            [this] { m_romMenu->Prepare(CurrentGame()); });

    m_mnuDevMenu = menuBar()->addMenu(QStringLiteral("&Debug Options"));
    m_mnuDevMenu->setObjectName(QStringLiteral("mnuDevMenu"));
    connect(AddAction(m_mnuDevMenu, QStringLiteral("&Toggle Event Log"),
                      QStringLiteral("mnuDevMenu_ToggleEventLog")),
            &QAction::triggered, this, [this] { frmEventLog::Toggle(this); });
    m_mnuDevMenu->addSeparator()->setObjectName(QStringLiteral("mnuDevMenu_Bar"));
    connect(AddAction(m_mnuDevMenu, QStringLiteral("&Save Game List"),
                      QStringLiteral("mnuDevMenu_SaveGameList")),
            &QAction::triggered, this, [this] { ExportGameList(m_state, Store, QString()); });
    connect(AddAction(m_mnuDevMenu, QStringLiteral("Sa&ve Group List"),
                      QStringLiteral("mnuDevMenu_SaveGroupList")),
            &QAction::triggered, this, [this] { ExportGroupList(m_state, Store, QString()); });
    connect(AddAction(m_mnuDevMenu, QStringLiteral("Save &Rom Folder List"),
                      QStringLiteral("mnuDevMenu_SaveRomFolderList")),
            &QAction::triggered, this,
            [this] { ExportGameFolders(m_state.Store, m_state.GameFolders, Store, QString()); });
    m_mnuDevMenu->menuAction()->setVisible(false);
}

void frmMain::Form_Load() {
    BusyPointer busy;
    ApplyPlacement();
    LogWindowLoaded(objectName());
    m_mnuDevMenu->menuAction()->setVisible(EventLog::DebugMode());
    ImportGroupList(m_state, Store, QString());
    cboGroupList_AddGroupList();
    {
        frmLoadGameList progress(this);
        ShowScanReport(RebuildGameList(m_state, progress));
    }
    const QString& defaultGroup = m_state.Options.DefaultGroup;
    SelectGroup(cboGroupList_SearchIndex(defaultGroup) >= 0 ? defaultGroup : FixedGroup);
    m_lstGameList->setFocus(); // the keys pick, start and open the menu of games at once
    m_loaded = true;
    Form_Resize();
}

void frmMain::cboGroupList_AddGroupList() {
    LogEvent(QStringLiteral("Adding groups to ") + objectName() +
             QStringLiteral(".cboGroupList..."));
    m_cboGroupList->clear();
    m_cboGroupList->addItems(SelectorLines(m_state.Groups));
    LogEvent(QStringLiteral("Done."), true);
}

int frmMain::cboGroupList_SearchIndex(const QString& text) const {
    for (int i = 0; i < m_cboGroupList->count(); ++i) {
        if (m_cboGroupList->itemText(i).compare(text, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

int frmMain::cboGroupList_IndexOrUngrouped(const QString& group) const {
    const int index = cboGroupList_SearchIndex(group);
    return index >= 0 ? index : cboGroupList_SearchIndex(FixedGroup);
}

int frmMain::lstGameList_SearchIndex(const QString& caption) const {
    for (qsizetype row = 0; row < m_shownLines.size(); ++row) {
        if (m_shownLines.at(row).Caption.compare(caption, Qt::CaseInsensitive) == 0)
            return static_cast<int>(row);
    }
    return -1;
}

void frmMain::lstGameList_AddGameList(const QString& group) {
    LogEvent(QStringLiteral("Adding games to list for group: ") + group + QStringLiteral("..."));
    m_listing.Fill(m_state.Games, group);
    ShowListing();
    LogEvent(QStringLiteral("Done."), true);
}

// The list holds the shown captions only, added at once: a keystroke in the filter
// may list a thousand lines again.
void frmMain::ShowListing() {
    m_shownLines = m_listing.Lines(GameFilter(m_txtFilter->text()));
    QStringList captions;
    captions.reserve(m_shownLines.size());
    for (const GameLine& line : m_shownLines)
        captions.append(ShownCaption(line.Caption));
    m_lstGameList->clear();
    m_lstGameList->addItems(captions);
}

void frmMain::txtFilter_Change() {
    {
        const QSignalBlocker quiet(m_lstGameList);
        ShowListing();
    }
    SelectGameLine(0);
}

// Enter in the filter: the first game shown is played as a double click plays it.
void frmMain::txtFilter_PlayFirst() {
    if (m_lstGameList->count() == 0)
        return;
    SelectGameLine(0);
    lstGameList_DblClick();
}

// Selects the group's line in the selector, or "Ungrouped" when it is gone, as a click would.
void frmMain::SelectGroup(const QString& group) {
    m_cboGroupList->setCurrentIndex(cboGroupList_IndexOrUngrouped(group));
    cboGroupList_Click();
}

void frmMain::cboGroupList_Click() {
    const QString group = m_cboGroupList->currentText();
    if (group == m_currentGroup)
        return;
    BusyPointer busy;
    lstGameList_AddGameList(group);
    if (m_lstGameList->count() > 0)
        m_lstGameList->setCurrentRow(0);
    m_currentGroup = group;
    UpdateStatusBar();
}

void frmMain::lstGameList_Click() {
    const int row = m_lstGameList->currentRow();
    if (row < 0)
        return;
    m_selectedGame = m_shownLines.at(row).Index;
    if (m_selectedGame >= 0 && m_state.Options.Snapshots_Show == 1)
        ShowSnapshot(m_state.Games.Records[m_selectedGame].Filename,
                     m_state.Options.SnapshotFolder);
    UpdateStatusBar();
}

void frmMain::lstGameList_DblClick() {
    if (!m_lstGameList->currentItem())
        return;
    {
        BusyPointer busy;
        m_launching = true;
        m_launcher.LaunchEmu(m_selectedGame);
        m_launching = false;
    }
    if (m_closeAfterLaunch) {
        CloseFor(*m_closeAfterLaunch);
        return;
    }
    lstGameList_Click(); // the snapshot may have changed during play
}

int frmMain::CurrentGame() const {
    return m_lstGameList->currentItem() ? m_selectedGame : -1;
}

// Selects the line at row, or the last line when row is past the end, and shows
// its game; an empty list shows the no-snapshot picture.
void frmMain::SelectGameLine(int row) {
    const int count = m_lstGameList->count();
    if (count == 0) {
        ShowNoSnapshot();
        UpdateStatusBar();
        return;
    }
    {
        const QSignalBlocker quiet(m_lstGameList);
        m_lstGameList->setCurrentRow(std::clamp(row, 0, count - 1));
    }
    lstGameList_Click();
}

int frmMain::GameRow(int gameIndex) const {
    for (qsizetype row = 0; row < m_shownLines.size(); ++row) {
        if (m_shownLines.at(row).Index == gameIndex)
            return static_cast<int>(row);
    }
    return -1;
}

QString frmMain::ShownGroup() const {
    return m_cboGroupList->currentText();
}

// The new caption takes its place in the order; the game stays selected, unless the
// filter no longer finds it.
void frmMain::ReplaceGameLine() {
    const int row = m_lstGameList->currentRow();
    if (row < 0)
        return;
    {
        const QSignalBlocker quiet(m_lstGameList);
        m_listing.Fill(m_state.Games, m_currentGroup);
        ShowListing();
    }
    const int moved = GameRow(m_selectedGame);
    SelectGameLine(moved >= 0 ? moved : row);
}

void frmMain::RefillGameList() {
    const int row = m_lstGameList->currentRow();
    {
        const QSignalBlocker quiet(m_lstGameList);
        lstGameList_AddGameList(m_currentGroup);
    }
    SelectGameLine(row);
}

// The game has left the shown group; "All Games" still lists it on its line.
void frmMain::RemoveGameLine() {
    const int row = m_lstGameList->currentRow();
    if (row < 0)
        return;
    {
        const QSignalBlocker quiet(m_lstGameList);
        m_listing.Fill(m_state.Games, m_currentGroup);
        ShowListing();
    }
    SelectGameLine(row);
}

void frmMain::RefillGroupList() {
    cboGroupList_AddGroupList();
    m_cboGroupList->setCurrentIndex(cboGroupList_IndexOrUngrouped(m_currentGroup));
}

void frmMain::SwitchToGroup(const QString& group, const QString& caption) {
    SelectGroup(group);
    const int row = lstGameList_SearchIndex(caption);
    if (row >= 0)
        SelectGameLine(row);
}

void frmMain::RefreshGame() {
    lstGameList_Click();
}

void frmMain::ShowSnapshot(const QString& fileName, const QString& snapshotFolder) {
    const std::optional<QString> snapshot = FindSnapshot(fileName, snapshotFolder);
    if (!snapshot)
        return;
    if (snapshot->isEmpty() || !ShowPicture(*snapshot))
        ShowNoSnapshot();
}

void frmMain::ShowNoSnapshot() {
    const QString& noSnapPic = m_state.Options.Snapshots_NoSnapPic;
    if (noSnapPic.isEmpty() || !ShowPicture(GetShortPath(noSnapPic)))
        m_picSnapshot->ShowText(QStringLiteral("No snapshot"));
}

// The picture file goes into the snapshot pane; false when it cannot be read.
bool frmMain::ShowPicture(const QString& path) {
    return m_picSnapshot->ShowPicture(path);
}

void frmMain::OpenSettings(const QString& page) {
    frmSettings settings(m_state, m_prompts, m_shell, this, this);
    settings.ShowPage(page);
    settings.exec();
}

void frmMain::UpdateStatusBar() {
    m_romMenu->SetGame(CurrentGame());
    m_firstRunHint->SetShown(m_state.GameFolders.Count() == 0);
    if (m_firstRunHint->IsShown())
        return;
    const int listed = m_lstGameList->count();
    QString text =
        QStringLiteral("%1 game%2 in %3").arg(listed).arg(listed == 1 ? "" : "s", m_currentGroup);
    if (const QString typed = m_txtFilter->text().simplified(); !typed.isEmpty())
        text += QStringLiteral(" matching \"") + typed + QLatin1Char('"');
    if (m_selectedGame >= 0 && m_lstGameList->currentItem()) {
        // The path comes last, as the real file spells it: a narrow window cuts it first.
        const GameRecord& game = m_state.Games.Records[m_selectedGame];
        text +=
            QStringLiteral("   |   ") + PlayStatisticsText(ReadPlayStatistics(m_state.Store, game));
        text +=
            QStringLiteral("   |   ") + PathResolver().ResolveOrKeep(game.Folder + game.Filename);
    }
    m_stbStatusBar->showMessage(text);
}

// Files the scan left out stay named in the status bar: a full catalogue, say.
void frmMain::ShowScanReport(const ScanReport& report) {
    m_lblScanReport->setText(report.Summary());
    m_lblScanReport->setToolTip(report.Summary());
    m_lblScanReport->setVisible(!report.IsComplete());
}

void frmMain::mnuOptions_GroupManager_Click() {
    const QString remembered = m_cboGroupList->currentText();
    {
        frmGroupManager manager(m_state, m_prompts, this);
        manager.exec();
    }
    cboGroupList_AddGroupList();
    SelectGroup(remembered);
}

void frmMain::Form_Resize() {
    const int width = m_inner->width();
    const int height = m_inner->height();
    if (m_state.Options.Snapshots_Show == 0 || m_state.Options.Snapshots_Show == 1)
        m_layoutWithSnapshot = m_state.Options.Snapshots_Show == 1;
    int listWidth = width - 10;
    if (!m_layoutWithSnapshot) {
        m_picSnapshot->hide();
    } else {
        m_picSnapshot->show();
        m_picSnapshot->setGeometry(MainWindowLayout::SnapshotPaneGeometry({width, height}));
        listWidth = m_picSnapshot->x() - 10;
    }
    m_cboGroupList->setGeometry(5, 5, listWidth, m_cboGroupList->sizeHint().height());
    m_txtFilter->setGeometry(5, FilterTop, listWidth, m_txtFilter->sizeHint().height());
    m_lstGameList->setGeometry(5, ListTop, listWidth, height - ListTop - 5);
    if (m_loaded)
        StorePlacement();
}

int frmMain::TwipsToPixels(int twips) const {
    return qRound(static_cast<double>(twips) * logicalDpiX() / 1440.0);
}

int frmMain::PixelsToTwips(int pixels) const {
    return qRound(static_cast<double>(pixels) * 1440.0 / logicalDpiX());
}

void frmMain::ApplyPlacement() {
    WindowPlacement& placement = m_state.Options.MainForm;
    // A damaged placement must not leave the window too small to find.
    if (placement.Width <= 0 || placement.Height <= 0)
        placement = WindowPlacement();
    if (placement == WindowPlacement()) {
        PlaceFirstWindow();
        return;
    }
    setGeometry(TwipsToPixels(placement.Left), TwipsToPixels(placement.Top),
                TwipsToPixels(placement.Width), TwipsToPixels(placement.Height));
    if (placement.State == 1)
        setWindowState(Qt::WindowMinimized);
    else if (placement.State == 2)
        setWindowState(Qt::WindowMaximized);
}

// No placement is stored yet: a window with room for a snapshot at 2x and 20 lines
// of the list, as much of it as the screen holds, in the middle of the screen.
void frmMain::PlaceFirstWindow() {
    const int lineHeight = QFontMetrics(m_lstGameList->font()).height() + 2;
    const QSize inner = MainWindowLayout::FirstInnerSize(lineHeight, m_picSnapshot->frameWidth());
    const int chrome = menuBar()->sizeHint().height() + statusBar()->sizeHint().height();
    QRect placed(QPoint(),
                 QSize(inner.width(), inner.height() + chrome).boundedTo(RoomOnScreen(this)));
    if (const QScreen* shown = screen())
        placed.moveCenter(shown->availableGeometry().center());
    setGeometry(placed);
}

// The state always; the normal placement only while the window is neither
// minimised nor maximised, so the last normal placement survives a maximised run.
void frmMain::StorePlacement() {
    WindowPlacement& placement = m_state.Options.MainForm;
    if (isMinimized()) {
        placement.State = 1;
    } else if (isMaximized()) {
        placement.State = 2;
    } else {
        placement.State = 0;
        const QRect normal = geometry();
        placement.Left = PixelsToTwips(normal.x());
        placement.Top = PixelsToTwips(normal.y());
        placement.Width = PixelsToTwips(normal.width());
        placement.Height = PixelsToTwips(normal.height());
    }
}

void frmMain::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange)
        StorePlacement();
    QMainWindow::changeEvent(event);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_inner && event->type() == QEvent::Resize) {
        Form_Resize();
    } else if (watched == m_lstGameList && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            lstGameList_DblClick();
            return true;
        }
        // The context-menu key and Shift+F10 open the game menu below the selected line.
        if (key->key() == Qt::Key_Menu ||
            (key->key() == Qt::Key_F10 && key->modifiers() == Qt::ShiftModifier)) {
            if (QListWidgetItem* item = m_lstGameList->currentItem())
                PopupRomMenu(m_lstGameList->viewport()->mapToGlobal(
                    m_lstGameList->visualItemRect(item).bottomLeft()));
            return true;
        }
        if (m_txtFilter->TakeKeyFromList(key))
            return true;
    } else if (watched == m_lstGameList->viewport() &&
               event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::RightButton && m_lstGameList->currentItem()) {
            PopupRomMenu(mouse->globalPosition().toPoint());
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

// The menu prepares itself for the selected game as it opens.
void frmMain::PopupRomMenu(const QPoint& position) {
    m_romMenu->Menu()->popup(position);
}

void frmMain::CloseFor(CloseReason reason) {
    m_closeReason = reason;
    close();
    m_closeReason = FormControlMenu;
}

void frmMain::SaveEverythingBusy() {
    BusyPointer busy;
    if (!isMinimized() && !isMaximized())
        StorePlacement();
    SaveEverything(m_state);
}

bool frmMain::SaveForClose() {
    for (;;) {
        SaveEverythingBusy();
        const QString failure = m_state.Store.WriteError();
        if (failure.isEmpty())
            return true;
        LogEvent(failure);
        const PromptAnswer answer = m_prompts.Message(
            failure + QStringLiteral("\r\n\r\nTry again? No quits without saving; Cancel keeps ") +
                AppTitle + QStringLiteral(" open."),
            PromptButtons::YesNoCancel, PromptIcon::Critical);
        if (answer != PromptAnswer::Yes)
            return answer == PromptAnswer::No;
    }
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (m_closed) {
        event->accept();
        return;
    }
    if (m_launching) {
        // The end of the session or the task list while a game is played: the
        // launch finishes first (the wizard included), then the window closes.
        m_closeAfterLaunch = m_closeReason;
        event->ignore();
        return;
    }
    if (EventLog::DebugMode()) {
        if (frmEventLog* log = frmEventLog::Instance())
            log->hide();
        hide();
        const PromptAnswer answer = m_prompts.Message(
            QStringLiteral("View the Event Log before Ending?"), PromptButtons::YesNoCancel);
        if (answer == PromptAnswer::Cancel) {
            event->ignore();
            frmEventLog::Open()->show();
            show();
            return;
        }
        if (!SaveForClose()) {
            event->ignore();
            show();
            return;
        }
        if (answer == PromptAnswer::Yes) {
            LogEvent(QStringLiteral("\r\nWaiting to End ") + AppTitle +
                     QStringLiteral(" (Unload Mode ") + QString::number(m_closeReason) +
                     QLatin1Char(')'));
            frmEventLog::ShowModal();
        }
    } else if (!SaveForClose()) {
        event->ignore();
        return;
    }
    m_closed = true;
    event->accept();
    emit Closed();
}
