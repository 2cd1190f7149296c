#pragma once

#include "ui/SettingsPage.h"

class QComboBox;

// "General Options": the export and unzip folders, the default group (or "All Games") and five
// switches.
class SettingsGeneralPage final : public SettingsPage {
    Q_OBJECT
public:
    explicit SettingsGeneralPage(SettingsContext& context);

    void Fill() override;

private:
    void cboDefaultGroup_AddGroupList();

    QComboBox* m_cboDefaultGroup = nullptr;
};
