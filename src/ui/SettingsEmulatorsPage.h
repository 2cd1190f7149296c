#pragma once

#include "ui/SettingsPage.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
struct EmulatorRecord;

// "Emulators": each emulator's folders and default profile, and the default emulator;
// below, the emulators Lumbra finds on the system ("Find Emulators"), which can be
// edited or removed, and which the "Default:" selector offers after the three.
class SettingsEmulatorsPage final : public SettingsPage {
    Q_OBJECT
public:
    explicit SettingsEmulatorsPage(SettingsContext& context);

    void Fill() override;
    QString SelectedEmulator() const;

private:
    EmulatorRecord& SelectedRecord();
    void cboEmulator_Click();
    void cmdEmuSettings_Click();
    void cmdFindEmulators_Click();
    void cmdEditFoundEmulator_Click();
    void cmdRemoveFoundEmulator_Click();
    // Tells the player when the last write of the settings failed; true then.
    bool ReportStoreFailure();
    // The found emulators in the list and in the "Default:" selector.
    void ShowFoundEmulators();

    QComboBox* m_cboEmulator = nullptr;
    QComboBox* m_cboDefaultEmulator = nullptr;
    QLineEdit* m_txtDefaultProfile = nullptr;
    QLabel* m_lblLaunchFiles = nullptr;
    QListWidget* m_lstFoundEmulators = nullptr;
};
