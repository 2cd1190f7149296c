#pragma once

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;
class SnapshotWizard;

// The snapshot wizard's window: the new images found after play, a preview of the
// one picked, and the command that makes it the game's snapshot.
class frmSnapshotWizard final : public QDialog {
    Q_OBJECT

public:
    explicit frmSnapshotWizard(SnapshotWizard& wizard, QWidget* parent = nullptr);

private:
    int SelectedRow() const;
    void lstNewImages_Click();
    void cmdUse_Click();

    SnapshotWizard& m_wizard;
    QListWidget* m_lstNewImages = nullptr;
    QLabel* m_imgPreview = nullptr;
    QPushButton* m_cmdUse = nullptr;
    QPushButton* m_cmdClose = nullptr;
};
