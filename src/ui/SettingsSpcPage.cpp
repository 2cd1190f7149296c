#include "ui/SettingsSpcPage.h"

#include "base/Prompts.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QToolButton>

namespace {

const QString Associated = QStringLiteral("%WIN");
const QString Custom = QStringLiteral("%CUSTOM");
const QString Delimiter = QStringLiteral(";");

QLineEdit* AddProgramText(QWidget* parent, const QString& name) {
    auto* text = new QLineEdit(parent);
    text->setObjectName(name);
    // The store joins the program and its parameters with ";".
    text->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[^;]*")), text));
    return text;
}

} // namespace

SettingsSpcPage::SettingsSpcPage(SettingsContext& context)
    : SettingsPage(context, QStringLiteral("SPC Options")) {
    Settings& options = m_context.State.Options;
    auto* grid = new QGridLayout(this);
    AddFolder(grid, 0, QStringLiteral("SPC Folder:"), QStringLiteral("txtSPCFolder"),
              [&options]() -> QString& { return options.SPCFolder; });
    grid->addWidget(AddFlag(QStringLiteral("chkSPC_UseWizard"), QStringLiteral("Use SPC Wizard"),
                            options.SPC_UseWizard),
                    1, 0, 1, 3);
    grid->addWidget(AddFlag(QStringLiteral("chkSPC_DisplayList"),
                            QStringLiteral("Display SPC List"), options.SPC_DisplayList),
                    2, 0, 1, 3);
    grid->addWidget(AddFlag(QStringLiteral("chkSPC_ShowMenu"), QStringLiteral("Show SPC Menu"),
                            options.SPC_ShowMenu),
                    3, 0, 1, 3);

    auto* openWith = new QGroupBox(QStringLiteral("Open With"), this);
    openWith->setObjectName(QStringLiteral("fraOpenWith"));
    m_optAssociated = new QRadioButton(QStringLiteral("Associated Program"), openWith);
    m_optAssociated->setObjectName(QStringLiteral("optAssociated"));
    m_optProgram = new QRadioButton(QStringLiteral("Program:"), openWith);
    m_optProgram->setObjectName(QStringLiteral("optProgram"));
    m_txtSPCProgram = AddProgramText(openWith, QStringLiteral("txtSPCProgram"));
    m_cmdSPCProgram_Browse =
        AddPickButton(QStringLiteral("cmdSPCProgram_Browse"), QStringLiteral("Pick the program"));
    m_txtSPCParameters = AddProgramText(openWith, QStringLiteral("txtSPCParameters"));
    auto* parameters = new QLabel(QStringLiteral("Parameters:"), openWith);
    parameters->setBuddy(m_txtSPCParameters);
    auto* openWithGrid = new QGridLayout(openWith);
    openWithGrid->addWidget(m_optAssociated, 0, 0, 1, 3);
    openWithGrid->addWidget(m_optProgram, 1, 0);
    openWithGrid->addWidget(m_txtSPCProgram, 1, 1);
    openWithGrid->addWidget(m_cmdSPCProgram_Browse, 1, 2);
    openWithGrid->addWidget(parameters, 2, 0);
    openWithGrid->addWidget(m_txtSPCParameters, 2, 1);
    grid->addWidget(openWith, 4, 0, 1, 3);
    grid->setRowStretch(5, 1);

    connect(m_optAssociated, &QRadioButton::clicked, this, [this] { optOpenWith_Click(true); });
    connect(m_optProgram, &QRadioButton::clicked, this, [this] { optOpenWith_Click(false); });
    connect(m_txtSPCProgram, &QLineEdit::textEdited, this, &SettingsSpcPage::StoreProgram);
    connect(m_txtSPCParameters, &QLineEdit::textEdited, this, &SettingsSpcPage::StoreProgram);
    connect(m_cmdSPCProgram_Browse, &QToolButton::clicked, this,
            &SettingsSpcPage::cmdSPCProgram_Browse_Click);
}

void SettingsSpcPage::Fill() {
    SettingsPage::Fill();
    const Settings& options = m_context.State.Options;
    const bool associated = options.SPC_OpenWith.toUpper() == Associated;
    (associated ? m_optAssociated : m_optProgram)->setChecked(true);
    EnableProgram(!associated);
    m_txtSPCProgram->setText(GetField(options.SPC_App, 1, Delimiter));
    m_txtSPCParameters->setText(GetField(options.SPC_App, 2, Delimiter));
}

void SettingsSpcPage::optOpenWith_Click(bool associated) {
    m_context.State.Options.SPC_OpenWith = associated ? Associated : Custom;
    EnableProgram(!associated);
}

void SettingsSpcPage::EnableProgram(bool enabled) {
    m_txtSPCProgram->setEnabled(enabled);
    m_cmdSPCProgram_Browse->setEnabled(enabled);
    m_txtSPCParameters->setEnabled(enabled);
}

void SettingsSpcPage::StoreProgram() {
    m_context.State.Options.SPC_App =
        m_txtSPCProgram->text() + Delimiter + m_txtSPCParameters->text();
}

void SettingsSpcPage::cmdSPCProgram_Browse_Click() {
    const std::optional<QString> program = m_context.UserPrompts.OpenFile(
        QStringLiteral("Pick SPC Program"), QStringLiteral("All Files|*"), m_txtSPCProgram->text());
    if (!program || program->contains(Delimiter))
        return;
    m_txtSPCProgram->setText(*program);
    StoreProgram();
}
