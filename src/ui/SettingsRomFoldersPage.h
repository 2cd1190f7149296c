#pragma once

#include "catalogue/ScanReport.h"
#include "ui/SettingsPage.h"

#include <optional>

class QLabel;
class QListWidget;
class QPushButton;

// "ROM Folders": the game folders, each with the number of games its last scan found.
class SettingsRomFoldersPage final : public SettingsPage {
    Q_OBJECT
public:
    explicit SettingsRomFoldersPage(SettingsContext& context);

    void Fill() override;

private:
    void lstRomFolders_Click();
    void cmdRomFolders_Add_Click();
    void cmdRomFolders_Remove_Click();
    // The main window's list for its group, and what a scan left out.
    void RefreshMainWindow(const std::optional<ScanReport>& report);

    QListWidget* m_lstRomFolders = nullptr;
    QPushButton* m_cmdRomFolders_Remove = nullptr;
    QLabel* m_lblRomCount = nullptr;
};
