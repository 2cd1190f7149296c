#pragma once

#include "ui/SettingsPage.h"

class QLineEdit;

// "Snapshot Options": the snapshot folder, the picture for games without one, the
// snapshot pane and the snapshot wizard.
class SettingsSnapshotPage final : public SettingsPage {
    Q_OBJECT
public:
    explicit SettingsSnapshotPage(SettingsContext& context);

private:
    void cmdNoSnapPic_Pick_Click();

    QLineEdit* m_txtNoSnapPic = nullptr;
};
