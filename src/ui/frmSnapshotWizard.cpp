#include "ui/frmSnapshotWizard.h"

#include "platform/PathResolver.h"
#include "snapshots/SnapshotWizard.h"
#include "ui/MakeButton.h"

#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int PreviewWidth = 256; // one SNES screen
constexpr int PreviewHeight = 224;

} // namespace

frmSnapshotWizard::frmSnapshotWizard(SnapshotWizard& wizard, QWidget* parent)
    : QDialog(parent), m_wizard(wizard) {
    setObjectName(QStringLiteral("frmSnapshotWizard"));
    setWindowTitle(QStringLiteral("Snapshot Wizard"));
    setModal(true);

    auto* notice =
        new QLabel(QStringLiteral("Snapshot Wizard found the following new images:"), this);
    notice->setObjectName(QStringLiteral("lblNotice"));
    m_lstNewImages = new QListWidget(this);
    m_lstNewImages->setObjectName(QStringLiteral("lstNewImages"));
    m_lstNewImages->setSelectionMode(QAbstractItemView::SingleSelection);
    m_lstNewImages->addItems(m_wizard.NewImages());
    m_imgPreview = new QLabel(this);
    m_imgPreview->setObjectName(QStringLiteral("imgPreview"));
    m_imgPreview->setFixedSize(PreviewWidth, PreviewHeight);
    m_imgPreview->setAlignment(Qt::AlignCenter);
    m_imgPreview->setFrameShape(QFrame::StyledPanel);
    m_cmdUse = MakeButton(QStringLiteral("cmdUse"), QStringLiteral("&Use Snapshot"), this);
    m_cmdUse->setEnabled(false);
    m_cmdClose = MakeButton(QStringLiteral("cmdClose"), QStringLiteral("&Close"), this);

    auto* images = new QHBoxLayout;
    images->addWidget(m_lstNewImages, 1);
    images->addWidget(m_imgPreview);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdUse);
    buttons->addWidget(m_cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(notice);
    layout->addLayout(images, 1);
    layout->addLayout(buttons);

    connect(m_lstNewImages, &QListWidget::itemSelectionChanged, this,
            &frmSnapshotWizard::lstNewImages_Click);
    connect(m_cmdUse, &QPushButton::clicked, this, &frmSnapshotWizard::cmdUse_Click);
    connect(m_cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

int frmSnapshotWizard::SelectedRow() const {
    const QList<QListWidgetItem*> selected = m_lstNewImages->selectedItems();
    return selected.isEmpty() ? -1 : m_lstNewImages->row(selected.first());
}

void frmSnapshotWizard::lstNewImages_Click() {
    const int row = SelectedRow();
    m_cmdUse->setEnabled(row >= 0);
    if (row < 0)
        return;
    const QPixmap picture(
        ResolvePath(m_wizard.FilePath() + QDir::separator() + m_lstNewImages->item(row)->text()));
    if (picture.isNull())
        m_imgPreview->clear();
    else
        m_imgPreview->setPixmap(
            picture.scaled(m_imgPreview->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

void frmSnapshotWizard::cmdUse_Click() {
    if (m_wizard.UseSnapshot(SelectedRow()))
        accept();
}
