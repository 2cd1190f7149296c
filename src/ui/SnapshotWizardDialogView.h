#pragma once

#include "snapshots/SnapshotWizard.h"

#include <QPointer>
#include <QWidget>

// Shows the wizard in frmSnapshotWizard, modally over the parent (over every
// window when there is none).
class SnapshotWizardDialogView final : public SnapshotWizardView {
public:
    explicit SnapshotWizardDialogView(QWidget* parent = nullptr) : m_parent(parent) {}
    void ShowModal(SnapshotWizard& wizard) override;

private:
    QPointer<QWidget> m_parent;
};
