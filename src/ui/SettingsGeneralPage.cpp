#include "ui/SettingsGeneralPage.h"

#include "base/EventLog.h"
#include "catalogue/AppState.h"
#include "catalogue/GroupViews.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <algorithm>

SettingsGeneralPage::SettingsGeneralPage(SettingsContext& context)
    : SettingsPage(context, QStringLiteral("General Options")) {
    Settings& options = m_context.State.Options;
    auto* grid = new QGridLayout(this);
    AddFolder(grid, 0, QStringLiteral("Export Folder:"), QStringLiteral("txtExportFolder"),
              [&options]() -> QString& { return options.ExportFolder; });
    AddFolder(grid, 1, QStringLiteral("Unzip Folder:"), QStringLiteral("txtUnzipFolder"),
              [&options]() -> QString& { return options.UnzipFolder; });

    m_cboDefaultGroup =
        AddSelector(grid, 2, QStringLiteral("Default Group:"), QStringLiteral("cboDefaultGroup"));
    connect(m_cboDefaultGroup, &QComboBox::activated, this,
            [this, &options] { options.DefaultGroup = m_cboDefaultGroup->currentText(); });

    const QList<QCheckBox*> boxes{
        AddFlag(QStringLiteral("chkAutoSwitchGroup"),
                QStringLiteral("Auto Switch To \"Send To Group...\""), options.AutoSwitchGroup,
                QStringLiteral("If checked, Automaically switches to the group you send a game "
                               "to.")),
        AddFlag(QStringLiteral("chkStateClickDeletes"),
                QStringLiteral("Clicking Entry in Save State Menu Deletes File"),
                options.StateClickDeletes,
                QStringLiteral("If checked, Clicking an entry in the \"Save State\" menu will "
                               "delete the save file.")),
        AddFlag(QStringLiteral("chkUseBaseFilenames"),
                QStringLiteral("Use Base Filenames For Unreadable Captions"),
                options.UseBaseFilenames,
                QStringLiteral("If checked, a game whose caption cannot be read from the game "
                               "file is captioned with its file name without extension.")),
        AddFlag(QStringLiteral("chkRomBatchFileSupport"),
                QStringLiteral("Enable ROM Shortcut/Batch File Support"),
                options.RomBatchFileSupport,
                QStringLiteral("If checked, Shortcut/Batch files named after the ROM you are "
                               "launching will be launched instead (If possible)")),
        AddFlag(QStringLiteral("chkShowCommandLine"),
                QStringLiteral("Show the command line before starting a game"),
                options.ShowCommandLine,
                QStringLiteral("If checked, the emulator's command line is shown, to be "
                               "confirmed, before a game starts while Lumbra waits for the "
                               "emulator (\"Enable Snapshot Wizard\")."))};
    for (int i = 0; i < boxes.size(); ++i)
        grid->addWidget(boxes[i], 3 + i, 0, 1, 3);
    grid->setRowStretch(3 + boxes.size(), 1);
}

void SettingsGeneralPage::Fill() {
    SettingsPage::Fill();
    cboDefaultGroup_AddGroupList();
    const int index =
        m_cboDefaultGroup->findText(m_context.State.Options.DefaultGroup, Qt::MatchFixedString);
    // A group that is gone: "Ungrouped".
    m_cboDefaultGroup->setCurrentIndex(index >= 0 ? index
                                                  : m_cboDefaultGroup->findText(FixedGroup));
}

void SettingsGeneralPage::cboDefaultGroup_AddGroupList() {
    LogEvent(QStringLiteral("Adding groups to ") + m_cboDefaultGroup->objectName() +
             QStringLiteral("..."));
    m_cboDefaultGroup->clear();
    // Lumbra may also start with every game shown.
    m_cboDefaultGroup->addItems(SelectorLines(m_context.State.Groups));
    LogEvent(QStringLiteral("Done."), true);
}
