#include "ui/SettingsPage.h"

#include "base/StringHelpers.h"
#include "platform/SystemShell.h"
#include "ui/MakeButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

SettingsPage::SettingsPage(SettingsContext& context, const QString& name) : m_context(context) {
    setObjectName(name);
}

void SettingsPage::Fill() {
    for (const auto& [box, flag] : m_flags)
        box->setChecked(*flag != 0);
    for (const auto& [text, setting] : m_texts)
        text->setText(setting());
}

QCheckBox* SettingsPage::AddFlag(const QString& name, const QString& caption, qint16& flag,
                                 const QString& toolTip, std::function<void()> changed) {
    auto* box = new QCheckBox(caption, this);
    box->setObjectName(name);
    box->setToolTip(toolTip);
    connect(box, &QCheckBox::clicked, this, [&flag, changed](bool checked) {
        flag = checked ? 1 : 0;
        if (changed)
            changed();
    });
    m_flags.append({box, &flag});
    return box;
}

void SettingsPage::AddCaptioned(QGridLayout* grid, int row, const QString& caption,
                                QWidget* control) {
    auto* label = new QLabel(caption, this);
    label->setBuddy(control);
    grid->addWidget(label, row, 0);
    grid->addWidget(control, row, 1);
}

QComboBox* SettingsPage::AddSelector(QGridLayout* grid, int row, const QString& caption,
                                     const QString& name) {
    auto* selector = new QComboBox(this);
    selector->setObjectName(name);
    AddCaptioned(grid, row, caption, selector);
    return selector;
}

QLineEdit* SettingsPage::AddText(QGridLayout* grid, int row, const QString& caption,
                                 const QString& name, TextSetting setting) {
    auto* text = new QLineEdit(this);
    text->setObjectName(name);
    AddCaptioned(grid, row, caption, text);
    connect(text, &QLineEdit::textEdited, this,
            [setting](const QString& value) { setting() = value; });
    m_texts.append({text, std::move(setting)});
    return text;
}

QLineEdit* SettingsPage::AddFolder(QGridLayout* grid, int row, const QString& caption,
                                   const QString& name, TextSetting setting) {
    QLineEdit* text = AddText(grid, row, caption, name, setting);
    QToolButton* browse =
        AddPickButton(QStringLiteral("cmd") + name.mid(3) + QStringLiteral("_Browse"),
                      QStringLiteral("Browse for the folder"));
    grid->addWidget(browse, row, 2);
    connect(browse, &QToolButton::clicked, this,
            [this, text, setting] { BrowseFolder(text, setting); });
    return text;
}

QPushButton* SettingsPage::AddButton(const QString& name, const QString& caption) {
    return MakeButton(name, caption, this);
}

QToolButton* SettingsPage::AddPickButton(const QString& name, const QString& toolTip) {
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setText(QStringLiteral("..."));
    button->setToolTip(toolTip);
    return button;
}

// Every folder browser names the emulator chosen on the "Emulators" page, whichever
// folder it is for.
void SettingsPage::BrowseFolder(QLineEdit* text, const TextSetting& setting) {
    const std::optional<QString> chosen = m_context.Shell.BrowseForFolder(
        QStringLiteral("Please choose the folder where ") + m_context.SelectedEmulator() +
            QStringLiteral(" resides:"),
        text->text());
    if (!chosen)
        return;
    QString folder = QDir::toNativeSeparators(*chosen).toLower();
    if (!EndsWithSeparator(folder))
        folder += QDir::separator();
    text->setText(folder);
    setting() = folder;
}
