#pragma once

#include <QString>
#include <optional>

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
