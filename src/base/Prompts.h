#pragma once

#include <QString>
#include <optional>

enum class PromptIcon { None, Information, Question, Exclamation, Critical };
enum class PromptButtons { Ok, YesNo, YesNoCancel };
enum class PromptAnswer { Ok, Yes, No, Cancel };

// Every question the program asks the player goes through this interface: message
// boxes, input boxes, file dialogs and the folder browser. The windows adapt it to
// real dialogs; tests script it. A title left empty means the application title.
class Prompts {
public:
    virtual ~Prompts() = default;

    virtual PromptAnswer Message(const QString& text, PromptButtons buttons = PromptButtons::Ok,
                                 PromptIcon icon = PromptIcon::None,
                                 const QString& title = QString()) = 0;

    // The answer, or nothing when the player cancels.
    virtual std::optional<QString> Input(const QString& prompt, const QString& title = QString(),
                                         const QString& proposed = QString()) = 0;

    // Filters use the "Description|*.a;*.b|Other|*.c" form.
    virtual std::optional<QString> OpenFile(const QString& title, const QString& filter,
                                            const QString& folder = QString()) = 0;
    virtual std::optional<QString> SaveFile(const QString& title, const QString& filter,
                                            const QString& proposed = QString()) = 0;

    // The browser opens at folder when that folder exists.
    virtual std::optional<QString> BrowseForFolder(const QString& prompt,
                                                   const QString& folder = QString()) = 0;
};

// Prompts with no file dialog or folder browser (a terminal, a benchmark): each of
// those is cancelled.
class PromptsWithoutDialogs : public Prompts {
public:
    std::optional<QString> OpenFile(const QString&, const QString&, const QString&) override {
        return std::nullopt;
    }
    std::optional<QString> SaveFile(const QString&, const QString&, const QString&) override {
        return std::nullopt;
    }
    std::optional<QString> BrowseForFolder(const QString&, const QString&) override {
        return std::nullopt;
    }
};
