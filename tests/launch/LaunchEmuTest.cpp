#include "catalogue/PlayStatistics.h"
#include "platform/ShortPath.h"
#include "support/LaunchTest.h"
#include "support/SnesImageBuilder.h"
#include "support/StandInEmulator.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

namespace {

class LaunchEmuTest : public LaunchTest {
protected:
    LaunchEmuTest() {
        m_snes9x = WriteStandInEmulator(MakeFolder("Emus/Snes 9X"), "snes9x");
        SetUp("Snes9X", TempPath("Emus/Snes 9X"), m_snes9x.SaveFolder);
        WriteFile("My Games/Super Game.SMC", SnesImageBuilder::ValidLoRomWithCopierHeader("SUPER"));
        GameList_ImportFileList(m_state, TempPath("My Games"));
        QDir::setCurrent(TempPath());
    }
    void SetUp(const QString& name, const QString& folder, const QString& saveFolder) {
        EmulatorRecord& emulator =
            m_state.Emulators.Records[m_state.Emulators.FindEmulatorIndex(name)];
        emulator.Folder = folder + '/';
        emulator.SaveFolder = saveFolder;
    }
    // The log of the last launch, from its first line.
    QString LaunchLog() const {
        return LogText().mid(LogText().lastIndexOf("\r\n\r\n{ BEGIN LaunchEmu"));
    }
    bool Ran() const {
        return QTest::qWaitFor([this] { return m_snes9x.Ran(); }, 60000);
    }

    StandInEmulator m_snes9x;
};

TEST_F(LaunchEmuTest, WaitingModeRunsTheEmulatorThenOffersItsNewScreenshotsAndTimesThePlay) {
    EnableLog();
    GameRecord& game = Game("super game.smc");
    game.Caption = "Super Game";
    game.Emulator = "Snes9X";
    game.Profile = "fast";
    WriteProfile(m_state.Store, "Snes9X", "fast", "  -x  ");
    m_state.Store.Write(PlayStatisticsSection + game.Folder, game.Filename,
                        "4;2020-01-01T00:00:00Z;7200");
    const QString shortGame = GetShortPath(TempPath("My Games/Super Game.SMC"));
    m_prompts.AnswerMessage(PromptAnswer::Yes); // "Use this snapshot for super game?"

    ASSERT_EQ(Launch("super game.smc"), LaunchEnd::Ended);
    EXPECT_EQ(m_snes9x.Arguments(), (QStringList{"-x", shortGame}));
    EXPECT_EQ(m_snes9x.WorkingFolder(), TempPath("Emus/Snes 9X"));
    EXPECT_EQ(QDir::currentPath(), TempPath()); // and back again
    EXPECT_EQ(m_prompts.AskedTexts().first(), "snes9x -x " + shortGame);
    EXPECT_EQ(m_player.Shown, QStringList{"shot1.png"});
    EXPECT_TRUE(QFile::exists(TempPath("Snaps/super game.png")));
    EXPECT_EQ(m_snes9x.Screenshots(), QStringList());
    const QString folder = TempPath("my games/").toLower();
    EXPECT_EQ(
        LaunchLog(),
        "\r\n\r\n{ BEGIN LaunchEmu\r\n    Game Caption: Super Game\r\n    Filename: " + folder +
            "super game.smc\r\n    Settings Profile: fast\r\n"
            "\r\n    Emulator: snes9x.pif;snes9x.lnk;snes9x.bat;snes9x.exe;snes9x;snes9x.sh"
            "\r\n    Launch File: snes9x\r\n    Command Line Defined"
            "\r\n\r\n=== Loaded frmSnapshotWizard ===\r\n    Snapshot Wizard Activated"
            "\r\n    Shell Using: ShellAndWait (WaitForSingleObject Win32 API)"
            "\r\n    Snapshot Wizard Displayed"
            "\r\n\r\n=== Unloaded frmSnapshotWizard ===\r\n} END LaunchEmu");
    const PlayStatistics waited = ReadPlayStatistics(m_state.Store, game);
    EXPECT_EQ(waited.PlayCount, 5);
    EXPECT_GT(waited.LastPlayed, QDateTime(QDate(2020, 1, 1), QTime(0, 0), Qt::UTC));
    EXPECT_GE(waited.PlaySeconds, 7200);

    // With a snapshot in place the wizard stays away; a vanished game file leaves
    // the emulator with no argument at all. Only Snes9X takes a profile.
    SetUp("ZSnes", TempPath("Emus/Snes 9X"), m_snes9x.SaveFolder);
    WriteStandInEmulator(TempPath("Emus/Snes 9X"), "zsnes.sh", false, m_snes9x.SaveFolder);
    game.Emulator = "Default";
    m_state.Options.DefaultEmulator = "ZSNES";
    QFile::remove(TempPath("My Games/Super Game.SMC"));
    ASSERT_EQ(Launch("super game.smc"), LaunchEnd::Ended);
    const StandInEmulator zsnes{TempPath("Emus/Snes 9X/zsnes.sh"), m_snes9x.SaveFolder};
    EXPECT_EQ(zsnes.Arguments(), QStringList());
    EXPECT_EQ(m_prompts.AskedTexts().last(), "zsnes.sh ");
    EXPECT_TRUE(LaunchLog().contains("Snapshot Wizard Deacticated: No new images found."));
    EXPECT_FALSE(LaunchLog().contains("Snapshot Wizard Activated"));

    // The player who turned the command line off is not asked before play.
    m_state.Options.ShowCommandLine = 0;
    zsnes.Reset();
    const qsizetype asked = m_prompts.Asked().size();
    ASSERT_EQ(Launch("super game.smc"), LaunchEnd::Ended);
    EXPECT_EQ(m_prompts.Asked().size(), asked);
    EXPECT_TRUE(zsnes.Ran());
}

TEST_F(LaunchEmuTest, ShellModeCountsOnlyTheStartAndTheGamesOwnLaunchFilesWin) {
    m_state.Options.Snapshots_UseWizard = 0;
    GameRecord& game = Game("super game.smc");
    game.Emulator = "snes9x";
    ASSERT_EQ(Launch("super game.smc"), LaunchEnd::Ended);
    ASSERT_TRUE(Ran());
    EXPECT_EQ(m_snes9x.Arguments(), QStringList{GetShortPath(TempPath("My Games/Super Game.SMC"))});
    EXPECT_EQ(m_prompts.AskedTexts(), QStringList()); // no confirmation without the wizard

    // An emulator that is not set up: nothing starts, and nothing is counted.
    game.Emulator = "Nlke";
    EXPECT_EQ(Launch("super game.smc"), LaunchEnd::NoLaunchFile);
    EXPECT_TRUE(m_prompts.AskedTexts().last().startsWith("No files were found to launch Nlke\r\n"));
    const PlayStatistics started = ReadPlayStatistics(m_state.Store, game);
    EXPECT_EQ(started.PlayCount, 1);
    EXPECT_EQ(started.PlaySeconds, 0);

    // A .pif beside the game wins over a .bat; no emulator is involved, unless the
    // game's own files are turned off.
    m_snes9x.Reset();
    game.Emulator = "snes9x";
    const QByteArray note = "#!/bin/sh\necho $0 > \"" + QFile::encodeName(TempPath("ran")) + "\"\n";
    WriteFile("My Games/Super Game.bat", note);
    WriteFile("My Games/SUPER GAME.PIF", note);
    ASSERT_EQ(Launch("super game.smc"), LaunchEnd::Ended);
    // The shell makes the file before it writes the line: wait for the whole line.
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return ReadFile(TempPath("ran")).endsWith('\n'); }, 60000));
    EXPECT_TRUE(ReadFile(TempPath("ran")).endsWith(".pif\n"));
    EXPECT_FALSE(m_snes9x.Ran());
    m_state.Options.RomBatchFileSupport = 0;
    ASSERT_EQ(Launch("super game.smc"), LaunchEnd::Ended);
    EXPECT_TRUE(Ran());
}

