#pragma once

#include "base/Prompts.h"

#include <QPointer>
#include <QWidget>

// The prompts as real dialogs: message boxes, input boxes, file dialogs and the
// folder browser, each titled "Lumbra" unless the caller gives a title.
class QtPrompts final : public Prompts {
public:
    explicit QtPrompts(QWidget* parent = nullptr) : m_parent(parent) {}

    void SetParent(QWidget* parent) { m_parent = parent; }

    PromptAnswer Message(const QString& text, PromptButtons buttons = PromptButtons::Ok,
                         PromptIcon icon = PromptIcon::None,
                         const QString& title = QString()) override;
    std::optional<QString> Input(const QString& prompt, const QString& title = QString(),
                                 const QString& proposed = QString()) override;
    std::optional<QString> OpenFile(const QString& title, const QString& filter,
                                    const QString& folder = QString()) override;
    std::optional<QString> SaveFile(const QString& title, const QString& filter,
                                    const QString& proposed = QString()) override;
    std::optional<QString> BrowseForFolder(const QString& prompt,
                                           const QString& folder = QString()) override;

private:
    QPointer<QWidget> m_parent;
};

// "Desc|*.a;*.b|Desc2|*.c" in Qt's form: "Desc (*.a *.b);;Desc2 (*.c)".
QString ConvertFileFilter(const QString& filter);
// The extension that a name typed without one gets under a Qt filter: that of its
// first pattern ("txt" for "Plain Text (*.txt)"); empty for "All Files (*.*)".
QString DefaultSuffix(const QString& qtFilter);
// Where a file dialog or the folder browser opens: the given folder, or a file's
// folder, when it exists; otherwise empty, the dialog's own choice.
QString StartFolder(const QString& path);
