#include "support/FileSizeLimit.h"
#include "support/TestFixtures.h"

#include <QProcess>
#include <memory>
#include <vector>

namespace {

class CliStoreSafetyTest : public LumbraTest {
protected:
    std::unique_ptr<QProcess> Start(const QStringList& arguments, qint64 fileSizeLimit = -1) {
        auto process = std::make_unique<QProcess>();
        if (fileSizeLimit >= 0)
            LimitChildFileSize(*process, fileSizeLimit);
        process->start(QStringLiteral(LUMBRA_CLI_PATH), arguments);
        return process;
    }
    // Exit code and standard error.
    std::pair<int, QString> Finish(QProcess& process) {
        EXPECT_TRUE(process.waitForFinished(120000));
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardError())};
    }
    std::pair<int, QString> Run(const QStringList& arguments, qint64 fileSizeLimit = -1) {
        return Finish(*Start(arguments, fileSizeLimit));
    }
    QString Output(const QStringList& arguments) {
        const auto process = Start(arguments);
        process->waitForFinished(60000);
        return QString::fromUtf8(process->readAllStandardOutput());
    }
};

// Writers that run at once take turns: each reads the store only once it holds the
// writer lock, so none writes back a store that another has changed meanwhile.
TEST_F(CliStoreSafetyTest, ParallelWritersKeepEveryChangeTheyReport) {
    std::vector<std::unique_ptr<QProcess>> writers;
    QStringList groups;
    QStringList folders;
    for (int i = 0; i < 12; ++i) {
        groups << QStringLiteral("G%1").arg(i);
        writers.push_back(Start({"groups", "add", groups.last()}));
    }
    for (int i = 0; i < 6; ++i) {
        folders << MakeFolder(QStringLiteral("Games %1").arg(i)) + '/';
        writers.push_back(Start({"folders", "add", folders.last()}));
    }
    QStringList reported;
    for (std::size_t i = 0; i < writers.size(); ++i) {
        const auto [code, err] = Finish(*writers[i]);
        const QString change = i < 12 ? groups[int(i)] : folders[int(i) - 12];
        // Only a writer that waited longer than its patience may give up, and says so.
        if (code == 0)
            reported << change;
        else
            EXPECT_TRUE(err.contains("still changing the settings")) << err.toStdString();
    }
    const QString storedGroups = Output({"groups", "list"});
    const QString storedFolders = Output({"folders", "list"});
    for (const QString& change : reported)
        EXPECT_TRUE(storedGroups.contains(change + '\n') || storedFolders.contains(change + '\n'))
            << change.toStdString() << " was reported but not kept";
}

TEST_F(CliStoreSafetyTest, AStoreThatCannotBeWrittenFailsWithTheSystemsReason) {
    ASSERT_EQ(Run({"groups", "add", "Kept"}).first, 0);
    const QString store = m_state.Store.FilePath();
    const QByteArray before = ReadFile(store);

    // A full disk: nothing reports success, and the old store stays whole.
    for (const QStringList& change : {QStringList{"groups", "add", "Lost"},
                                      QStringList{"config", "set", "DefaultGroup", "Kept"},
                                      QStringList{"folders", "add", MakeFolder("Roms")}}) {
        const auto [code, err] = Run(change, 0);
        EXPECT_EQ(code, 1) << change.join(' ').toStdString();
        EXPECT_TRUE(err.contains("Could not save the settings to " + store + ": File too large"))
            << err.toStdString();
    }
    EXPECT_EQ(ReadFile(store), before);

    // A settings folder that cannot be made is named at once, not after a wait for
    // a writer that does not exist.
    const QString notAFolder = WriteFile("config-file", "x");
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", notAFolder);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(LUMBRA_CLI_PATH), {"groups", "add", "X"});
    const auto [code, err] = Finish(process);
    EXPECT_EQ(code, 1);
    EXPECT_TRUE(err.contains("Could not save the settings to " + notAFolder)) << err.toStdString();
    EXPECT_TRUE(err.contains("Not a directory")) << err.toStdString();
}

} // namespace
