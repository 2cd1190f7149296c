#pragma once

#include "app/Prompts.h"

#include <QList>
#include <QQueue>
#include <QString>
#include <optional>

// Prompts for tests: answers are scripted in advance and handed out in order, one
// queue per kind, and every question asked is recorded with its exact texts.
// A box with only an OK button needs no scripted answer. A question without a
// scripted answer, or an answer never asked for, fails the running test.
class ScriptedPrompts final : public Prompts {
public:
    enum class Kind { Message, Input, OpenFile, SaveFile, Folder };

    struct Question {
        Kind kind;
        QString text;     // message text, input prompt, folder prompt, file dialog title
        QString title;    // as given; empty means the application's title
        QString filter;   // file dialogs
        QString proposed; // proposed input or file name, the open dialog's folder
        PromptButtons buttons;
        PromptIcon icon;
    };

    ~ScriptedPrompts() override;

    ScriptedPrompts& AnswerMessage(PromptAnswer answer);
    // std::nullopt is the Cancel button.
    ScriptedPrompts& AnswerInput(std::optional<QString> answer);
    // Open and save dialogs share one queue.
    ScriptedPrompts& AnswerFile(std::optional<QString> answer);
    ScriptedPrompts& AnswerFolder(std::optional<QString> answer);

    const QList<Question>& Asked() const { return m_asked; }
    // The texts of every question asked, in order.
    QStringList AskedTexts() const;
    int Unanswered() const;

    PromptAnswer Message(const QString& text, PromptButtons buttons = PromptButtons::Ok,
                         PromptIcon icon = PromptIcon::None,
                         const QString& title = QString()) override;
    std::optional<QString> Input(const QString& prompt, const QString& title = QString(),
                                 const QString& proposed = QString()) override;
    std::optional<QString> OpenFile(const QString& title, const QString& filter,
                                    const QString& folder = QString()) override;
    std::optional<QString> SaveFile(const QString& title, const QString& filter,
                                    const QString& proposed = QString()) override;
    std::optional<QString> BrowseForFolder(const QString& prompt) override;

private:
    std::optional<QString> NextPath(QQueue<std::optional<QString>>& queue, const QString& what);

    QQueue<PromptAnswer> m_messages;
    QQueue<std::optional<QString>> m_inputs;
    QQueue<std::optional<QString>> m_files;
    QQueue<std::optional<QString>> m_folders;
    QList<Question> m_asked;
};
