#include "platform/WatchedProgram.h"

#include <QDir>

namespace {

constexpr int TailLines = 6;
constexpr qint64 TailBytes = 4096;

} // namespace

QString LastLines(const QByteArray& text, int lineCount) {
    QStringList lines;
    for (const QString& line : QString::fromLocal8Bit(text).split(QLatin1Char('\n'))) {
        if (!line.trimmed().isEmpty())
            lines.append(line.trimmed());
    }
    return lines.mid(std::max<qsizetype>(0, lines.size() - lineCount)).join(QLatin1Char('\n'));
}

WatchedProgram::WatchedProgram(const QString& program, const QStringList& arguments,
                               const QString& folder)
    : m_program(program), m_process(new QProcess),
      m_errors(QDir::tempPath() + QStringLiteral("/lumbra-errors-XXXXXX")) {
    m_process->setProgram(program);
    m_process->setArguments(arguments);
    m_process->setWorkingDirectory(folder);
    m_process->setStandardOutputFile(QProcess::nullDevice());
    m_process->setInputChannelMode(QProcess::ForwardedInputChannel);
}

WatchedProgram::~WatchedProgram() {
    if (m_process->state() == QProcess::NotRunning) {
        delete m_process;
        return;
    }
    // Deleting would kill it: the process object stays, with nobody told of its end.
    QObject::disconnect(m_process, nullptr, nullptr, nullptr);
}

bool WatchedProgram::Start() {
    if (!m_errors.open()) {
        m_startError = m_errors.errorString();
        return false;
    }
    m_process->setStandardErrorFile(m_errors.fileName());
    m_clock.start();
    m_process->start();
    if (!m_process->waitForStarted(-1)) {
        m_startError = m_process->errorString();
        return false;
    }
    return true;
}

ProgramEnd WatchedProgram::End() const {
    ProgramEnd end;
    end.Started = m_startError.isEmpty();
    end.StartError = m_startError;
    if (!end.Started)
        return end;
    end.Crashed = m_process->exitStatus() == QProcess::CrashExit;
    end.ExitStatus = m_process->exitCode();
    end.Early = m_clock.elapsed() < ProgramEnd::EarlySeconds * 1000;
    QFile errors(m_errors.fileName());
    if (errors.open(QIODevice::ReadOnly)) {
        errors.seek(std::max<qint64>(0, errors.size() - TailBytes));
        end.ErrorTail = LastLines(errors.readAll(), TailLines);
    }
    return end;
}
