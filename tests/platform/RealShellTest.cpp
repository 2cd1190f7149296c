#include "platform/RealShell.h"
#include "platform/CommandLine.h"
#include "platform/DocumentOpener.h"
#include "support/EnvironmentChange.h"
#include "support/ScriptedPrompts.h"
#include "support/StandInEmulator.h"
#include "support/TestFixtures.h"

#include <QDir>
#include <QTest>
#include <system_error>

namespace {

// Children start in the test's temporary folder, whatever folder the tests before
// left behind.
class RealShellTest : public LumbraTest {
protected:
    RealShellTest() { QDir::setCurrent(TempPath()); }

    // A detached script gets a minute on a loaded machine; a pass never waits that long.
    static bool FinishesRunning(const StandInEmulator& standIn) {
        return QTest::qWaitFor([&standIn] { return standIn.Ran(); }, 60000);
    }

    ScriptedPrompts m_prompts;
    QStringList m_opened;
    RealShell m_shell{m_prompts, [this](const QString& path) {
                          m_opened.append(path);
                          return false;
                      }};
};

TEST_F(RealShellTest, AWaitedStartPassesTheGameAsOneArgumentThroughNoShell) {
    const QString game = WriteFile("My Games/It's \"a\" game; $(touch pwned) & `touch pwned`.smc");
    const QString playFolder = MakeFolder("Play");
    QDir::setCurrent(playFolder);
    const StandInEmulator zsnes = WriteStandInEmulator(MakeFolder("Emu Folder"), "ZSnes");
    // Unquoted and in lower case: the program is found among the prefixes.
    m_shell.ShellAndWait(zsnes.Path.toLower() + " -v " + QuoteCommandLineArgument(game),
                         "ShellAndWait");
    EXPECT_TRUE(zsnes.Ran()) << "returned before the end";
    EXPECT_EQ(zsnes.Arguments(), (QStringList{"-v", game}));
    EXPECT_EQ(zsnes.WorkingFolder(), QFileInfo(playFolder).canonicalFilePath());
    EXPECT_GT(m_shell.ShelledProcess().ProcessId, 0);
    EXPECT_EQ(QDir(playFolder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

TEST_F(RealShellTest, ModeWordsWorkInAnyCaseAndCloseOnlyReleases) {
    const QString noApp = "No App Shelled!";
    m_shell.ShellAndWait(QString(), "close");
    m_shell.ShellAndWait(QString(), "CLOSE");
    EXPECT_EQ(m_prompts.AskedTexts(), (QStringList{noApp, noApp}));
    EXPECT_EQ(m_prompts.Asked().first().icon, PromptIcon::None);

    const StandInEmulator ignored = WriteStandInEmulator(TempPath(), "ignored");
    m_shell.ShellAndWait(ignored.Path, "open");
    EXPECT_EQ(m_shell.ShelledProcess().ProcessId, 0);

    const std::pair<QString, bool> words[] = {{"RUN", false},        {"Launch", false},
                                              {"sHeLl", false},      {"ShellThenClose", true},
                                              {"RUNTHENEXIT", true}, {"shellandwait", true}};
    for (const auto& [word, waits] : words) {
        const StandInEmulator standIn = WriteStandInEmulator(TempPath(), word);
        m_shell.ShellAndWait(standIn.Path + " x", word);
        EXPECT_TRUE(m_shell.ShelledProcess().Held) << word.toStdString();
        EXPECT_TRUE(waits ? standIn.Ran() : FinishesRunning(standIn)) << word.toStdString();
        EXPECT_EQ(standIn.Arguments(), QStringList{"x"}) << word.toStdString();
    }
    // Waiting did not let go of the process, so only the second word finds nothing.
    m_shell.ShellAndWait(QString(), "Terminate");
    m_shell.ShellAndWait(QString(), "exit");

    m_shell.ShellAndWait(TempPath("missing/emu game.smc"), "run");
    m_shell.ShellAndWait(QString(), "End");
    EXPECT_EQ(m_prompts.AskedTexts(), QStringList(4, noApp));
    EXPECT_FALSE(ignored.Ran());
}

TEST_F(RealShellTest, ShellExecuteStartsProgramsInTheFolderAndOpensDocuments) {
    const QString emulators = MakeFolder("Emu Folder");
    const StandInEmulator zsnes = WriteStandInEmulator(emulators, "ZSnes");
    m_shell.ShellExecute("zsnes", " \"a b\" c", emulators);
    ASSERT_TRUE(FinishesRunning(zsnes));
    EXPECT_EQ(zsnes.Arguments(), (QStringList{"a b", "c"}));
    EXPECT_EQ(zsnes.WorkingFolder(), QFileInfo(emulators).canonicalFilePath());

    const StandInEmulator script = WriteStandInEmulator(emulators, "Start.sh", false);
    m_shell.ShellExecute(script.Path, "x", QString());
    ASSERT_TRUE(FinishesRunning(script));
    EXPECT_EQ(script.Arguments(), QStringList{"x"});

    const QString picture = WriteFile("Snaps/Mario.PNG", "png");
    m_shell.ShellExecute("snaps/mario.png", QString(), QString());
    m_shell.ShellExecute("missing.png", QString(), emulators);
    EXPECT_EQ(m_opened, QStringList{picture});
    // The opener found no program for it, and the player is told so.
    EXPECT_EQ(m_prompts.AskedTexts(), QStringList{"No program is set up to open PNG images."});

    // A file to look at goes to the opener even when it could run: an export saved as
    // "list.sh", a picture on a disk where every file has execute permission.
    m_opened.clear();
    const StandInEmulator export_ = WriteStandInEmulator(emulators, "list.sh");
    m_shell.OpenDocument(export_.Path);
    EXPECT_EQ(m_opened, QStringList{export_.Path});
}

TEST_F(RealShellTest, NothingToOpenAFileIsNamedByItsType) {
    const std::pair<QString, QString> cases[] = {
        {WriteFile("list.HTML"), "HTML files"},
        {WriteFile("shot.jpeg"), "JPEG images"},
        {MakeFolder("Exports"), "folders"},
        {WriteFile("README"), "files without an extension"}};
    for (const auto& [path, kind] : cases)
        EXPECT_EQ(NoProgramToOpenMessage(path), "No program is set up to open " + kind + '.');

    // The desktop's own answer, from a stand-in xdg-mime that knows only PNG images.
    WriteStandInScript(MakeFolder("tools") + "/xdg-mime",
                       "[ \"$3\" = image/png ] && echo viewer.desktop\nexit 0");
    const EnvironmentChange path("PATH", TempPath("tools:") + qEnvironmentVariable("PATH"));
    EXPECT_TRUE(HasProgramToOpen(WriteFile("a.png", "\x89PNG\r\n\x1a\n")));
    EXPECT_FALSE(HasProgramToOpen(WriteFile("a.html", "<html></html>")));
}

TEST_F(RealShellTest, CopyAndDeleteAskFirstAndReportTheSystemsReason) {
    const QString source = WriteFile("Snaps/Mario.PNG", "new");
    const QString target = WriteFile("Save/mario.png", "old");
    const QString replace = target + " already exists.\nDo you want to replace it?";
    m_prompts.AnswerMessage(PromptAnswer::No).AnswerMessage(PromptAnswer::Yes);
    m_shell.ShellCopyFile(TempPath("snaps/mario.png"), target);
    EXPECT_EQ(ReadFile(target), "old");
    m_shell.ShellCopyFile(source, target);
    EXPECT_EQ(ReadFile(target), "new");
    m_shell.ShellCopyFile(source, TempPath("SAVE/luigi.png"));
    EXPECT_EQ(ReadFile(TempPath("Save/luigi.png")), "new");
    m_shell.ShellCopyFile(TempPath("Snaps/none.png"), target);
    const QString missing = QString::fromStdString(
        std::make_error_code(std::errc::no_such_file_or_directory).message());
    EXPECT_EQ(m_prompts.AskedTexts(), (QStringList{replace, "Operation Failed", replace, missing}));
    EXPECT_EQ(m_prompts.Asked()[0].icon, PromptIcon::Exclamation);
    EXPECT_EQ(m_prompts.Asked()[1].icon, PromptIcon::Critical);
    EXPECT_EQ(m_prompts.Asked()[3].icon, PromptIcon::Critical);

    // Deleting asks, then moves the file to the trash.
    const QString file = WriteFile("Save/Mario.SRM", "sram");
    const QString question = "Are you sure you want to move 'Mario.SRM' to the trash?";
    m_prompts.AnswerMessage(PromptAnswer::No).AnswerMessage(PromptAnswer::Yes);
    m_shell.ShellDeleteFile(file);
    EXPECT_TRUE(QFile::exists(file));
    m_shell.ShellDeleteFile(TempPath("save/mario.srm"));
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(ReadFile(qEnvironmentVariable("XDG_DATA_HOME") + "/Trash/files/Mario.SRM"), "sram");
    m_shell.ShellDeleteFile(TempPath("Save/mario.jpg")); // nothing to ask about
    EXPECT_EQ(m_prompts.AskedTexts().mid(4), (QStringList{question, question}));
    EXPECT_EQ(m_prompts.Asked()[4].icon, PromptIcon::Question);

    m_prompts.AnswerFolder(std::nullopt).AnswerFolder("/games");
    EXPECT_EQ(m_shell.BrowseForFolder("Pick"), std::nullopt);
    EXPECT_EQ(m_shell.BrowseForFolder("Pick"), "/games");
}

TEST_F(RealShellTest, AProgramTellsHowItEndedAndWhatItSaidLastWaitedForOrNot) {
    const QString folder = MakeFolder("Game Folder");
    const QString program = WriteStandInScript(
        TempPath("emu"), "pwd -P > \"$0.cwd\"; printf '%s\\n' \"$@\" > \"$0.args\"\n"
                         "for n in 1 2 3 4 5 6 7 8; do echo \"line $n\" >&2; done\n"
                         "echo 'no core at /x.so' >&2; exit 3");
    const ProgramEnd end = m_shell.RunProgram(program, {"-L", "a b; $(c)"}, folder);
    EXPECT_TRUE(end.Started);
    EXPECT_EQ(end.ExitStatus, 3);
    EXPECT_FALSE(end.Crashed);
    EXPECT_TRUE(end.FailedEarly());
    EXPECT_EQ(end.ErrorTail, "line 4\nline 5\nline 6\nline 7\nline 8\nno core at /x.so");
    EXPECT_EQ(ReadFile(program + ".args"), "-L\na b; $(c)\n");
    EXPECT_EQ(ReadFile(program + ".cwd").trimmed(), folder.toUtf8());

    const ProgramEnd missing = m_shell.RunProgram(TempPath("nothing here"), {}, folder);
    EXPECT_FALSE(missing.Started);
    EXPECT_FALSE(missing.StartError.isEmpty());
    EXPECT_TRUE(missing.FailedEarly());
    const ProgramEnd fine =
        m_shell.RunProgram(WriteStandInScript(TempPath("fine"), "echo chatter >&2"), {}, folder);
    EXPECT_FALSE(fine.FailedEarly());

    // Started without waiting: a failure is reported when the program ends, a program
    // that works says nothing. (One that cannot start is reported at once: see the
    // found emulators' launch.)
    QList<ProgramEnd> failures;
    const auto record = [&failures](const ProgramEnd& end) { failures.append(end); };
    const StandInEmulator works = WriteStandInEmulator(MakeFolder("Works"), "works");
    m_shell.StartProgram(works.Path, {"game.smc"}, TempPath(), record);
    m_shell.StartProgram(WriteStandInScript(TempPath("bad"), "echo 'bad option -z' >&2; exit 2"),
                         {"-z"}, TempPath(), record);
    ASSERT_TRUE(QTest::qWaitFor([&failures] { return failures.size() == 1; }, 60000));
    EXPECT_EQ(failures.last().ExitStatus, 2);
    EXPECT_EQ(failures.last().ErrorTail, "bad option -z");
    ASSERT_TRUE(FinishesRunning(works));
    EXPECT_EQ(works.Arguments(), QStringList{"game.smc"});
    EXPECT_EQ(failures.size(), 1);
}

} // namespace
