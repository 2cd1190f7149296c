#include "ui/SnapshotWizardDialogView.h"

#include "ui/frmSnapshotWizard.h"

void SnapshotWizardDialogView::ShowModal(SnapshotWizard& wizard) {
    frmSnapshotWizard dialog(wizard, m_parent);
    dialog.exec();
}
