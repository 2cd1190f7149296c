#include "cli/CliRun.h"
#include "support/FilesAnywhere.h"
#include "support/SnesImageBuilder.h"
#include "support/StandInEmulator.h"
#include "support/TestFixtures.h"

#include "config/StoreWriterLock.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>
#include <unistd.h>

namespace {

class CliTest : public LumbraTest {
protected:
    CliResult Run(const QStringList& arguments) { return RunCli(arguments); }
};

TEST_F(CliTest, FoldersAndGroupsAreSetUpFromTheTerminal) {
    const QString roms = MakeFolder("SNES Roms");
    const QList<std::pair<QStringList, int>> runs{
        {{"folders", "add", roms}, 0},    {{"folders", "add", TempPath("missing")}, 1},
        {{"groups", "add", "RPG"}, 0},    {{"groups", "add", "Action"}, 0},
        {{"groups", "remove", "rpg"}, 0}, {{"--help"}, 0}};
    for (const auto& [arguments, exitCode] : runs)
        EXPECT_EQ(Run(arguments).ExitCode, exitCode) << arguments.join(' ').toStdString();

    // A refused change exits 1 with the log's reason.
    const CliResult again = Run({"folders", "add", TempPath("snes roms")});
    EXPECT_EQ(again.ExitCode, 1);
    EXPECT_TRUE(again.Err.contains("...Already Exists!")) << again.Err.toStdString();
    EXPECT_TRUE(Run({"groups", "add", "UNGROUPED"}).Err.contains("the Fixed Group."));
    EXPECT_EQ(Run({"folders", "list"}).Out, roms + "/\n");
    EXPECT_EQ(Run({"groups", "list"}).Out, "Ungrouped\nAction\n");
    EXPECT_EQ(Run({"folders", "remove", roms + '/'}).ExitCode, 0);
    EXPECT_EQ(Run({"folders", "list"}).Out, "");
}

// Each command checks its own arguments.
TEST_F(CliTest, ArgumentsACommandCannotTakeAreAUsageError) {
    for (const char* wrong :
         {"", "frobnicate", "folders add", "list --group", "list --filter", "list --sort size",
          "emulators set Nope --folder /", "emulators set ZSnes --command x", "profiles set snes9x",
          "config set NoSuchKey 1", "config get NoSuchKey", "launch", "states", "export",
          "export --columns title -", "export --method group Nope -", "export --format pdf -",
          "export a b"})
        EXPECT_EQ(Run(QString(wrong).split(' ', Qt::SkipEmptyParts)).ExitCode, 2) << wrong;
}

TEST_F(CliTest, InfoPrintsTheHeaderOfImagesAndZipsAndGoesOnPastMissingFiles) {
    const QString unzip = MakeFolder("unzip");
    ASSERT_EQ(Run({"config", "set", "Unzip Folder", unzip + '/'}).ExitCode, 0);
    const QString playing = WriteFile("unzip/game.smc", "playing");
    const QByteArray game = SnesImageBuilder().Title("SUPER MARIOWORLD").CopierHeader().Build();
    const QString rom = WriteFile("Mario.SMC", game);
    const QString zip =
        MakeZip("Zipped.zip", {{"readme.txt", "r"}, {"docs/game.smc", game}, {"b.sfc", "x"}});
    const CliResult result = Run({"info", "--json", rom, TempPath("none.smc"), zip});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.contains("none.smc"));
    const QStringList lines = result.Out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2);
    const QJsonObject header = QJsonDocument::fromJson(lines.first().toUtf8()).object();
    EXPECT_EQ(header.keys().size(), 13);
    EXPECT_EQ(header.value("file").toString(), rom);
    EXPECT_EQ(header.value("InternalTitle").toString(), "SUPER MARIOWORLD");
    // A zip's game is read where it is: the unzip folder is left alone.
    const QJsonObject zipped = QJsonDocument::fromJson(lines.last().toUtf8()).object();
    EXPECT_EQ(zipped.keys().size(), 14);
    EXPECT_EQ(zipped.value("game").toString(), "game.smc");
    EXPECT_EQ(ReadFile(playing), "playing");
    EXPECT_EQ(QDir(unzip).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList("game.smc"));

    // As text: control characters and zero bytes in titles and names stay off the
    // terminal; an archive without a game says so.
    const QString padded =
        WriteFile("Padded.smc",
                  SnesImageBuilder().Title(QByteArray("PAD\0\0\0ED", 8)).CopierHeader().Build());
    const QString notes = MakeZip("notes.zip", {{"notes.txt", "x"}});
    const QString hostile = MakeZip("hostile.zip", {{"evil\x1b[2J.smc", game}});
    const CliResult shown = Run({"info", padded, notes, hostile});
    EXPECT_EQ(shown.ExitCode, 1);
    EXPECT_EQ(shown.Err, "lumbra-cli: " + notes + ": the archive holds no SNES game\n");
    EXPECT_FALSE(shown.Out.contains(QChar(0)) || shown.Out.contains(QChar(0x1b)));
    EXPECT_TRUE(shown.Out.contains("Title:      PAD\uFFFD\uFFFD\uFFFDED\n"))
        << shown.Out.toStdString();
    EXPECT_TRUE(
        shown.Out.contains("File:       " + hostile +
                           "\nGame:       evil\uFFFD[2J.smc\nTitle:      SUPER MARIOWORLD\n"))
        << shown.Out.toStdString();

    QFile::setPermissions(rom, QFileDevice::Permissions());
    if (::geteuid() != 0) { // permissions do not bind the superuser
        const CliResult unreadable = Run({"info", rom});
        EXPECT_EQ(unreadable.ExitCode, 1);
        EXPECT_TRUE(unreadable.Err.contains("Mario.SMC: Permission denied"))
            << unreadable.Err.toStdString();
        EXPECT_EQ(unreadable.Out, "");
    }
}

