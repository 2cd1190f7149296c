#pragma once

#include "base/Prompts.h"

#include <QTextStream>

// The questions of a command that runs without a window: each message goes to
// standard error and is answered with its box's default button (OK or Yes); input
// boxes, file dialogs and the folder browser are cancelled.
class CliPrompts final : public PromptsWithoutDialogs {
public:
    explicit CliPrompts(QTextStream& err) : m_err(err) {}

    PromptAnswer Message(const QString& text, PromptButtons buttons = PromptButtons::Ok,
                         PromptIcon icon = PromptIcon::None,
                         const QString& title = QString()) override;
    std::optional<QString> Input(const QString& prompt, const QString& title = QString(),
                                 const QString& proposed = QString()) override;

private:
    QTextStream& m_err;
};
