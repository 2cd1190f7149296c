#include "platform/RealShell.h"

#include "base/Prompts.h"
#include "base/StringHelpers.h"
#include "platform/CommandLine.h"
#include "platform/DocumentOpener.h"
#include "platform/PathResolver.h"
#include "platform/WatchedProgram.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <filesystem>
#include <initializer_list>
#include <system_error>

namespace {

bool IsOneOf(const QString& word, std::initializer_list<const char*> words) {
    for (const char* candidate : words) {
        if (word == QLatin1String(candidate))
            return true;
    }
    return false;
}

// Launch scripts count as programs even without execute permission (CommandForFile
// runs them by /bin/sh); any other file without it is a document.
bool IsProgram(const QFileInfo& info) {
    if (info.isExecutable())
        return true;
    if (IsOneOf(info.suffix().toLower(), {"sh", "bat", "pif"}))
        return true;
    QFile file(info.absoluteFilePath());
    return file.open(QIODevice::ReadOnly) && file.read(2) == "#!";
}

// Where a file that may not exist yet goes: its folder is resolved, its name kept.
QString TargetPath(PathResolver& resolver, const QString& path) {
    const QString existing = resolver.Resolve(path);
    if (!existing.isEmpty())
        return existing;
    const QFileInfo info(path);
    return resolver.ResolveOrKeep(AddBackslash(info.path())) + info.fileName();
}

std::filesystem::path FileSystemPath(const QString& path) {
    return std::filesystem::path(path.toStdU16String());
}

} // namespace

RealShell::RealShell(Prompts& prompts, DocumentOpener openDocument)
    : m_prompts(prompts), m_openDocument(std::move(openDocument)) {}

RealShell::~RealShell() = default;

