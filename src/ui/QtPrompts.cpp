#include "ui/QtPrompts.h"

#include "ui/BusyPointer.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QRegularExpression>

namespace {

const QString ApplicationTitle = QStringLiteral("Lumbra");

QString TitleOr(const QString& title) {
    return title.isEmpty() ? ApplicationTitle : title;
}

QMessageBox::Icon BoxIcon(PromptIcon icon) {
    switch (icon) {
    case PromptIcon::Information:
        return QMessageBox::Information;
    case PromptIcon::Question:
        return QMessageBox::Question;
    case PromptIcon::Exclamation:
        return QMessageBox::Warning;
    case PromptIcon::Critical:
        return QMessageBox::Critical;
    case PromptIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

// A question is answered with the normal pointer, even while the window behind it
// shows the hourglass (a launch does).
class NormalPointer : public OverridePointer {
public:
    NormalPointer() : OverridePointer(Qt::ArrowCursor) {}
};

std::optional<QString> Chosen(const QString& path) {
    if (path.isEmpty())
        return std::nullopt;
    return path;
}

} // namespace

QString ConvertFileFilter(const QString& filter) {
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList converted;
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        QString description = parts[i].trimmed();
        QString patterns = i + 1 < parts.size() ? parts[i + 1].trimmed() : QString();
        if (description.isEmpty() && patterns.isEmpty())
            continue;
        if (patterns.isEmpty())
            patterns = QStringLiteral("*");
        QString spaced = patterns;
        spaced.replace(QLatin1Char(';'), QLatin1Char(' '));
        // Qt reads the patterns from the last parentheses, so a description that
        // already names them ("Bitmap Image (*.bmp)") would show them twice.
        for (const QString& shown : {patterns, spaced}) {
            const QString suffix = QLatin1Char('(') + shown + QLatin1Char(')');
            if (description.endsWith(suffix)) {
                description.chop(suffix.size());
                description = description.trimmed();
                break;
            }
        }
        if (description.isEmpty())
            description = spaced;
        converted.append(description + QStringLiteral(" (") + spaced + QLatin1Char(')'));
    }
    return converted.join(QStringLiteral(";;"));
}

QString StartFolder(const QString& path) {
    if (path.isEmpty())
        return QString();
    const QFileInfo info(path);
    if (info.isDir())
        return QDir::cleanPath(info.absoluteFilePath());
    return info.absoluteDir().exists() && path.contains(QLatin1Char('/')) ? info.absolutePath()
                                                                          : QString();
}

QString DefaultSuffix(const QString& qtFilter) {
    static const QRegularExpression firstPattern(QStringLiteral(R"(\(\*\.(\w+)[ )])"));
    return firstPattern.match(qtFilter).captured(1);
}

PromptAnswer QtPrompts::Message(const QString& text, PromptButtons buttons, PromptIcon icon,
                                const QString& title) {
    const NormalPointer pointer;
    QMessageBox box(BoxIcon(icon), TitleOr(title), text, QMessageBox::NoButton, m_parent);
    switch (buttons) {
    case PromptButtons::Ok:
        box.setStandardButtons(QMessageBox::Ok);
        break;
    case PromptButtons::YesNo:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        break;
    case PromptButtons::YesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    }
    switch (box.exec()) {
    case QMessageBox::Yes:
        return PromptAnswer::Yes;
    case QMessageBox::No:
        return PromptAnswer::No;
    case QMessageBox::Cancel:
        return PromptAnswer::Cancel;
    default:
        break;
    }
    // Closed without a button: the answer that commits to nothing.
    switch (buttons) {
    case PromptButtons::Ok:
        return PromptAnswer::Ok;
    case PromptButtons::YesNo:
        return PromptAnswer::No;
    case PromptButtons::YesNoCancel:
        break;
    }
    return PromptAnswer::Cancel;
}

std::optional<QString> QtPrompts::Input(const QString& prompt, const QString& title,
                                        const QString& proposed) {
    const NormalPointer pointer;
    bool accepted = false;
    const QString answer = QInputDialog::getText(m_parent, TitleOr(title), prompt,
                                                 QLineEdit::Normal, proposed, &accepted);
    if (!accepted)
        return std::nullopt;
    return answer;
}

std::optional<QString> QtPrompts::OpenFile(const QString& title, const QString& filter,
                                           const QString& folder) {
    const NormalPointer pointer;
    return Chosen(QFileDialog::getOpenFileName(m_parent, TitleOr(title), StartFolder(folder),
                                               ConvertFileFilter(filter)));
}

std::optional<QString> QtPrompts::SaveFile(const QString& title, const QString& filter,
                                           const QString& proposed) {
    const NormalPointer pointer;
    // The callers ask before they replace a file, so the dialog does not.
    QFileDialog dialog(m_parent, TitleOr(title), proposed, ConvertFileFilter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setDefaultSuffix(DefaultSuffix(dialog.selectedNameFilter()));
    QObject::connect(
        &dialog, &QFileDialog::filterSelected, &dialog,
        [&dialog](const QString& chosen) { dialog.setDefaultSuffix(DefaultSuffix(chosen)); });
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return Chosen(dialog.selectedFiles().value(0));
}

std::optional<QString> QtPrompts::BrowseForFolder(const QString& prompt, const QString& folder) {
    const NormalPointer pointer;
    return Chosen(
        QFileDialog::getExistingDirectory(m_parent, TitleOr(prompt), StartFolder(folder)));
}
