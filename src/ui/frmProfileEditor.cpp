#include "ui/frmProfileEditor.h"

#include "base/EventLog.h"
#include "config/Profiles.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmProfileEditor::frmProfileEditor(SettingsStore& store, const QString& emulatorName,
                                   QWidget* parent)
    : QDialog(parent), m_store(store), m_emulatorName(emulatorName) {
    setObjectName(QStringLiteral("frmProfileEditor"));
    setWindowTitle(QStringLiteral("New Profile"));
    LogWindowLoaded(objectName());

    m_txtProfileName = new QLineEdit(this);
    m_txtProfileName->setObjectName(QStringLiteral("txtProfileName"));
    m_txtOptions = new QLineEdit(this);
    m_txtOptions->setObjectName(QStringLiteral("txtOptions"));
    m_txtOptions->setPlaceholderText(QStringLiteral("command-line options, passed on unchanged"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdCancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &frmProfileEditor::cmdOK_Click);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* form = new QFormLayout(this);
    form->addRow(QStringLiteral("Emulator:"), new QLabel(emulatorName, this));
    form->addRow(QStringLiteral("Profile Name:"), m_txtProfileName);
    form->addRow(QStringLiteral("Options:"), m_txtOptions);
    form->addRow(buttons);
    resize(420, sizeHint().height());
}

frmProfileEditor::~frmProfileEditor() {
    LogWindowUnloaded(objectName());
}

std::optional<QString> frmProfileEditor::NewProfile(SettingsStore& store,
                                                    const QString& emulatorName, QWidget* parent) {
    frmProfileEditor editor(store, emulatorName, parent);
    if (editor.exec() != QDialog::Accepted)
        return std::nullopt;
    return editor.ProfileName();
}

QString frmProfileEditor::ProfileName() const {
    return m_txtProfileName->text().trimmed();
}

void frmProfileEditor::cmdOK_Click() {
    // A blank name saves nothing: the dialog closes with no profile.
    if (!ProfileName().isEmpty())
        WriteProfile(m_store, m_emulatorName, ProfileName(), m_txtOptions->text());
    accept();
}
