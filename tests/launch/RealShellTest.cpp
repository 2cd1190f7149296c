#include "launch/RealShell.h"
#include "launch/CommandLine.h"
#include "support/ScriptedPrompts.h"
#include "support/StandInEmulator.h"
#include "support/TestFixtures.h"

#include <QDir>
#include <QDirIterator>
#include <QTest>
#include <system_error>

namespace {

// Children start in the test's temporary folder, whatever folder the tests before
// left behind.
class RealShellTest : public LumbraTest {
protected:
    RealShellTest() : m_savedFolder(QDir::currentPath()) { QDir::setCurrent(TempPath()); }
    ~RealShellTest() override { QDir::setCurrent(m_savedFolder); }

    QString ReadFile(const QString& relativePath) const {
        QFile file(TempPath(relativePath));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    // A detached script gets a minute on a loaded machine; a pass never waits that long.
    static bool FinishesRunning(const StandInEmulator& standIn) {
        return QTest::qWaitFor([&standIn] { return standIn.Ran(); }, 60000);
    }

    const QString m_savedFolder;
    ScriptedPrompts m_prompts;
    QStringList m_opened;
    RealShell m_shell{m_prompts, [this](const QString& path) {
                          m_opened.append(path);
                          return false;
                      }};
};

TEST_F(RealShellTest, AWaitedStartPassesTheGameAsOneArgumentThroughNoShell) {
    const QString emulators = MakeFolder(QStringLiteral("Emu Folder"));
    const QString game =
        WriteFile(QStringLiteral("My Games/It's \"a\" game; $(touch pwned) & `touch pwned`.smc"));
    const QString playFolder = MakeFolder(QStringLiteral("Play"));
    QDir::setCurrent(playFolder);

    for (const bool executable : {true, false}) {
        const StandInEmulator standIn = WriteStandInEmulator(
            emulators, executable ? QStringLiteral("ZSnes") : QStringLiteral("Snes9X.sh"),
            executable, TempPath(executable ? QStringLiteral("ZSnes") : QStringLiteral("Snes9X")));
        // Unquoted and in lower case: the program is found among the prefixes.
        m_shell.ShellAndWait(standIn.Path.toLower() + QStringLiteral(" -v ") +
                                 QuoteCommandLineArgument(game),
                             QStringLiteral("ShellAndWait"));
        EXPECT_TRUE(standIn.Ran()) << "returned before the end";
        EXPECT_EQ(standIn.Arguments(), (QStringList{QStringLiteral("-v"), game}));
        EXPECT_EQ(standIn.WorkingFolder(), QFileInfo(playFolder).canonicalFilePath());
        EXPECT_EQ(standIn.Screenshots(), QStringList{QStringLiteral("shot1.png")});
        EXPECT_GT(m_shell.ShelledProcess().ProcessId, 0);
    }
    QDirIterator pwned(TempPath(), {QStringLiteral("pwned")}, QDir::AllEntries | QDir::Hidden,
                       QDirIterator::Subdirectories);
    EXPECT_FALSE(pwned.hasNext());
}

TEST_F(RealShellTest, ModeWordsWorkInAnyCaseAndCloseOnlyReleases) {
    const QString noApp = QStringLiteral("No App Shelled!");
    m_shell.ShellAndWait(QString(), QStringLiteral("close"));
    m_shell.ShellAndWait(QString(), QStringLiteral("CLOSE"));
    EXPECT_EQ(m_prompts.AskedTexts(), (QStringList{noApp, noApp}));
    EXPECT_EQ(m_prompts.Asked().first().icon, PromptIcon::None);

    const StandInEmulator ignored = WriteStandInEmulator(TempPath(), QStringLiteral("ignored"));
    m_shell.ShellAndWait(ignored.Path, QStringLiteral("open"));
    EXPECT_EQ(m_shell.ShelledProcess().ProcessId, 0);

    const std::pair<const char*, bool> words[] = {{"RUN", false},        {"Launch", false},
                                                  {"sHeLl", false},      {"ShellThenClose", true},
                                                  {"RUNTHENEXIT", true}, {"shellandwait", true}};
    for (const auto& [word, waits] : words) {
        const StandInEmulator standIn = WriteStandInEmulator(TempPath(), QString::fromLatin1(word));
        m_shell.ShellAndWait(standIn.Path + QStringLiteral(" x"), QString::fromLatin1(word));
        EXPECT_TRUE(m_shell.ShelledProcess().Held) << word;
        EXPECT_TRUE(waits ? standIn.Ran() : FinishesRunning(standIn)) << word;
        EXPECT_EQ(standIn.Arguments(), QStringList{QStringLiteral("x")}) << word;
    }
    // Waiting did not let go of the process, so only the second word finds nothing.
    m_shell.ShellAndWait(QString(), QStringLiteral("Terminate"));
    m_shell.ShellAndWait(QString(), QStringLiteral("exit"));

    m_shell.ShellAndWait(TempPath(QStringLiteral("missing/emu game.smc")), QStringLiteral("run"));
    m_shell.ShellAndWait(QString(), QStringLiteral("End"));
    EXPECT_EQ(m_prompts.AskedTexts(), (QStringList{noApp, noApp, noApp, noApp}));
    EXPECT_FALSE(ignored.Ran());
}

TEST_F(RealShellTest, ShellExecuteStartsProgramsInTheFolderAndOpensDocuments) {
    const QString emulators = MakeFolder(QStringLiteral("Emu Folder"));
    const StandInEmulator zsnes = WriteStandInEmulator(emulators, QStringLiteral("ZSnes"));
    m_shell.ShellExecute(QStringLiteral("zsnes"), QStringLiteral(" \"a b\" c"), emulators);
    ASSERT_TRUE(FinishesRunning(zsnes));
    EXPECT_EQ(zsnes.Arguments(), (QStringList{QStringLiteral("a b"), QStringLiteral("c")}));
    EXPECT_EQ(zsnes.WorkingFolder(), QFileInfo(emulators).canonicalFilePath());

    const StandInEmulator script =
        WriteStandInEmulator(emulators, QStringLiteral("Start.sh"), false);
    m_shell.ShellExecute(script.Path, QStringLiteral("x"), QString());
    ASSERT_TRUE(FinishesRunning(script));
    EXPECT_EQ(script.Arguments(), QStringList{QStringLiteral("x")});

    const QString picture = WriteFile(QStringLiteral("Snaps/Mario.PNG"), "png");
    m_shell.ShellExecute(QStringLiteral("snaps/mario.png"), QString(), QString());
    m_shell.ShellExecute(QStringLiteral("missing.png"), QString(), emulators);
    EXPECT_EQ(m_opened, QStringList{picture});
}

TEST_F(RealShellTest, CopyAsksBeforeReplacingAndReportsTheSystemsReason) {
    const QString source = WriteFile(QStringLiteral("Snaps/Mario.PNG"), "new");
    const QString target = WriteFile(QStringLiteral("Save/mario.png"), "old");
    const QString replace = target + QStringLiteral(" already exists.\nDo you want to replace it?");
    m_prompts.AnswerMessage(PromptAnswer::No).AnswerMessage(PromptAnswer::Yes);

    m_shell.ShellCopyFile(TempPath(QStringLiteral("snaps/mario.png")), target);
    EXPECT_EQ(ReadFile(QStringLiteral("Save/mario.png")), QStringLiteral("old"));
    m_shell.ShellCopyFile(source, target);
    EXPECT_EQ(ReadFile(QStringLiteral("Save/mario.png")), QStringLiteral("new"));
    m_shell.ShellCopyFile(source, TempPath(QStringLiteral("SAVE/luigi.png")));
    EXPECT_EQ(ReadFile(QStringLiteral("Save/luigi.png")), QStringLiteral("new"));
    m_shell.ShellCopyFile(TempPath(QStringLiteral("Snaps/none.png")), target);

    const std::string missing =
        std::make_error_code(std::errc::no_such_file_or_directory).message();
    EXPECT_EQ(m_prompts.AskedTexts(), (QStringList{replace, QStringLiteral("Operation Failed"),
                                                   replace, QString::fromStdString(missing)}));
    EXPECT_EQ(m_prompts.Asked()[0].icon, PromptIcon::Exclamation);
    EXPECT_EQ(m_prompts.Asked()[1].icon, PromptIcon::Critical);
    EXPECT_EQ(m_prompts.Asked()[3].icon, PromptIcon::Critical);
}

TEST_F(RealShellTest, DeleteAsksThenMovesToTheTrashAndTheBrowserMayGiveNothing) {
    const QString file = WriteFile(QStringLiteral("Save/Mario.SRM"), "sram");
    const QString question =
        QStringLiteral("Are you sure you want to move 'Mario.SRM' to the trash?");
    m_prompts.AnswerMessage(PromptAnswer::No).AnswerMessage(PromptAnswer::Yes);

    m_shell.ShellDeleteFile(file);
    EXPECT_TRUE(QFile::exists(file));
    m_shell.ShellDeleteFile(TempPath(QStringLiteral("save/mario.srm")));
    EXPECT_FALSE(QFile::exists(file));
    QFile trashed(qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/Trash/files/Mario.SRM"));
    EXPECT_TRUE(trashed.open(QIODevice::ReadOnly) && trashed.readAll() == "sram");
    m_shell.ShellDeleteFile(TempPath(QStringLiteral("Save/mario.jpg"))); // nothing to ask about
    EXPECT_EQ(m_prompts.AskedTexts(), (QStringList{question, question}));
    EXPECT_EQ(m_prompts.Asked()[0].icon, PromptIcon::Question);

    m_prompts.AnswerFolder(std::nullopt).AnswerFolder(QStringLiteral("/games"));
    EXPECT_EQ(m_shell.BrowseForFolder(QStringLiteral("Pick")), std::nullopt);
    EXPECT_EQ(m_shell.BrowseForFolder(QStringLiteral("Pick")), QStringLiteral("/games"));
}

} // namespace
