#pragma once

#include "launch/SystemShell.h"

#include <QList>
#include <QQueue>
#include <QStringList>
#include <ostream>

// A shell for tests that starts, copies and deletes nothing: it records every call
// with its arguments, in order. The folder browser hands out the scripted answers in
// order, then nothing, as if cancelled.
//
//     ScriptedShell shell;
//     shell.AnswerFolder(QStringLiteral("/games"));
//     ... code under test ...
//     EXPECT_EQ(shell.Calls(), (QList<ScriptedShell::Call>{
//         {"ShellAndWait", {"/emu/zsnes /games/mario.smc", "ShellAndWait"}}}));
class ScriptedShell final : public SystemShell {
public:
    struct Call {
        QString Name; // the method: "ShellAndWait", "ShellExecute", "ShellCopyFile", ...
        QStringList Arguments;
        bool operator==(const Call&) const = default;
    };

    ScriptedShell& AnswerFolder(std::optional<QString> answer);

    const QList<Call>& Calls() const { return m_calls; }
    // The calls of one method, each as its argument list.
    QList<QStringList> CallsOf(const QString& name) const;

    void ShellAndWait(const QString& commandLine, const QString& mode) override;
    void ShellExecute(const QString& file, const QString& parameters,
                      const QString& directory) override;
    void ShellCopyFile(const QString& source, const QString& target) override;
    void ShellDeleteFile(const QString& path) override;
    std::optional<QString> BrowseForFolder(const QString& title) override;

private:
    QList<Call> m_calls;
    QQueue<std::optional<QString>> m_folders;
};

// Readable calls in failure messages.
void PrintTo(const ScriptedShell::Call& call, std::ostream* out);