TEST_F(LaunchEmuTest, AZippedGameIsPlayedFromTheUnzipFolderAndItsFilesAreNeverStarted) {
    EnableLog();
    const QByteArray script = "#!/bin/sh\ntouch \"" + QFile::encodeName(TempPath("pwned")) + "\"\n";
    MakeZip("My Games/Zipped Game.ZIP",
            {{"Read Me.txt", "hello"},
             {"Zipped Game.SFC", SnesImageBuilder::ValidLoRomWithCopierHeader("ZIPPED")},
             {"Zipped Game.sh", script},
             {"Zipped Game.bat", script},
             {"Zipped Game.pif", script}});
    m_state.Games.ClearGameList();
    GameList_ImportFileList(m_state, TempPath("My Games"));
    Game("zipped game.zip").Emulator = "Snes9X";
    const QString extracted = TempPath("Unzip/Zipped Game.SFC");

    // Waiting: the extracted files go when the emulator has ended.
    m_prompts.AnswerMessage(PromptAnswer::No); // keeps the screenshot where it is
    ASSERT_EQ(Launch("zipped game.zip"), LaunchEnd::Ended);
    EXPECT_TRUE(m_snes9x.Arguments().value(0).endsWith("/zipped_game.sfc"));
    EXPECT_EQ(QDir(TempPath("Unzip")).entryList(QDir::Files), QStringList());
    EXPECT_FALSE(QFileInfo(m_snes9x.Arguments().value(0)).isSymLink()); // its link is gone
    EXPECT_FALSE(QFile::exists(TempPath("pwned")));
    EXPECT_TRUE(LaunchLog().contains("    Launch File: snes9x\r\n"));

    // Without waiting the emulator still reads the game after the launch returns:
    // it stays until the next launch (or the program's end).
    m_snes9x.Reset();
    m_state.Options.Snapshots_UseWizard = 0;
    ASSERT_EQ(Launch("zipped game.zip"), LaunchEnd::Ended);
    ASSERT_TRUE(Ran());
    EXPECT_TRUE(QFile::exists(extracted));
    EXPECT_FALSE(ReadFile(m_snes9x.Arguments().value(0)).isEmpty());
    EmulatorLauncher(m_state, m_prompts, m_shell, m_player).ReleaseDetachedPlay();
    EXPECT_EQ(QDir(TempPath("Unzip")).entryList(QDir::Files), QStringList());
}

} // namespace
