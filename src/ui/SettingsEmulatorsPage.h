#pragma once

#include "ui/SettingsPage.h"

class QComboBox;
class QLabel;
class QLineEdit;
struct EmulatorRecord;

// "Emulators": each emulator's folders and default profile, and the default emulator.
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

    QComboBox* m_cboEmulator = nullptr;
    QComboBox* m_cboDefaultEmulator = nullptr;
    QLineEdit* m_txtDefaultProfile = nullptr;
    QLabel* m_lblLaunchFiles = nullptr;
};
