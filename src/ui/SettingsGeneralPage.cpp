#include "ui/SettingsGeneralPage.h"

#include "base/EventLog.h"
#include "catalogue/AppState.h"

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
                               "launching will be launched instead (If possible)"))};
    for (int i = 0; i < boxes.size(); ++i)
        grid->addWidget(boxes[i], 3 + i, 0, 1, 3);
    grid->setRowStretch(3 + boxes.size(), 1);
}

void SettingsGeneralPage::Fill() {
    SettingsPage::Fill();
    cboDefaultGroup_AddGroupList();
    const int index =
        m_cboDefaultGroup->findText(m_context.State.Options.DefaultGroup, Qt::MatchFixedString);
    m_cboDefaultGroup->setCurrentIndex(std::max(0, index)); // a group that is gone: "Ungrouped"
}

void SettingsGeneralPage::cboDefaultGroup_AddGroupList() {
    LogEvent(QStringLiteral("Adding groups to ") + m_cboDefaultGroup->objectName() +
             QStringLiteral("..."));
    m_cboDefaultGroup->clear();
    m_cboDefaultGroup->addItem(FixedGroup);
    for (const QString& group : m_context.State.Groups.Entries) {
        if (group.isEmpty())
            break;
        m_cboDefaultGroup->addItem(group);
    }
    LogEvent(QStringLiteral("Done."), true);
}
