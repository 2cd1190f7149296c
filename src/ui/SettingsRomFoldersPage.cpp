#include "ui/SettingsRomFoldersPage.h"

#include "base/ErrorReport.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "catalogue/GameFolderCommands.h"
#include "platform/SystemShell.h"
#include "ui/frmLoadGameList.h"
#include "ui/frmMain.h"

#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

SettingsRomFoldersPage::SettingsRomFoldersPage(SettingsContext& context)
    : SettingsPage(context, QStringLiteral("ROM Folders")) {
    m_lstRomFolders = new QListWidget(this);
    m_lstRomFolders->setObjectName(QStringLiteral("lstRomFolders"));
    connect(m_lstRomFolders, &QListWidget::currentRowChanged, this,
            &SettingsRomFoldersPage::lstRomFolders_Click);
    QPushButton* add = AddButton(QStringLiteral("cmdRomFolders_Add"), QStringLiteral("&Add..."));
    connect(add, &QPushButton::clicked, this, &SettingsRomFoldersPage::cmdRomFolders_Add_Click);
    m_cmdRomFolders_Remove =
        AddButton(QStringLiteral("cmdRomFolders_Remove"), QStringLiteral("&Remove"));
    m_cmdRomFolders_Remove->setEnabled(false);
    connect(m_cmdRomFolders_Remove, &QPushButton::clicked, this,
            &SettingsRomFoldersPage::cmdRomFolders_Remove_Click);
    m_lblRomCount = new QLabel(QStringLiteral("ROM Count"), this);
    m_lblRomCount->setObjectName(QStringLiteral("lblRomCount"));

    auto* grid = new QGridLayout(this);
    grid->addWidget(m_lstRomFolders, 0, 0, 4, 1);
    grid->addWidget(add, 0, 1);
    grid->addWidget(m_cmdRomFolders_Remove, 1, 1);
    grid->addWidget(m_lblRomCount, 4, 0, 1, 2);
    grid->setRowStretch(3, 1);
}

void SettingsRomFoldersPage::Fill() {
    m_lstRomFolders->clear();
    for (const GameFolder& folder : m_context.State.GameFolders.Entries) {
        if (folder.Path.isEmpty())
            break;
        m_lstRomFolders->addItem(folder.Path);
    }
}

void SettingsRomFoldersPage::lstRomFolders_Click() {
    const QListWidgetItem* item = m_lstRomFolders->currentItem();
    m_cmdRomFolders_Remove->setEnabled(item != nullptr);
    if (!item)
        return;
    const GameFolderList& folders = m_context.State.GameFolders;
    const int index = folders.FindGameFolderIndex(item->text());
    if (index >= 0)
        m_lblRomCount->setText(QStringLiteral("Game Count: ") +
                               QString::number(folders.Entries[index].RomCount));
}

void SettingsRomFoldersPage::cmdRomFolders_Add_Click() {
    // The browser opens at the selected game folder, else the last one.
    const QListWidgetItem* near = m_lstRomFolders->currentItem();
    if (!near && m_lstRomFolders->count() > 0)
        near = m_lstRomFolders->item(m_lstRomFolders->count() - 1);
    const std::optional<QString> chosen = m_context.Shell.BrowseForFolder(
        QStringLiteral("Please choose a folder containing SNES games:"),
        near ? near->text() : QString());
    if (!chosen)
        return;
    const QString folder = AddBackslash(QDir::toNativeSeparators(*chosen));
    frmLoadGameList progress(this);
    const FolderAddResult added = AddGameFolderAndScan(m_context.State, folder, progress);
    if (added.Result == FolderAddResult::LostAfterAdd)
        ShowErrorReport(m_context.UserPrompts, 0, QStringLiteral("An unexpected error accured!"),
                        QStringLiteral("cmdRomFolders_Add_Click"));
    if (added.Result != FolderAddResult::Added)
        return;
    m_lstRomFolders->addItem(folder);
    RefreshMainWindow(added.Report);
}

void SettingsRomFoldersPage::cmdRomFolders_Remove_Click() {
    QListWidgetItem* item = m_lstRomFolders->currentItem();
    if (!item)
        return;
    frmLoadGameList progress(this);
    RefreshMainWindow(RemoveGameFolderAndReload(m_context.State, item->text(), progress));
    delete item;
}

void SettingsRomFoldersPage::RefreshMainWindow(const std::optional<ScanReport>& report) {
    if (!m_context.MainWindow)
        return;
    m_context.MainWindow->RefillGameList();
    if (report)
        m_context.MainWindow->ShowScanReport(*report);
}
