#include "support/SnesImageBuilder.h"
#include "support/TestFixtures.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace {

struct CliResult {
    int ExitCode = -1;
    QString Out;
    QString Err;
};

class CliTest : public LumbraTest {
protected:
    CliResult Run(const QStringList& arguments) {
        QProcess process;
        process.start(QStringLiteral(LUMBRA_CLI_PATH), arguments);
        EXPECT_TRUE(process.waitForFinished(60000));
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
};

TEST_F(CliTest, FoldersAndGroupsAreSetUpFromTheTerminal) {
    const QString roms = MakeFolder(QStringLiteral("SNES Roms"));
    EXPECT_EQ(Run({"folders", "add", roms}).ExitCode, 0);
    const CliResult again = Run({"folders", "add", TempPath(QStringLiteral("snes roms"))});
    EXPECT_EQ(again.ExitCode, 1);
    EXPECT_TRUE(again.Err.contains(QStringLiteral("Already Exists!"))) << again.Err.toStdString();
    EXPECT_EQ(Run({"folders", "add", TempPath(QStringLiteral("missing"))}).ExitCode, 1);
    EXPECT_EQ(Run({"folders", "list"}).Out, roms + QStringLiteral("/\n"));

    EXPECT_EQ(Run({"groups", "add", "RPG"}).ExitCode, 0);
    EXPECT_EQ(Run({"groups", "add", "Action"}).ExitCode, 0);
    const CliResult fixed = Run({"groups", "add", "UNGROUPED"});
    EXPECT_EQ(fixed.ExitCode, 1);
    EXPECT_TRUE(fixed.Err.contains(QStringLiteral("the Fixed Group.")));
    EXPECT_EQ(Run({"groups", "remove", "rpg"}).ExitCode, 0);
    EXPECT_EQ(Run({"groups", "list"}).Out, QStringLiteral("Ungrouped\nAction\n"));

    EXPECT_EQ(Run({"folders", "remove", roms + QLatin1Char('/')}).ExitCode, 0);
    EXPECT_EQ(Run({"folders", "list"}).Out, QString());

    EXPECT_EQ(Run({"--help"}).ExitCode, 0);
    EXPECT_EQ(Run({}).ExitCode, 2);
    EXPECT_EQ(Run({"frobnicate"}).ExitCode, 2);
    EXPECT_EQ(Run({"folders", "add"}).ExitCode, 2);
    EXPECT_EQ(Run({"list", "--group"}).ExitCode, 2);
}

TEST_F(CliTest, InfoPrintsTheHeaderAndGoesOnPastMissingFiles) {
    const QString rom = WriteFile(QStringLiteral("Mario.SMC"),
                                  SnesImageBuilder().Title("SUPER MARIOWORLD").CopierHeader().Build());
    const CliResult result = Run({"info", "--json", rom, TempPath(QStringLiteral("none.smc")), rom});
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.contains(QStringLiteral("none.smc")));
    const QStringList lines = result.Out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2);
    const QJsonObject header = QJsonDocument::fromJson(lines.first().toUtf8()).object();
    EXPECT_EQ(header.keys().size(), 13);
    EXPECT_EQ(header.value(QStringLiteral("file")).toString(), rom);
    EXPECT_EQ(header.value(QStringLiteral("InternalTitle")).toString(), QStringLiteral("SUPER MARIOWORLD"));
    EXPECT_EQ(header.value(QStringLiteral("BankSize")).toString(), QStringLiteral("LoROM (32kb banks)"));
    EXPECT_EQ(header.value(QStringLiteral("Country")).toString(), QStringLiteral("USA (NTSC)"));
    EXPECT_FALSE(header.value(QStringLiteral("Caption")).toString().isEmpty());

    const CliResult text = Run({"info", rom});
    EXPECT_EQ(text.ExitCode, 0);
    EXPECT_TRUE(text.Out.contains(QStringLiteral("Title:      SUPER MARIOWORLD\n")));
}

TEST_F(CliTest, ListBuildsTheCatalogueAsTheMainWindowDoes) {
    MakeFolder(QStringLiteral("Games/SNES"));
    WriteFile(QStringLiteral("Games/SNES/Zelda.SFC"), SnesImageBuilder::HeaderlessLoRom("ZELDA"));
    WriteFile(QStringLiteral("Games/SNES/mario.smc"), SnesImageBuilder::ValidLoRomWithCopierHeader("MARIO"));
    WriteFile(QStringLiteral("Games/SNES/notes.txt"), "x");
    const QString folder = TempPath(QStringLiteral("games/snes/")).toLower();
    ASSERT_EQ(Run({"folders", "add", TempPath(QStringLiteral("Games/SNES"))}).ExitCode, 0);
    m_state.Store.Write(QStringLiteral("Game List\\") + folder, QStringLiteral("zelda.sfc"),
                        QStringLiteral("The Legend;RPG;Snes9X;fast"));
    m_state.Store.Sync();

    CliResult list = Run({"--debug", "list"});
    EXPECT_EQ(list.ExitCode, 0);
    const QStringList captions = list.Out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(captions.size(), 2) << list.Out.toStdString();
    EXPECT_EQ(captions.at(1), QStringLiteral("The Legend")); // its group "RPG" does not exist
    EXPECT_TRUE(list.Err.startsWith(QStringLiteral("\r\nEmulator Defined: Nlke\r\nEmulator Defined: Snes9X")))
        << list.Err.toStdString();
    EXPECT_TRUE(list.Err.contains(QStringLiteral("\r\nImporting files from: ")));
    EXPECT_TRUE(list.Err.contains(QStringLiteral("Tagging duplicate entries within GameList...Duplicates Found? False")));

    ASSERT_EQ(Run({"groups", "add", "RPG"}).ExitCode, 0);
    EXPECT_EQ(Run({"list", "--group", "rpg"}).Out, QStringLiteral("The Legend\n"));
    EXPECT_EQ(Run({"list", "--group", "Puzzle"}).ExitCode, 1);

    const CliResult json = Run({"list", "--json"});
    const QStringList records = json.Out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(records.size(), 2);
    const QJsonObject zelda = QJsonDocument::fromJson(records.at(1).toUtf8()).object();
    EXPECT_EQ(zelda.value(QStringLiteral("Filename")).toString(), QStringLiteral("zelda.sfc"));
    EXPECT_EQ(zelda.value(QStringLiteral("Folder")).toString(), folder);
    EXPECT_EQ(zelda.value(QStringLiteral("Emulator")).toString(), QStringLiteral("Snes9X"));

    // list writes nothing; scan stores the game list as a close would.
    SettingsStore store;
    EXPECT_FALSE(store.Contains(QStringLiteral("Game List\\") + folder, QStringLiteral("mario.smc")));
    EXPECT_EQ(Run({"scan"}).ExitCode, 0);
    store.Sync();
    EXPECT_TRUE(store.Contains(QStringLiteral("Game List\\") + folder, QStringLiteral("mario.smc")));
}

} // namespace
