#include "support/ScriptedShell.h"

ScriptedShell& ScriptedShell::AnswerFolder(std::optional<QString> answer) {
    m_folders.enqueue(std::move(answer));
    return *this;
}

QList<QStringList> ScriptedShell::CallsOf(const QString& name) const {
    QList<QStringList> calls;
    for (const Call& call : m_calls) {
        if (call.Name == name)
            calls.append(call.Arguments);
    }
    return calls;
}

void ScriptedShell::ShellAndWait(const QString& commandLine, const QString& mode) {
    m_calls.append({QStringLiteral("ShellAndWait"), {commandLine, mode}});
}

void ScriptedShell::ShellExecute(const QString& file, const QString& parameters,
                                 const QString& directory) {
    m_calls.append({QStringLiteral("ShellExecute"), {file, parameters, directory}});
}

void ScriptedShell::ShellCopyFile(const QString& source, const QString& target) {
    m_calls.append({QStringLiteral("ShellCopyFile"), {source, target}});
}

void ScriptedShell::ShellDeleteFile(const QString& path) {
    m_calls.append({QStringLiteral("ShellDeleteFile"), {path}});
}

std::optional<QString> ScriptedShell::BrowseForFolder(const QString& title) {
    m_calls.append({QStringLiteral("BrowseForFolder"), {title}});
    return m_folders.isEmpty() ? std::nullopt : m_folders.dequeue();
}

void PrintTo(const ScriptedShell::Call& call, std::ostream* out) {
    *out << call.Name.toStdString() << '(';
    for (qsizetype i = 0; i < call.Arguments.size(); ++i)
        *out << (i > 0 ? ", " : "") << '"' << call.Arguments[i].toStdString() << '"';
    *out << ')';
}
