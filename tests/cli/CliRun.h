#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

struct CliResult {
    int ExitCode = -1;
    QString Out;
    QString Err;
};

// Runs lumbra-cli to its end, in the test's environment unless another is given.
inline CliResult
RunCli(const QStringList& arguments,
       const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(LUMBRA_CLI_PATH), arguments);
    EXPECT_TRUE(process.waitForFinished(60000));
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}
