#include "cli/CliRun.h"
#include "support/FileSizeLimit.h"
#include "support/TestFixtures.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

class CliStoreSafetyTest : public LumbraTest {
protected:
    static std::unique_ptr<QProcess> Start(const QStringList& arguments,
                                           qint64 fileSizeLimit = -1) {
        auto process = std::make_unique<QProcess>();
        if (fileSizeLimit >= 0)
            LimitChildFileSize(*process, fileSizeLimit);
        process->start(QStringLiteral(LUMBRA_CLI_PATH), arguments);
        return process;
    }
    // Exit code and standard error.
    static std::pair<int, QString> Finish(QProcess& process) {
        EXPECT_TRUE(process.waitForFinished(120000));
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardError())};
    }
};

// Writers that run at once take turns: each reads the store only once it holds the
// writer lock, so none writes back a store that another has changed meanwhile.
TEST_F(CliStoreSafetyTest, ParallelWritersKeepEveryChangeTheyReport) {
    std::vector<std::unique_ptr<QProcess>> writers;
    QStringList changes;
    for (int i = 0; i < 18; ++i) {
        const bool group = i < 12;
        changes << (group ? QStringLiteral("G%1").arg(i)
                          : MakeFolder(QStringLiteral("Games %1").arg(i)) + '/');
        writers.push_back(Start({group ? "groups" : "folders", "add", changes.last()}));
    }
    QStringList reported;
    for (std::size_t i = 0; i < writers.size(); ++i) {
        const auto [code, err] = Finish(*writers[i]);
        // Only a writer that waited longer than its patience may give up, and says so.
        if (code == 0)
            reported << changes[int(i)];
        else
            EXPECT_TRUE(err.contains("still changing the settings")) << err.toStdString();
    }
    const QString stored = RunCli({"groups", "list"}).Out + RunCli({"folders", "list"}).Out;
    for (const QString& change : reported)
        EXPECT_TRUE(stored.contains(change + '\n')) << change.toStdString() << " was not kept";
}

TEST_F(CliStoreSafetyTest, AStoreThatCannotBeWrittenFailsWithTheSystemsReason) {
    ASSERT_EQ(RunCli({"groups", "add", "Kept"}).ExitCode, 0);
    const QString store = m_state.Store.FilePath();
    const QByteArray before = ReadFile(store);

    // A full disk: the change does not report success, and the old store stays whole.
    const auto [code, err] = Finish(*Start({"folders", "add", MakeFolder("Roms")}, 0));
    EXPECT_EQ(code, 1);
    EXPECT_TRUE(err.contains("Could not save the settings to " + store + ": File too large"))
        << err.toStdString();
    EXPECT_EQ(ReadFile(store), before);

    // A settings folder that cannot be made is named at once, not after a wait for
    // a writer that does not exist.
    const QString notAFolder = WriteFile("config-file", "x");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", notAFolder);
    const CliResult refused = RunCli({"groups", "add", "X"}, environment);
    EXPECT_EQ(refused.ExitCode, 1);
    EXPECT_TRUE(refused.Err.contains("Could not save the settings to " + notAFolder))
        << refused.Err.toStdString();
    EXPECT_TRUE(refused.Err.contains("Not a directory")) << refused.Err.toStdString();
}

// A store this process cannot read is never replaced by what it changed: the player's
// settings stay, and the command fails with the reason. (As root, the command runs as
// nobody, since root reads every file.)
TEST_F(CliStoreSafetyTest, AStoreThatCannotBeReadIsNeverReplaced) {
    QTemporaryDir open; // a folder that another user may use
    ASSERT_TRUE(QFile::setPermissions(
        open.path(), QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther |
                         QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        environment.insert(variable, open.path());
    ASSERT_EQ(RunCli({"groups", "add", "Kept"}, environment).ExitCode, 0);
    const QString store = open.path() + "/Lumbra/Lumbra.conf";
    const QByteArray before = ReadFile(store);
    ASSERT_TRUE(before.contains("Kept"));
    chmod(QFile::encodeName(open.path() + "/Lumbra").constData(), 0777);
    chmod(QFile::encodeName(open.path() + "/Lumbra/Lumbra.writer").constData(), 0666);
    chmod(QFile::encodeName(store).constData(), 0222); // anyone may write it, nobody read it

    QProcess writer;
    writer.setProcessEnvironment(environment);
    if (geteuid() == 0) {
        if (QStandardPaths::findExecutable("setpriv").isEmpty())
            GTEST_SKIP() << "running as root without setpriv";
        writer.start("setpriv", {"--reuid=65534", "--regid=65534", "--clear-groups",
                                 LUMBRA_CLI_PATH, "groups", "add", "Lost"});
    } else {
        writer.start(LUMBRA_CLI_PATH, {"groups", "add", "Lost"});
    }
    const auto [code, err] = Finish(writer);
    if (err.contains("setpriv"))
        GTEST_SKIP() << "nobody cannot run the build's lumbra-cli: " << err.toStdString();
    EXPECT_EQ(code, 1);
    EXPECT_TRUE(
        err.contains("Could not save the settings to " + store + ": the file could not be read"))
        << err.toStdString();
    chmod(QFile::encodeName(store).constData(), 0600);
    EXPECT_EQ(ReadFile(store), before);
}

} // namespace
