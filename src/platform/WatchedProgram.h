#pragma once

#include "platform/SystemShell.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryFile>
#include <memory>

// A program started directly with its argument list, its error output kept in a
// temporary file (not a pipe: the program outlives Lumbra without a broken
// pipe), so that its last lines can be shown when it fails.
class WatchedProgram {
public:
    WatchedProgram(const QString& program, const QStringList& arguments, const QString& folder);
    // A program still running is let go of, not killed.
    ~WatchedProgram();
    WatchedProgram(const WatchedProgram&) = delete;
    WatchedProgram& operator=(const WatchedProgram&) = delete;

    // False, with the reason in End(), when it could not start.
    bool Start();
    QProcess& Process() { return *m_process; }
    // How it ended, read once it has ended or failed to start.
    ProgramEnd End() const;

private:
    QString m_program;
    QProcess* m_process; // let go of while running at the end
    QTemporaryFile m_errors;
    QElapsedTimer m_clock;
    QString m_startError;
};

// The last lines of a text, at most lineCount, without blank ones.
QString LastLines(const QByteArray& text, int lineCount);
