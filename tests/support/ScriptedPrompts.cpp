#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

ScriptedPrompts::~ScriptedPrompts() {
    const qsizetype left = m_messages.size() + m_inputs.size() + m_files.size() + m_folders.size();
    if (left > 0)
        ADD_FAILURE() << left << " scripted answer(s) were never asked for";
}

QStringList ScriptedPrompts::AskedTexts() const {
    QStringList texts;
    for (const Question& question : m_asked)
        texts.append(question.text);
    return texts;
}

template <typename T> T ScriptedPrompts::Next(QQueue<T>& queue, const Question& question) {
    m_asked.append(question);
    if (!queue.isEmpty())
        return queue.dequeue();
    ADD_FAILURE() << "unscripted question: " << question.text.toStdString();
    if constexpr (std::is_same_v<T, PromptAnswer>)
        return PromptAnswer::Cancel;
    else
        return std::nullopt;
}

PromptAnswer ScriptedPrompts::Message(const QString& text, PromptButtons buttons, PromptIcon icon,
                                      const QString& title) {
    if (buttons != PromptButtons::Ok)
        return Next(m_messages, {Kind::Message, text, title, {}, {}, buttons, icon});
    m_asked.append({Kind::Message, text, title, {}, {}, buttons, icon});
    return PromptAnswer::Ok;
}

template ScriptedPrompts::Path ScriptedPrompts::Next(QQueue<Path>&, const Question&);
