#include "ui/SettingsEmulatorsPage.h"

#include "base/Prompts.h"
#include "catalogue/AppState.h"
#include "emulators/EmulatorCatalogue.h"
#include "emulators/EmulatorCommand.h"
#include "emulators/EmulatorDetection.h"
#include "emulators/EmulatorEnvironment.h"
#include "emulators/FoundEmulators.h"
#include "ui/frmFoundEmulator.h"
#include "ui/frmProfileEditor.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <algorithm>

SettingsEmulatorsPage::SettingsEmulatorsPage(SettingsContext& context)
    : SettingsPage(context, QStringLiteral("Emulators")) {
    auto* grid = new QGridLayout(this);
    m_cboEmulator =
        AddSelector(grid, 0, QStringLiteral("Emulator:"), QStringLiteral("cboEmulator"));
    connect(m_cboEmulator, &QComboBox::activated, this, &SettingsEmulatorsPage::cboEmulator_Click);

    // The store joins an emulator's folders and profile with ";".
    auto* noDelimiter =
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[^;]*")), this);
    AddFolder(grid, 1, QStringLiteral("Folder:"), QStringLiteral("txtEmuFolder"),
              [this]() -> QString& { return SelectedRecord().Folder; })
        ->setValidator(noDelimiter);
    AddFolder(grid, 2, QStringLiteral("Save Folder:"), QStringLiteral("txtEmuSaveFolder"),
              [this]() -> QString& { return SelectedRecord().SaveFolder; })
        ->setValidator(noDelimiter);
    m_txtDefaultProfile = AddText(grid, 3, QStringLiteral("Defualt Settings Profile:"),
                                  QStringLiteral("txtDefaultProfile"),
                                  [this]() -> QString& { return SelectedRecord().DefaultProfile; });
    m_txtDefaultProfile->setValidator(noDelimiter);

    m_lblLaunchFiles = new QLabel(this);
    m_lblLaunchFiles->setObjectName(QStringLiteral("lblLaunchFiles"));
    m_lblLaunchFiles->setToolTip(QStringLiteral("The files tried, in this order, to start the "
                                                "emulator from its folder"));
    grid->addWidget(m_lblLaunchFiles, 4, 1, 1, 2);

    m_cboDefaultEmulator =
        AddSelector(grid, 5, QStringLiteral("Default:"), QStringLiteral("cboDefaultEmulator"));
    connect(m_cboDefaultEmulator, &QComboBox::activated, this, [this] {
        m_context.State.Options.DefaultEmulator = m_cboDefaultEmulator->currentText();
    });
    QPushButton* settings =
        AddButton(QStringLiteral("cmdEmuSettings"), QStringLiteral("Settings..."));
    settings->setToolTip(QStringLiteral("Create a settings profile for the emulator and make it "
                                        "its default"));
    connect(settings, &QPushButton::clicked, this, &SettingsEmulatorsPage::cmdEmuSettings_Click);
    grid->addWidget(settings, 6, 2);

    m_lstFoundEmulators = new QListWidget(this);
    m_lstFoundEmulators->setObjectName(QStringLiteral("lstFoundEmulators"));
    m_lstFoundEmulators->setToolTip(
        QStringLiteral("The emulators found on this system, each with the command that starts it"));
    grid->addWidget(m_lstFoundEmulators, 7, 0, 3, 2);
    QPushButton* find =
        AddButton(QStringLiteral("cmdFindEmulators"), QStringLiteral("Find Emulators"));
    find->setToolTip(QStringLiteral("Look for RetroArch, Mednafen, snes9x-gtk, bsnes, ares and "
                                    "Mesen on this system"));
    connect(find, &QPushButton::clicked, this, &SettingsEmulatorsPage::cmdFindEmulators_Click);
    grid->addWidget(find, 7, 2);
    QPushButton* edit =
        AddButton(QStringLiteral("cmdEditFoundEmulator"), QStringLiteral("Edit..."));
    edit->setToolTip(QStringLiteral("Change the selected found emulator's program, command, "
                                    "default profile and folders"));
    connect(edit, &QPushButton::clicked, this, &SettingsEmulatorsPage::cmdEditFoundEmulator_Click);
    connect(m_lstFoundEmulators, &QListWidget::itemActivated, this,
            &SettingsEmulatorsPage::cmdEditFoundEmulator_Click);
    grid->addWidget(edit, 8, 2, Qt::AlignTop);
    QPushButton* remove =
        AddButton(QStringLiteral("cmdRemoveFoundEmulator"), QStringLiteral("Remove"));
    remove->setToolTip(QStringLiteral("Forget the selected found emulator"));
    connect(remove, &QPushButton::clicked, this,
            &SettingsEmulatorsPage::cmdRemoveFoundEmulator_Click);
    grid->addWidget(remove, 9, 2, Qt::AlignTop);
    grid->setRowStretch(9, 1);
}

