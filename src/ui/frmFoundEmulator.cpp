#include "ui/frmFoundEmulator.h"

#include "base/EventLog.h"
#include "base/Prompts.h"
#include "config/SettingsStore.h"
#include "platform/SystemShell.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

frmFoundEmulator::frmFoundEmulator(SettingsStore& store, Prompts& prompts, SystemShell& shell,
                                   const FoundEmulator& emulator, QWidget* parent)
    : QDialog(parent), m_store(store), m_prompts(prompts), m_shell(shell), m_emulator(emulator) {
    setObjectName(QStringLiteral("frmFoundEmulator"));
    setWindowTitle(emulator.Name);
    LogWindowLoaded(objectName());

    m_form = new QFormLayout(this);
    m_form->addRow(QStringLiteral("Emulator:"), new QLabel(emulator.Name, this));
    m_txtProgram = AddField(QStringLiteral("txtProgram"), emulator.Program,
                            QStringLiteral("The program that is started"));
    m_form->addRow(QStringLiteral("Program:"), m_txtProgram);
    m_txtCommand = AddField(
        QStringLiteral("txtCommand"), emulator.Command,
        QStringLiteral("{program}, {core}, {options} (the profile's option text) and {game} "
                       "(the game's path) are filled in; nothing else reads the command"));
    m_form->addRow(QStringLiteral("Command:"), m_txtCommand);
    m_txtDefaultProfile = AddField(QStringLiteral("txtDefaultProfile"), emulator.DefaultProfile,
                                   QStringLiteral("The profile used for games that name none"));
    m_form->addRow(QStringLiteral("Default Profile:"), m_txtDefaultProfile);
    m_txtScreenshotFolder =
        AddFolderField(QStringLiteral("txtScreenshotFolder"), QStringLiteral("Screenshot Folder:"),
                       emulator.ScreenshotFolder);
    m_txtStateFolder = AddFolderField(QStringLiteral("txtStateFolder"),
                                      QStringLiteral("Save State Folder:"), emulator.StateFolder);
    m_txtSaveFolder = AddFolderField(QStringLiteral("txtSaveFolder"),
                                     QStringLiteral("Battery Save Folder:"), emulator.SaveFolder);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdCancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &frmFoundEmulator::cmdOK_Click);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_form->addRow(buttons);
}

frmFoundEmulator::~frmFoundEmulator() {
    LogWindowUnloaded(objectName());
}

bool frmFoundEmulator::Edit(SettingsStore& store, Prompts& prompts, SystemShell& shell,
                            const QString& name, QWidget* parent) {
    const std::optional<FoundEmulator> emulator = FindFoundEmulator(store, name);
    if (!emulator)
        return false;
    frmFoundEmulator editor(store, prompts, shell, *emulator, parent);
    return editor.exec() == QDialog::Accepted;
}

QLineEdit* frmFoundEmulator::AddField(const QString& name, const QString& text,
                                      const QString& toolTip) {
    auto* field = new QLineEdit(text, this);
    field->setObjectName(name);
    field->setToolTip(toolTip);
    field->setMinimumWidth(fontMetrics().averageCharWidth() * 48);
    return field;
}

QLineEdit* frmFoundEmulator::AddFolderField(const QString& name, const QString& caption,
                                            const QString& text) {
    QLineEdit* field = AddField(name, text, QString());
    field->setPlaceholderText(QStringLiteral("where the emulator itself puts them"));
    auto* browse = new QToolButton(this);
    browse->setObjectName(QStringLiteral("cmd") + name.mid(3) + QStringLiteral("_Browse"));
    browse->setText(QStringLiteral("..."));
    browse->setToolTip(QStringLiteral("Browse for the folder"));
    connect(browse, &QToolButton::clicked, this, [this, field, caption] {
        QString title = caption;
        title.chop(1);
        const std::optional<QString> chosen = m_shell.BrowseForFolder(
            title + QStringLiteral(" of ") + m_emulator.Name, field->text());
        if (chosen)
            field->setText(*chosen);
    });
    auto* row = new QHBoxLayout;
    row->addWidget(field, 1);
    row->addWidget(browse);
    m_form->addRow(caption, row);
    return field;
}

void frmFoundEmulator::cmdOK_Click() {
    const QString program = m_txtProgram->text().trimmed();
    const QString command = m_txtCommand->text().trimmed();
    const QFileInfo programFile(program);
    QString problem;
    if (!programFile.isFile() || !programFile.isExecutable())
        problem = QStringLiteral("The program \"") + program +
                  QStringLiteral("\" is not a file that can be run.");
    else if (!command.contains(QLatin1String("{game}")))
        problem = QStringLiteral("The command needs {game} where the game's path goes.");
    if (!problem.isEmpty()) {
        m_prompts.Message(problem, PromptButtons::Ok, PromptIcon::Exclamation);
        return;
    }
    FoundEmulator edited = m_emulator;
    edited.Program = program;
    edited.Command = command;
    edited.DefaultProfile = m_txtDefaultProfile->text().trimmed();
    edited.ScreenshotFolder = m_txtScreenshotFolder->text().trimmed();
    edited.StateFolder = m_txtStateFolder->text().trimmed();
    edited.SaveFolder = m_txtSaveFolder->text().trimmed();
    WriteFoundEmulator(m_store, edited);
    if (const QString failure = m_store.WriteError(); !failure.isEmpty()) {
        m_prompts.Message(failure, PromptButtons::Ok, PromptIcon::Critical);
        return;
    }
    accept();
}
