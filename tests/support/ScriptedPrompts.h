#pragma once

#include "base/Prompts.h"

#include <QList>
#include <QQueue>
#include <QStringList>
#include <gtest/gtest.h>
#include <optional>
#include <type_traits>

// Prompts for tests: answers are scripted in advance and handed out in order, one
// queue per kind, and every question asked is recorded with its exact texts.
// A box with only an OK button needs no scripted answer. A question without a
// scripted answer, or an answer never asked for, fails the running test.
class ScriptedPrompts final : public Prompts {
public:
    enum class Kind { Message, Input, OpenFile, SaveFile, Folder };
    using Path = std::optional<QString>; // std::nullopt is the Cancel button

    struct Question {
        Kind kind;
        QString text;     // message text, input prompt, folder prompt, file dialog title
        QString title;    // as given; empty means the application's title
        QString filter;   // file dialogs
        QString proposed; // proposed input or file name, the open dialog's and browser's folder
        PromptButtons buttons = PromptButtons::Ok;
        PromptIcon icon = PromptIcon::None;
    };

    ~ScriptedPrompts() override {
        const qsizetype left =
            m_messages.size() + m_inputs.size() + m_files.size() + m_folders.size();
        if (left > 0)
            ADD_FAILURE() << left << " scripted answer(s) were never asked for";
    }

    ScriptedPrompts& AnswerMessage(PromptAnswer answer) { return Add(m_messages, answer); }
    ScriptedPrompts& AnswerInput(Path answer) { return Add(m_inputs, answer); }
    // Open and save dialogs share one queue.
    ScriptedPrompts& AnswerFile(Path answer) { return Add(m_files, answer); }
    ScriptedPrompts& AnswerFolder(Path answer) { return Add(m_folders, answer); }

    const QList<Question>& Asked() const { return m_asked; }
    // The texts of every question asked, in order.
    QStringList AskedTexts() const {
        QStringList texts;
        for (const Question& question : m_asked)
            texts.append(question.text);
        return texts;
    }

    PromptAnswer Message(const QString& text, PromptButtons buttons = PromptButtons::Ok,
                         PromptIcon icon = PromptIcon::None,
                         const QString& title = QString()) override {
        const Question question{Kind::Message, text, title, {}, {}, buttons, icon};
        if (buttons != PromptButtons::Ok)
            return Next(m_messages, question);
        m_asked.append(question);
        return PromptAnswer::Ok;
    }
    Path Input(const QString& prompt, const QString& title = QString(),
               const QString& proposed = QString()) override {
        return Next(m_inputs, {Kind::Input, prompt, title, {}, proposed});
    }
    Path OpenFile(const QString& title, const QString& filter,
                  const QString& folder = QString()) override {
        return Next(m_files, {Kind::OpenFile, title, title, filter, folder});
    }
    Path SaveFile(const QString& title, const QString& filter,
                  const QString& proposed = QString()) override {
        return Next(m_files, {Kind::SaveFile, title, title, filter, proposed});
    }
    Path BrowseForFolder(const QString& prompt, const QString& folder = QString()) override {
        return Next(m_folders, {Kind::Folder, prompt, {}, {}, folder});
    }

private:
    template <typename T> ScriptedPrompts& Add(QQueue<T>& queue, T answer) {
        queue.enqueue(std::move(answer));
        return *this;
    }
    // Records the question and hands out the next answer of its queue.
    template <typename T> T Next(QQueue<T>& queue, const Question& question) {
        m_asked.append(question);
        if (!queue.isEmpty())
            return queue.dequeue();
        ADD_FAILURE() << "unscripted question: " << question.text.toStdString();
        if constexpr (std::is_same_v<T, PromptAnswer>)
            return PromptAnswer::Cancel;
        else
            return std::nullopt;
    }

    QQueue<PromptAnswer> m_messages;
    QQueue<Path> m_inputs, m_files, m_folders;
    QList<Question> m_asked;
};
