#include "catalogue/PlayStatistics.h"
#include "emulators/FoundEmulators.h"
#include "support/FilesAnywhere.h"
#include "support/LaunchTest.h"
#include "support/SnesImageBuilder.h"
#include "support/StandInEmulator.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {

// The suite's XDG folders outlive a test: what a test writes there goes at its end.
QString RetroArchHome() {
    return qEnvironmentVariable("XDG_CONFIG_HOME") + "/retroarch";
}
QString ZipRules() {
    return qEnvironmentVariable("XDG_DATA_HOME") + "/Lumbra/emulators/zip.json";
}

// A RetroArch that writes as the real one does: a screenshot of the game named after
// it in its own screenshot folder (and one of another game), its arguments and folder
// beside itself; then it prints the given error lines and ends with the status.
QString WriteRetroArch(const QString& path, int status = 0, const QByteArray& errors = {}) {
    return WriteStandInScript(
        path, "pwd -P > \"$0.cwd.txt\"; : > \"$0.args.txt\"\n"
              "for a in \"$@\"; do printf '%s\\n' \"$a\" >> \"$0.args.txt\"; last=$a; done\n"
              "shots=\"$XDG_CONFIG_HOME/retroarch/screenshots\"; mkdir -p \"$shots\"\n"
              "name=$(basename \"$last\"); name=${name%.*}\n"
              "echo png > \"$shots/$name-261122-235959.png\"\n"
              "echo png > \"$shots/Other Game-261122-235959.png\"\n" +
                  errors + "\nexit " + QByteArray::number(status));
}

class FoundEmulatorLaunchTest : public LaunchTest {
protected:
    FoundEmulatorLaunchTest() {
        m_program = WriteRetroArch(TempPath("retroarch"));
        FoundEmulator retroArch{.Name = "RetroArch (Snes9x)",
                                .Entry = "RetroArch",
                                .Program = m_program,
                                .Core = "/cores/snes9x_libretro.so",
                                .Command = "{program} -L {core} {options} {game}",
                                .DefaultProfile = "quiet"};
        WriteFoundEmulator(m_state.Store, retroArch);
        WriteProfile(m_state.Store, retroArch.Name, "quiet", "--verbose=0");
        WriteProfile(m_state.Store, retroArch.Name, "Full Screen", " -f  --max-frames=2 ");
        m_game = WriteFile("My Games/Super Game.SMC",
                           SnesImageBuilder::ValidLoRomWithCopierHeader("SUPER"));
        MakeZip("My Games/Zipped Game.zip",
                {{"Zipped Quest.sfc", SnesImageBuilder::ValidLoRomWithCopierHeader("ZIPPED")}});
        GameList_ImportFileList(m_state, TempPath("My Games"));
    }
    ~FoundEmulatorLaunchTest() override {
        QDir(RetroArchHome()).removeRecursively();
        QFile::remove(ZipRules());
    }
    QStringList Arguments() const { return StandInEmulator{m_program}.Arguments(); }

    QString m_program;
    QString m_game;
};

TEST_F(FoundEmulatorLaunchTest, WaitingPlayStartsItDirectlyThenOffersTheScreenshotItWrote) {
    EnableLog();
    m_state.Options.DefaultEmulator = "retroarch (snes9x)";
    GameRecord& game = Game("super game.smc");
    game.Emulator = "Default";
    m_prompts.AnswerMessage(PromptAnswer::Yes); // "Use this snapshot for super game?"

    ASSERT_EQ(Launch("super game.smc"), LaunchEnd::Ended);
    EXPECT_EQ(Arguments(), (QStringList{"-L", "/cores/snes9x_libretro.so", "--verbose=0", m_game}));
    EXPECT_EQ(StandInEmulator{m_program}.WorkingFolder(), TempPath("My Games"));
    EXPECT_EQ(m_prompts.AskedTexts().first(),
              "retroarch -L /cores/snes9x_libretro.so --verbose=0 \"" + m_game + "\"");
    // Only the game's own screenshot is offered, and it becomes the snapshot.
    EXPECT_EQ(m_player.Shown, QStringList{"Super Game-261122-235959.png"});
    EXPECT_TRUE(QFile::exists(TempPath("Snaps/super game.png")));
    EXPECT_TRUE(QFile::exists(RetroArchHome() + "/screenshots/Other Game-261122-235959.png"));
    EXPECT_TRUE(LogText().contains("\r\n    Emulator: RetroArch (Snes9x)\r\n    Launch File: " +
                                   m_program));

    // The game's profile wins over the default one; the command box can be off, and
    // with a snapshot in place the wizard stays away.
    game.Emulator = "RetroArch (Snes9x)";
    game.Profile = "Full Screen";
    m_state.Options.ShowCommandLine = 0;
    const qsizetype asked = m_prompts.Asked().size();
    m_player.Shown.clear();
    ASSERT_EQ(Launch("super game.smc"), LaunchEnd::Ended);
    EXPECT_EQ(Arguments(),
              (QStringList{"-L", "/cores/snes9x_libretro.so", "-f", "--max-frames=2", m_game}));
    EXPECT_EQ(m_prompts.Asked().size(), asked);
    EXPECT_TRUE(m_player.Shown.isEmpty());
    EXPECT_EQ(ReadPlayStatistics(m_state.Store, game).PlayCount, 2);
}