void SettingsEmulatorsPage::Fill() {
    const EmulatorTable& emulators = m_context.State.Emulators;
    for (QComboBox* selector : {m_cboEmulator, m_cboDefaultEmulator}) {
        if (selector->count() > 0)
            continue;
        for (const EmulatorRecord& emulator : emulators.Records)
            selector->addItem(emulator.Name);
    }
    ShowFoundEmulators();
    const QString& defaultEmulator = m_context.State.Options.DefaultEmulator;
    // The page opens on the default emulator, or the first when that is unknown.
    m_cboEmulator->setCurrentIndex(
        std::max(0, m_cboEmulator->findText(defaultEmulator, Qt::MatchFixedString)));
    cboEmulator_Click();
}

QString SettingsEmulatorsPage::SelectedEmulator() const {
    return m_cboEmulator->currentText();
}

EmulatorRecord& SettingsEmulatorsPage::SelectedRecord() {
    EmulatorTable& emulators = m_context.State.Emulators;
    return emulators.Records[std::max(0, emulators.FindEmulatorIndex(SelectedEmulator()))];
}

void SettingsEmulatorsPage::cboEmulator_Click() {
    SettingsPage::Fill();
    m_lblLaunchFiles->setText(
        SelectedRecord().LaunchFiles.split(QLatin1Char(';')).join(QLatin1Char(' ')));
}

void SettingsEmulatorsPage::cmdEmuSettings_Click() {
    const std::optional<QString> profile =
        frmProfileEditor::NewProfile(m_context.State.Store, SelectedEmulator(), this);
    if (!profile || profile->isEmpty() || profile->contains(QLatin1Char(';')))
        return;
    SelectedRecord().DefaultProfile = *profile;
    m_txtDefaultProfile->setText(*profile);
}

void SettingsEmulatorsPage::ShowFoundEmulators() {
    const QList<FoundEmulator> found = ReadFoundEmulators(m_context.State.Store);
    const QListWidgetItem* selected = m_lstFoundEmulators->currentItem();
    const QString selectedName = selected ? selected->text() : QString();
    m_lstFoundEmulators->clear();
    while (m_cboDefaultEmulator->count() > EmulatorTable::Count)
        m_cboDefaultEmulator->removeItem(EmulatorTable::Count);
    for (const FoundEmulator& emulator : found) {
        auto* item = new QListWidgetItem(emulator.Name, m_lstFoundEmulators);
        item->setToolTip(CommandPreview(emulator));
        if (emulator.Name == selectedName)
            m_lstFoundEmulators->setCurrentItem(item);
        m_cboDefaultEmulator->addItem(emulator.Name);
    }
    m_cboDefaultEmulator->setCurrentIndex(m_cboDefaultEmulator->findText(
        m_context.State.Options.DefaultEmulator, Qt::MatchFixedString));
}

void SettingsEmulatorsPage::cmdFindEmulators_Click() {
    const StoredDetection stored = StoreDetectedEmulators(
        m_context.State.Store, DetectEmulators(LoadEmulatorCatalogue(), EmulatorEnvironment()));
    ShowFoundEmulators();
    if (ReportStoreFailure())
        return;
    if (stored.Found.isEmpty())
        m_context.UserPrompts.Message(QStringLiteral("No emulator was found on this system."),
                                      PromptButtons::Ok, PromptIcon::Information);
}

void SettingsEmulatorsPage::cmdEditFoundEmulator_Click() {
    const QListWidgetItem* item = m_lstFoundEmulators->currentItem();
    if (item && frmFoundEmulator::Edit(m_context.State.Store, m_context.UserPrompts,
                                       m_context.Shell, item->text(), this))
        ShowFoundEmulators();
}

void SettingsEmulatorsPage::cmdRemoveFoundEmulator_Click() {
    const QListWidgetItem* item = m_lstFoundEmulators->currentItem();
    if (!item)
        return;
    RemoveFoundEmulator(m_context.State.Store, item->text());
    ShowFoundEmulators();
    ReportStoreFailure();
}

bool SettingsEmulatorsPage::ReportStoreFailure() {
    const QString failure = m_context.State.Store.WriteError();
    if (!failure.isEmpty())
        m_context.UserPrompts.Message(failure, PromptButtons::Ok, PromptIcon::Critical);
    return !failure.isEmpty();
}
