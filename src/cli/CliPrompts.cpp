#include "cli/CliPrompts.h"

namespace {

QString TerminalText(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return text;
}

} // namespace

PromptAnswer CliPrompts::Message(const QString& text, PromptButtons buttons, PromptIcon,
                                 const QString& title) {
    m_err << "lumbra-cli: " << (title.isEmpty() ? QString() : title + QStringLiteral(": "))
          << TerminalText(text) << '\n';
    m_err.flush();
    return buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::Yes;
}

std::optional<QString> CliPrompts::Input(const QString& prompt, const QString&, const QString&) {
    m_err << "lumbra-cli: " << TerminalText(prompt) << " (no answer without a window)\n";
    m_err.flush();
    return std::nullopt;
}