TEST_F(FoundEmulatorLaunchTest, AZipGoesAsItIsToAnEmulatorThatReadsZipsAndIsExtractedOtherwise) {
    Game("zipped game.zip").Emulator = "RetroArch (Snes9x)";
    m_state.Options.ShowCommandLine = 0;
    m_prompts.AnswerMessage(PromptAnswer::No); // keeps the screenshot where it is
    ASSERT_EQ(Launch("zipped game.zip"), LaunchEnd::Ended);
    EXPECT_EQ(Arguments().last(), TempPath("My Games/Zipped Game.zip"));
    EXPECT_EQ(m_player.Shown, QStringList{"Zipped Game-261122-235959.png"});
    EXPECT_EQ(QDir(TempPath("Unzip")).entryList(QDir::Files), QStringList());

    ASSERT_TRUE(
        WriteFileAt(ZipRules(), R"({"emulators": [{"name": "RetroArch", "readsZip": false}]})"));
    m_player.Shown.clear();
    m_prompts.AnswerMessage(PromptAnswer::No);
    ASSERT_EQ(Launch("zipped game.zip"), LaunchEnd::Ended);
    EXPECT_EQ(Arguments().last(), TempPath("Unzip/Zipped Quest.sfc"));
    // Its screenshot is named after the game it was given.
    EXPECT_EQ(m_player.Shown, QStringList{"Zipped Quest-261122-235959.png"});
    EXPECT_EQ(QDir(TempPath("Unzip")).entryList(QDir::Files), QStringList()); // flushed
}

TEST_F(FoundEmulatorLaunchTest, AnEmulatorThatFailsAtOnceIsReportedWithItsLastErrorLines) {
    EnableLog();
    m_state.Options.ShowCommandLine = 0;
    WriteRetroArch(m_program, 1,
                   "echo 'Failed to open libretro core: /cores/snes9x_libretro.so' >&2");
    Game("super game.smc").Emulator = "RetroArch (Snes9x)";
    m_prompts.AnswerMessage(PromptAnswer::No); // the wizard's question
    ASSERT_EQ(Launch("super game.smc"), LaunchEnd::Failed);
    const QString report = "RetroArch (Snes9x) stopped at once with exit status 1.\r\n\r\n"
                           "Failed to open libretro core: /cores/snes9x_libretro.so";
    ASSERT_EQ(m_prompts.AskedTexts().first(), report);
    EXPECT_EQ(m_prompts.Asked().first().icon, PromptIcon::Exclamation);
    EXPECT_TRUE(LogText().contains("    Emulator Failed: RetroArch (Snes9x) stopped at once with "
                                   "exit status 1.\r\nFailed to open libretro core"));

    // Started without waiting, play goes on at once and the failure is said when
    // the emulator ends.
    m_state.Options.Snapshots_UseWizard = 0;
    const qsizetype asked = m_prompts.Asked().size();
    ASSERT_EQ(Launch("super game.smc"), LaunchEnd::Ended);
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_prompts.Asked().size() > asked; }, 60000));
    EXPECT_EQ(m_prompts.AskedTexts().last(), report);

    // A program that is gone says why it could not start.
    QFile::remove(m_program);
    ASSERT_EQ(Launch("super game.smc"), LaunchEnd::Ended);
    EXPECT_TRUE(
        m_prompts.AskedTexts().last().startsWith("RetroArch (Snes9x) could not be started: "));
}

} // namespace
