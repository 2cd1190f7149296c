#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

// How a program started with its argument list ended.
struct ProgramEnd {
    bool Started = false;
    QString StartError; // the system's reason when it did not start
    bool Crashed = false;
    int ExitStatus = 0;
    // Whether it ended within EarlySeconds of its start: a failure then is a failure to
    // play (a missing file, a bad option), not the end of a game.
    bool Early = false;
    QString ErrorTail; // the last lines of its error output

    static constexpr int EarlySeconds = 5;
    bool FailedEarly() const { return !Started || (Early && (Crashed || ExitStatus != 0)); }
};

// Everything that leaves the process to start a program or to move a file the way
// the desktop's shell would. The real implementation starts processes directly
// (never through a shell) and asks its questions through the prompts; tests use a
// scripted one that records each call.
class SystemShell {
public:
    virtual ~SystemShell() = default;

    // Starts a command line. Mode words, in any letter case: "run", "launch",
    // "shell" start and return; "shellandwait", "shellthenclose", "runthenexit"
    // start and wait for the end while the windows keep repainting (user input
    // waits); "close", "end", "exit", "terminate" release the last started process
    // (or say "No App Shelled!"). Any other word does nothing.
    virtual void ShellAndWait(const QString& commandLine, const QString& mode) = 0;

    // The shell's "Open": a program is started detached in the folder, with the
    // parameters split into arguments as on a command line; any other file goes to
    // the desktop's opener. A program has execute permission, or is a launch script
    // (".sh", ".bat", ".pif", or starting with "#!") that /bin/sh runs. A relative
    // file name is looked for in the folder.
    virtual void ShellExecute(const QString& file, const QString& parameters,
                              const QString& directory) = 0;

    // Opens a file or folder the player wants to look at (a snapshot, an export) with
    // the desktop's opener; it is never run, whatever its permissions or first bytes.
    // When nothing can open it, the player is told so.
    virtual void OpenDocument(const QString& path) = 0;

    // Starts the program with its arguments, each one argv entry, in the folder, and
    // waits for its end while the windows keep repainting (user input waits).
    virtual ProgramEnd RunProgram(const QString& program, const QStringList& arguments,
                                  const QString& folder) = 0;
    // Starts the program the same way and returns at once. When it cannot start, or
    // ends with a failure within ProgramEnd::EarlySeconds, onEarlyFailure gets how it
    // ended (later, from the event loop, for a program that started). It keeps running
    // when Lumbra ends.
    virtual void StartProgram(const QString& program, const QStringList& arguments,
                              const QString& folder,
                              std::function<void(const ProgramEnd&)> onEarlyFailure) = 0;

    // Copies a file, asking before it replaces one; a failure is shown with the
    // system's reason.
    virtual void ShellCopyFile(const QString& source, const QString& target) = 0;

    // Moves a file to the desktop's trash after a yes/no question.
    virtual void ShellDeleteFile(const QString& path) = 0;

    // The folder the player picks, or nothing when the browser is cancelled. The
    // browser opens at folder when that folder exists.
    virtual std::optional<QString> BrowseForFolder(const QString& title,
                                                   const QString& folder = QString()) = 0;
};
