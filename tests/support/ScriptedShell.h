#pragma once

#include "platform/SystemShell.h"

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

    ScriptedShell& AnswerFolder(std::optional<QString> answer) {
        m_folders.enqueue(std::move(answer));
        return *this;
    }

    const QList<Call>& Calls() const { return m_calls; }
    // The calls of one method, each as its argument list.
    QList<QStringList> CallsOf(const QString& name) const {
        QList<QStringList> calls;
        for (const Call& call : m_calls) {
            if (call.Name == name)
                calls.append(call.Arguments);
        }
        return calls;
    }

    void ShellAndWait(const QString& commandLine, const QString& mode) override {
        m_calls.append({"ShellAndWait", {commandLine, mode}});
    }
    void ShellExecute(const QString& file, const QString& parameters,
                      const QString& directory) override {
        m_calls.append({"ShellExecute", {file, parameters, directory}});
    }
    void OpenDocument(const QString& path) override { m_calls.append({"OpenDocument", {path}}); }
    ProgramEnd RunProgram(const QString& program, const QStringList& arguments,
                          const QString& folder) override {
        m_calls.append({"RunProgram", QStringList{program} + arguments + QStringList{folder}});
        ProgramEnd end;
        end.Started = true;
        return end;
    }
    void StartProgram(const QString& program, const QStringList& arguments, const QString& folder,
                      std::function<void(const ProgramEnd&)>) override {
        m_calls.append({"StartProgram", QStringList{program} + arguments + QStringList{folder}});
    }
    void ShellCopyFile(const QString& source, const QString& target) override {
        m_calls.append({"ShellCopyFile", {source, target}});
    }
    void ShellDeleteFile(const QString& path) override {
        m_calls.append({"ShellDeleteFile", {path}});
    }
    std::optional<QString> BrowseForFolder(const QString& title,
                                           const QString& folder = QString()) override {
        m_calls.append({"BrowseForFolder", {title, folder}});
        return m_folders.isEmpty() ? std::nullopt : m_folders.dequeue();
    }

private:
    QList<Call> m_calls;
    QQueue<std::optional<QString>> m_folders;
};

// Readable calls in failure messages.
inline void PrintTo(const ScriptedShell::Call& call, std::ostream* out) {
    *out << call.Name.toStdString() << "(\"" << call.Arguments.join("\", \"").toStdString()
         << "\")";
}
