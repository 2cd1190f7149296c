#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

ScriptedPrompts::~ScriptedPrompts() {
    if (Unanswered() > 0)
        ADD_FAILURE() << Unanswered() << " scripted answer(s) were never asked for";
}

ScriptedPrompts& ScriptedPrompts::AnswerMessage(PromptAnswer answer) {
    m_messages.enqueue(answer);
    return *this;
}

ScriptedPrompts& ScriptedPrompts::AnswerInput(std::optional<QString> answer) {
    m_inputs.enqueue(std::move(answer));
    return *this;
}

ScriptedPrompts& ScriptedPrompts::AnswerFile(std::optional<QString> answer) {
    m_files.enqueue(std::move(answer));
    return *this;
}

ScriptedPrompts& ScriptedPrompts::AnswerFolder(std::optional<QString> answer) {
    m_folders.enqueue(std::move(answer));
    return *this;
}

QStringList ScriptedPrompts::AskedTexts() const {
    QStringList texts;
    for (const Question& question : m_asked)
        texts.append(question.text);
    return texts;
}

int ScriptedPrompts::Unanswered() const {
    return int(m_messages.size() + m_inputs.size() + m_files.size() + m_folders.size());
}

PromptAnswer ScriptedPrompts::Message(const QString& text, PromptButtons buttons, PromptIcon icon,
                                      const QString& title) {
    m_asked.append({Kind::Message, text, title, QString(), QString(), buttons, icon});
    if (buttons == PromptButtons::Ok)
        return PromptAnswer::Ok;
    if (m_messages.isEmpty()) {
        ADD_FAILURE() << "unscripted message box: " << text.toStdString();
        return PromptAnswer::Cancel;
    }
    return m_messages.dequeue();
}

std::optional<QString> ScriptedPrompts::Input(const QString& prompt, const QString& title,
                                              const QString& proposed) {
    m_asked.append(
        {Kind::Input, prompt, title, QString(), proposed, PromptButtons::Ok, PromptIcon::None});
    return NextPath(m_inputs, QStringLiteral("input box: ") + prompt);
}

std::optional<QString> ScriptedPrompts::OpenFile(const QString& title, const QString& filter,
                                                 const QString& folder) {
    m_asked.append(
        {Kind::OpenFile, title, title, filter, folder, PromptButtons::Ok, PromptIcon::None});
    return NextPath(m_files, QStringLiteral("open dialog: ") + title);
}

std::optional<QString> ScriptedPrompts::SaveFile(const QString& title, const QString& filter,
                                                 const QString& proposed) {
    m_asked.append(
        {Kind::SaveFile, title, title, filter, proposed, PromptButtons::Ok, PromptIcon::None});
    return NextPath(m_files, QStringLiteral("save dialog: ") + title);
}

std::optional<QString> ScriptedPrompts::BrowseForFolder(const QString& prompt) {
    m_asked.append({Kind::Folder, prompt, QString(), QString(), QString(), PromptButtons::Ok,
                    PromptIcon::None});
    return NextPath(m_folders, QStringLiteral("folder browser: ") + prompt);
}

std::optional<QString> ScriptedPrompts::NextPath(QQueue<std::optional<QString>>& queue,
                                                 const QString& what) {
    if (queue.isEmpty()) {
        ADD_FAILURE() << "unscripted " << what.toStdString();
        return std::nullopt;
    }
    return queue.dequeue();
}