ProgramEnd RealShell::RunProgram(const QString& program, const QStringList& arguments,
                                 const QString& folder) {
    WatchedProgram watched(program, arguments, folder);
    if (!watched.Start())
        return watched.End();
    QProcess& process = watched.Process();
    if (process.state() != QProcess::NotRunning) {
        QEventLoop loop;
        QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    return watched.End();
}

void RealShell::StartProgram(const QString& program, const QStringList& arguments,
                             const QString& folder,
                             std::function<void(const ProgramEnd&)> onEarlyFailure) {
    std::erase_if(m_started, [](const std::unique_ptr<WatchedProgram>& started) {
        return started->Process().state() == QProcess::NotRunning;
    });
    auto watched = std::make_unique<WatchedProgram>(program, arguments, folder);
    if (!watched->Start()) {
        if (onEarlyFailure)
            onEarlyFailure(watched->End());
        return;
    }
    WatchedProgram* started = watched.get();
    QObject::connect(&started->Process(), &QProcess::finished, &started->Process(),
                     [started, onEarlyFailure] {
                         const ProgramEnd end = started->End();
                         if (end.FailedEarly() && onEarlyFailure)
                             onEarlyFailure(end);
                     });
    m_started.push_back(std::move(watched));
}

void RealShell::ShellAndWait(const QString& commandLine, const QString& mode) {
    const QString word = mode.toLower();
    if (IsOneOf(word, {"run", "launch", "shell"})) {
        StartDetached(ParseCommandLine(commandLine));
    } else if (IsOneOf(word, {"shellandwait", "shellthenclose", "runthenexit"})) {
        StartAndWait(ParseCommandLine(commandLine));
    } else if (IsOneOf(word, {"close", "end", "exit", "terminate"})) {
        // Lets go of the process; it keeps running.
        if (m_shelledProcess.Held)
            m_shelledProcess.Held = false;
        else
            m_prompts.Message(QStringLiteral("No App Shelled!"));
    }
}

void RealShell::StartDetached(const ParsedCommand& command) {
    m_shelledProcess = {};
    qint64 processId = 0;
    if (!command.Program.isEmpty() &&
        QProcess::startDetached(command.Program, command.Arguments, QString(), &processId))
        m_shelledProcess = {processId, true};
}

// The local event loop keeps timers and repaints going for as long as the game is
// played, while the player's clicks and keys wait for its end.
void RealShell::StartAndWait(const ParsedCommand& command) {
    m_shelledProcess = {};
    if (command.Program.isEmpty())
        return;
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.setInputChannelMode(QProcess::ForwardedInputChannel);
    QEventLoop loop;
    QObject::connect(&process, &QProcess::started, &loop, [this, &process] {
        m_shelledProcess = {process.processId(), true};
    });
    QObject::connect(&process, &QProcess::stateChanged, &loop,
                     [&loop](QProcess::ProcessState state) {
                         if (state == QProcess::NotRunning)
                             loop.quit();
                     });
    process.start(command.Program, command.Arguments);
    // A start that failed at once has already quit a loop that was not running yet.
    if (process.state() != QProcess::NotRunning)
        loop.exec(QEventLoop::ExcludeUserInputEvents);
}

void RealShell::ShellExecute(const QString& file, const QString& parameters,
                             const QString& directory) {
    PathResolver resolver;
    const QString folder =
        directory.isEmpty() ? QString() : resolver.ResolveOrKeep(AddBackslash(directory));
    const QString resolved = resolver.Resolve(QDir::isRelativePath(file) ? folder + file : file);
    if (resolved.isEmpty())
        return;
    const QFileInfo info(resolved);
    if (info.isFile() && IsProgram(info)) {
        const ParsedCommand command =
            CommandForFile(info.absoluteFilePath(), SplitArguments(parameters));
        QProcess::startDetached(command.Program, command.Arguments, folder);
    } else {
        OpenDocument(info.absoluteFilePath());
    }
}

void RealShell::OpenDocument(const QString& path) {
    const QString resolved = PathResolver().Resolve(path);
    if (resolved.isEmpty())
        return;
    if (!m_openDocument || !m_openDocument(resolved))
        m_prompts.Message(NoProgramToOpenMessage(resolved), PromptButtons::Ok,
                          PromptIcon::Exclamation);
}

void RealShell::ShellCopyFile(const QString& source, const QString& target) {
    PathResolver resolver;
    const std::filesystem::path from = FileSystemPath(resolver.ResolveOrKeep(source));
    const QString to = TargetPath(resolver, target);
    // A source that cannot be reached fails with its reason before any question.
    std::error_code error;
    static_cast<void>(std::filesystem::status(from, error));
    if (!error && QFileInfo::exists(to)) {
        const PromptAnswer answer =
            m_prompts.Message(to + QStringLiteral(" already exists.\nDo you want to replace it?"),
                              PromptButtons::YesNo, PromptIcon::Exclamation);
        if (answer != PromptAnswer::Yes) {
            m_prompts.Message(QStringLiteral("Operation Failed"), PromptButtons::Ok,
                              PromptIcon::Critical);
            return;
        }
    }
    if (!error)
        std::filesystem::copy_file(from, FileSystemPath(to),
                                   std::filesystem::copy_options::overwrite_existing, error);
    if (error)
        m_prompts.Message(QString::fromStdString(error.message()), PromptButtons::Ok,
                          PromptIcon::Critical);
}

// A path that names nothing asks nothing: there is nothing to move.
void RealShell::ShellDeleteFile(const QString& path) {
    const QString resolved = ResolvePath(path);
    if (resolved.isEmpty())
        return;
    const QString question = QStringLiteral("Are you sure you want to move '") +
                             QFileInfo(resolved).fileName() + QStringLiteral("' to the trash?");
    if (m_prompts.Message(question, PromptButtons::YesNo, PromptIcon::Question) ==
        PromptAnswer::Yes)
        QFile::moveToTrash(resolved);
}

std::optional<QString> RealShell::BrowseForFolder(const QString& title, const QString& folder) {
    return m_prompts.BrowseForFolder(title, folder);
}
