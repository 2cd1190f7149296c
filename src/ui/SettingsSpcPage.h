#pragma once

#include "ui/SettingsPage.h"

class QLineEdit;
class QToolButton;
class QRadioButton;

// "SPC Options": the SPC folder, the SPC switches and the program that plays SPC files.
class SettingsSpcPage final : public SettingsPage {
    Q_OBJECT
public:
    explicit SettingsSpcPage(SettingsContext& context);

    void Fill() override;

private:
    void optOpenWith_Click(bool associated);
    void EnableProgram(bool enabled);
    void StoreProgram();
    void cmdSPCProgram_Browse_Click();

    QRadioButton* m_optAssociated = nullptr;
    QRadioButton* m_optProgram = nullptr;
    QLineEdit* m_txtSPCProgram = nullptr;
    QToolButton* m_cmdSPCProgram_Browse = nullptr;
    QLineEdit* m_txtSPCParameters = nullptr;
};