TEST_F(CliTest, LibarchiveIsLoadedOnlyWhenAZipIsOpened) {
    const QString zip = MakeZip("Zipped.zip", {{"game.smc", SnesImageBuilder().Build()}});
    // The dynamic loader names each library it loads on standard error.
    QProcessEnvironment loaderTalks = QProcessEnvironment::systemEnvironment();
    loaderTalks.insert(QStringLiteral("LD_DEBUG"), QStringLiteral("files"));
    const CliResult list = RunCli({"list"}, loaderTalks);
    EXPECT_TRUE(list.Err.contains("libQt6Core.so")) << list.Err.toStdString();
    EXPECT_FALSE(list.Err.contains("libarchive.so"));
    const CliResult info = RunCli({"info", zip}, loaderTalks);
    EXPECT_EQ(info.ExitCode, 0);
    EXPECT_TRUE(info.Err.contains("libarchive.so.13")) << info.Err.toStdString();
}

TEST_F(CliTest, CommandsThatWriteWaitForTheWindowToCloseAndNothingIsLost) {
    // No start-up question about the emulators this machine may have.
    m_state.Store.Write("Settings", "FoundEmulatorOffered", "0");
    m_state.Store.Sync();
    ASSERT_EQ(Run({"groups", "add", "Before"}).ExitCode, 0);
    QProcess window;
    window.start(QStringLiteral(LUMBRA_GUI_PATH), QStringList());
    StoreWriterLock probe(m_state.Store, StoreWriterLock::Holder::Command);
    const auto windowHoldsTheStore = [&probe] {
        const bool free = probe.TryAcquire(0);
        probe.Release();
        return !free;
    };
    ASSERT_TRUE(QTest::qWaitFor(windowHoldsTheStore, 120000));

    const CliResult refused = Run({"groups", "add", "During"});
    EXPECT_EQ(refused.ExitCode, 1);
    EXPECT_TRUE(refused.Err.contains(
        QStringLiteral("Lumbra is running (process %1); close it first").arg(window.processId())))
        << refused.Err.toStdString();
    EXPECT_EQ(Run({"groups", "list"}).Out, "Ungrouped\nBefore\n"); // reading goes on

    window.terminate(); // as the task list ends it: it saves and ends normally
    ASSERT_TRUE(window.waitForFinished(120000));
    EXPECT_EQ(window.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(window.exitCode(), 0);
    EXPECT_EQ(Run({"groups", "add", "After"}).ExitCode, 0);

    // The empty lock that a save killed halfway leaves behind holds up nothing.
    ASSERT_TRUE(WriteFileAt(m_state.Store.FilePath() + ".lock"));
    EXPECT_EQ(Run({"groups", "add", "Later"}).ExitCode, 0);
    EXPECT_EQ(Run({"groups", "list"}).Out, "Ungrouped\nBefore\nAfter\nLater\n");
}

TEST_F(CliTest, SetsUpAnEmulatorAndPlaysAGameAsAPlayerWould) {
    const StandInEmulator snes9x = WriteStandInEmulator(MakeFolder("Emus/Snes 9X"), "snes9x");
    WriteFile("Games/Star Fox.SMC", SnesImageBuilder::ValidLoRomWithCopierHeader("STAR FOX"));
    const QList<std::pair<QStringList, int>> runs{
        {{"folders", "add", TempPath("Games")}, 0},
        {{"emulators", "set", "snes9x", "--folder", TempPath("emus/snes 9x"), "--save-folder",
          snes9x.SaveFolder},
         0},
        {{"emulators", "set", "ZSnes", "--folder", TempPath("missing")}, 1},
        {{"emulators", "set", "ZSnes", "--profile", "a;b"}, 1},
        {{"config", "set", "defaultemulator", "Snes9X"}, 0},
        {{"config", "set", "Snapshots_AutoUse1st", "1"}, 0},
        {{"config", "set", "Snapshots_Show", "yes"}, 1},
        {{"launch", "Nothing Like It"}, 1}};
    for (const auto& [arguments, exitCode] : runs)
        EXPECT_EQ(Run(arguments).ExitCode, exitCode) << arguments.join(' ').toStdString();
    EXPECT_TRUE(Run({"config", "set", "MainForm", "1;2;3"}).Err.contains("five whole numbers"));
    EXPECT_EQ(Run({"config", "get", "DEFAULTEMULATOR"}).Out, "Snes9X\n");
    EXPECT_TRUE(Run({"config", "list"}).Out.contains("\nSnapshots_AutoUse1st=1\n"));
    EXPECT_TRUE(Run({"emulators", "list"})
                    .Out.contains("Snes9X\n  folder:       " + TempPath("Emus/Snes 9X/") + '\n'));

    // The first screenshot of the play becomes the snapshot, in the default folder.
    const CliResult play = Run({"launch", "star fox"});
    EXPECT_EQ(play.ExitCode, 0) << play.Err.toStdString();
    EXPECT_TRUE(snes9x.Ran());
    EXPECT_TRUE(play.Err.startsWith("lumbra-cli: snes9x ")) << play.Err.toStdString();
    EXPECT_TRUE(
        QFile::exists(qEnvironmentVariable("XDG_DATA_HOME") + "/Lumbra/snapshots/star fox.png"));
    EXPECT_EQ(snes9x.Screenshots(), QStringList());
}

TEST_F(CliTest, ListBuildsTheCatalogueAsTheMainWindowDoes) {
    MakeFolder("Games/SNES");
    WriteFile("Games/SNES/Zelda.SFC", SnesImageBuilder::HeaderlessLoRom("ZELDA"));
    WriteFile("Games/SNES/mario.smc", SnesImageBuilder::ValidLoRomWithCopierHeader("MARIO"));
    WriteFile("Games/SNES/notes.txt", "x");
    const QString folder = TempPath("games/snes/").toLower();
    // As the settings dialog's "Add...": the folder is scanned and its games are stored.
    const CliResult added = Run({"folders", "add", TempPath("Games/SNES")});
    ASSERT_EQ(added.ExitCode, 0);
    EXPECT_EQ(added.Out, "Added " + TempPath("Games/SNES/") + ": 2 games found.\n");
    EXPECT_EQ(SettingsStore().Read("Game List\\" + folder, "mario.smc"),
              "Mario;Ungrouped;Default;Default");
    m_state.Store.Write("Game List\\" + folder, "zelda.sfc", "The Legend;RPG;Snes9X;fast");
    m_state.Store.Sync();

    const CliResult list = Run({"--debug", "list"});
    EXPECT_EQ(list.Out, "Mario\nThe Legend\n"); // the group "RPG" of the second does not exist
    EXPECT_TRUE(list.Err.startsWith("\r\nEmulator Defined: Nlke\r\nEmulator Defined: Snes9X"))
        << list.Err.toStdString();
    EXPECT_TRUE(
        list.Err.contains("Tagging duplicate entries within GameList...Duplicates Found? False"));

    ASSERT_EQ(Run({"groups", "add", "RPG"}).ExitCode, 0);
    EXPECT_EQ(Run({"list", "--group", "rpg"}).Out, "The Legend\n");
    EXPECT_EQ(Run({"list", "--group", "Puzzle"}).ExitCode, 1);

    // list writes nothing (the group stays "RPG"); scan stores the game list as a close
    // would, and says which files it left out.
    SettingsStore store;
    EXPECT_EQ(store.Read("Game List\\" + folder, "zelda.sfc"), "The Legend;RPG;Snes9X;fast");
    const NonUtf8NamedFile latin(TempPath("Games/SNES"));
    const CliResult scan = Run({"scan"});
    EXPECT_EQ(scan.Out, "Scanned 2 games in 1 folder.\n");
    EXPECT_EQ(scan.Err, "lumbra-cli: 1 file left out: the name is not valid UTF-8; rename it.\n");
    store.Sync();
    EXPECT_TRUE(store.Contains("Game List\\" + folder, "mario.smc"));
}

TEST_F(CliTest, ListFindsGamesAndListsAllGamesAsTheWindowDoes) {
    for (const char* file : {"game10.smc", "game2.smc", "pokemon.sfc", "gone.smc"})
        WriteFile(QStringLiteral("Games/") + QLatin1String(file), "x");
    ASSERT_EQ(Run({"folders", "add", TempPath("Games")}).ExitCode, 0);
    ASSERT_EQ(Run({"groups", "add", "RPG"}).ExitCode, 0);
    const QString section = "Game List\\" + TempPath("games/").toLower();
    m_state.Store.Write(section, "game10.smc", "Game 10;RPG;Default;Default");
    m_state.Store.Write(section, "game2.smc", "game 2;Ungrouped;Default;Default");
    m_state.Store.Write(section, "pokemon.sfc", "Pokémon Stadium;RPG;Default;Default");
    m_state.Store.Write(section, "gone.smc", "/invisible;RPG;Default;Default");
    m_state.Store.Sync();

    EXPECT_EQ(Run({"list", "--group", "All Games"}).Out, "game 2\nGame 10\nPokémon Stadium\n");
    EXPECT_EQ(Run({"list", "--filter", "GAME"}).Out, "game 2\n"); // in "Ungrouped", the default
    const CliResult json = Run({"list", "--group", "All Games", "--filter", "10", "--json"});
    const QStringList records = json.Out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(records.size(), 1) << json.Out.toStdString();
    const QJsonObject game10 = QJsonDocument::fromJson(records.first().toUtf8()).object();
    EXPECT_EQ(game10.value("Filename"), "game10.smc");
    EXPECT_EQ(game10.value("Folder"), TempPath("games/").toLower());

    // "All Games" is no group: it cannot be added, but Lumbra may start on it.
    const CliResult refused = Run({"groups", "add", "ALL GAMES"});
    EXPECT_EQ(refused.ExitCode, 1);
    EXPECT_EQ(refused.Err, "lumbra-cli: \"All Games\" lists every game and cannot be a group; "
                           "please choose another name.\n");
    EXPECT_EQ(Run({"groups", "list"}).Out, "Ungrouped\nRPG\n");
    ASSERT_EQ(Run({"config", "set", "DefaultGroup", "All Games"}).ExitCode, 0);
    EXPECT_EQ(Run({"list"}).Out.count('\n'), 3);

    // The games most recently and longest played first.
    const QString played = "Play Statistics\\" + TempPath("games/").toLower();
    m_state.Store.Write(played, "pokemon.sfc", "2;2026-03-01T10:00:00Z;60");
    m_state.Store.Write(played, "game10.smc", "7;2026-02-01T10:00:00Z;30");
    m_state.Store.Sync();
    EXPECT_EQ(Run({"list", "--sort", "last-played"}).Out, "Pokémon Stadium\nGame 10\ngame 2\n");
    EXPECT_EQ(Run({"list", "--sort", "play-time", "--filter", "game"}).Out, "Game 10\ngame 2\n");
    EXPECT_EQ(Run({"config", "get", "ShowCommandLine"}).Out, "1\n");
}

TEST_F(CliTest, ExportWritesTheChosenGamesAndNeverReplacesAFileUnasked) {
    const QString roms = MakeFolder("SNES Roms");
    WriteFile("SNES Roms/Small.sfc", QByteArray(1023, 'x'));
    WriteFile("SNES Roms/Big $(touch pwned).smc", QByteArray(2048, 'x'));
    ASSERT_EQ(Run({"folders", "add", roms}).ExitCode, 0);

    const CliResult out = Run({"export", "--sort", "size", "--columns", "file-size,caption", "-"});
    EXPECT_EQ(out.ExitCode, 0) << out.Err.toStdString();
    EXPECT_TRUE(out.Out.startsWith("Size      Caption                       \r\n" +
                                   QString(40, '-') +
                                   "\r\n   0K     *small.sfc                    \r\n"
                                   "   2K     *big $(touch pwned).smc       \r\n\r\n"
                                   "File Count: 2\r\n(Sorted by File Size)\r\n"))
        << out.Out.toStdString();

    const QString target = WriteFile("My Games; list.html", "keep me");
    const QStringList html{"export", "--format", "html", "--method", "pattern", "*.SFC", target};
    EXPECT_EQ(Run(html).ExitCode, 1);
    EXPECT_EQ(ReadFile(target), "keep me");
    EXPECT_EQ(Run(html + QStringList{"--force"}).Out, "Game List Exported!\n");
    const QByteArray page = ReadFile(target);
    EXPECT_TRUE(page.contains("<td>*small.sfc</td>") && !page.contains("big")) << page.data();
}

// This process keeps the store it read; a command is another process that writes it.
TEST_F(CliTest, AStoreReadsACommandsChangeWhenOpenedOrSavedAndKeepsItsOwn) {
    EXPECT_EQ(m_state.Store.Read("Settings", "DefaultEmulator", "unset"), "unset");
    ASSERT_EQ(Run({"config", "set", "DefaultEmulator", "Snes9X"}).ExitCode, 0);
    EXPECT_EQ(SettingsStore().Read("Settings", "DefaultEmulator"), "Snes9X");
    EXPECT_EQ(m_state.Store.Read("Settings", "DefaultEmulator"), "Snes9X"); // one copy

    // A change not saved yet is laid over what a command wrote meanwhile.
    m_state.Store.Write("Settings", "SPC_App", "mine.exe;");
    ASSERT_EQ(Run({"config", "set", "DefaultEmulator", "Nlke"}).ExitCode, 0);
    m_state.Store.Sync();
    const QByteArray saved = ReadFile(m_state.Store.FilePath());
    EXPECT_TRUE(saved.contains("DefaultEmulator=Nlke\n")) << saved.constData();
    EXPECT_TRUE(saved.contains("SPC_App=\"mine.exe;\"\n")) << saved.constData();
    EXPECT_EQ(Run({"config", "get", "SPC_App"}).Out, "mine.exe;\n");
}

} // namespace
