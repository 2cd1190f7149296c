#include "ui/SettingsSnapshotPage.h"

#include "base/Prompts.h"
#include "catalogue/AppState.h"
#include "ui/frmMain.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

SettingsSnapshotPage::SettingsSnapshotPage(SettingsContext& context)
    : SettingsPage(context, QStringLiteral("Snapshot Options")) {
    Settings& options = m_context.State.Options;
    auto* grid = new QGridLayout(this);
    AddFolder(grid, 0, QStringLiteral("Snapshot Folder:"), QStringLiteral("txtSnapshotFolder"),
              [&options]() -> QString& { return options.SnapshotFolder; });
    m_txtNoSnapPic =
        AddText(grid, 1, QStringLiteral("No Snapshot Pic:"), QStringLiteral("txtNoSnapPic"),
                [&options]() -> QString& { return options.Snapshots_NoSnapPic; });
    QToolButton* pick =
        AddPickButton(QStringLiteral("cmdNoSnapPic_Pick"), QStringLiteral("Pick the picture"));
    connect(pick, &QToolButton::clicked, this, &SettingsSnapshotPage::cmdNoSnapPic_Pick_Click);
    grid->addWidget(pick, 1, 2);

    // The main window shows or hides its snapshot pane at once.
    const auto relayout = [this] {
        if (m_context.MainWindow)
            m_context.MainWindow->Form_Resize();
    };
    grid->addWidget(AddFlag(QStringLiteral("chkSnapshots_Show"), QStringLiteral("Show Snapshots"),
                            options.Snapshots_Show, QString(), relayout),
                    2, 0, 1, 3);
    grid->addWidget(AddFlag(QStringLiteral("chkSnapshots_UseWizard"),
                            QStringLiteral("Enable Snapshot Wizard"), options.Snapshots_UseWizard,
                            QString(), relayout),
                    3, 0, 1, 3);
    auto* wizard = new QGroupBox(QStringLiteral("Wizard Options"), this);
    wizard->setObjectName(QStringLiteral("fraWizardOptions"));
    auto* wizardOptions = new QVBoxLayout(wizard);
    wizardOptions->addWidget(AddFlag(QStringLiteral("chkSnapshots_AutoUse1st"),
                                     QStringLiteral("Automatically use first new snapshot found"),
                                     options.Snapshots_AutoUse1st, QString(), relayout));
    wizardOptions->addWidget(AddFlag(QStringLiteral("chkSnapshots_HideIfPicExists"),
                                     QStringLiteral("Hide wizard if game has snapshot"),
                                     options.Snapshots_HideIfPicExists, QString(), relayout));
    wizardOptions->addWidget(AddFlag(QStringLiteral("chkSnapshots_AutoRenameAll"),
                                     QStringLiteral("Rename all new snapshots found"),
                                     options.Snapshots_AutoRenameAll, QString(), relayout));
    grid->addWidget(wizard, 4, 0, 1, 3);
    grid->setRowStretch(5, 1);
}

void SettingsSnapshotPage::cmdNoSnapPic_Pick_Click() {
    const std::optional<QString> picture = m_context.UserPrompts.OpenFile(
        QStringLiteral("Pick ") + QStringLiteral("No Snapshot") + QStringLiteral(" Image"),
        QStringLiteral("Supported Image Types|*.bmp;*.jpg;*.png;*.gif"), m_txtNoSnapPic->text());
    if (!picture)
        return;
    m_txtNoSnapPic->setText(*picture);
    m_context.State.Options.Snapshots_NoSnapPic = *picture;
}
