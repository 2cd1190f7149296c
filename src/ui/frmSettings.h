#pragma once

#include "ui/SettingsPage.h"

#include <QDialog>
#include <QMap>

class QTabWidget;
class SettingsEmulatorsPage;

// The settings dialog: five pages whose controls change the settings as the player
// works, with no Cancel. "&Close" stores the game folders and the settings; closing
// by the window frame (or Escape) stores the settings only.
class frmSettings final : public QDialog {
    Q_OBJECT
public:
    // mainWindow, when given, is refreshed as game folders come and go and re-lays
    // itself out as the snapshot switches change.
    frmSettings(AppState& state, Prompts& prompts, SystemShell& shell, frmMain* mainWindow,
                QWidget* parent = nullptr);
    ~frmSettings() override;

    // Brings the page of that name ("ROM Folders", any letter case) to the front.
    void ShowPage(const QString& name);

public slots:
    void reject() override;

private:
    void AddPage(SettingsPage* page);
    void Form_Load();
    void cmdClose_Click();

    SettingsContext m_context;
    QTabWidget* m_tabSettings = nullptr;
    SettingsEmulatorsPage* m_emulators = nullptr;
    QMap<QString, SettingsPage*> m_pages; // by lower-case name
};
