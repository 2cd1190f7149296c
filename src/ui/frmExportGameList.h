#pragma once

#include <QDialog>
#include <array>

class ExportWriteOrderBox;
class Prompts;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;
class SystemShell;
struct AppState;
struct ExportChoices;
struct ExportPrefs;

// The modal dialog that exports the catalogue, or the games of one folder, group or
// file pattern, as a plain-text table or an HTML page. The player's choices are
// stored when it closes, by "&Close", the window frame or Escape.
class frmExportGameList final : public QDialog {
    Q_OBJECT

public:
    frmExportGameList(AppState& state, Prompts& prompts, SystemShell& shell,
                      QWidget* parent = nullptr);
    ~frmExportGameList() override;

public slots:
    void reject() override;

private:
    void CreateControls();
    void Form_Load();
    void ApplyPrefs(const ExportPrefs& prefs);
    // Also adds a pattern the player typed to the pattern list.
    ExportPrefs ChosenPrefs();
    ExportChoices Choices() const;
    void SavePrefs();
    void optExportMethod_Click();
    void cmdExport_Click();
    // After an export: the player may open the file, or the folder that holds it.
    void OfferToOpen(const QString& path);
    void cmdClose_Click();

    AppState& m_state;
    Prompts& m_prompts;
    SystemShell& m_shell;
    std::array<QRadioButton*, 4> m_optExportMethod{};
    QComboBox* m_cboGameFolders = nullptr;
    QComboBox* m_cboGroups = nullptr;
    QComboBox* m_cboFilePatterns = nullptr;
    ExportWriteOrderBox* m_writeOrder = nullptr;
    QComboBox* m_cboSortMethods = nullptr;
    std::array<QRadioButton*, 2> m_optFileFormat{};
    QLabel* m_lblProgress = nullptr;
    QProgressBar* m_prgProgress = nullptr;
    QPushButton* m_cmdExport = nullptr;
    QPushButton* m_cmdClose = nullptr;
};
