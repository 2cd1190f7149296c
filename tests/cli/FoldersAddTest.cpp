#include "support/SnesImageBuilder.h"
#include "support/TestFixtures.h"

#include <QProcess>

namespace {

using FoldersAddTest = LumbraTest;

// As the settings dialog's "Add...": the folder is scanned and its games are stored.
TEST_F(FoldersAddTest, AddScansTheFolderIntoTheStoredGameList) {
    WriteFile("Games/Zelda.SMC", SnesImageBuilder::ValidLoRomWithCopierHeader("ZELDA"));
    WriteFile("Games/Mario.sfc", SnesImageBuilder::HeaderlessLoRom("MARIO"));
    QProcess cli;
    cli.start(QStringLiteral(LUMBRA_CLI_PATH), {"folders", "add", TempPath("Games")});
    ASSERT_TRUE(cli.waitForFinished(60000));
    EXPECT_EQ(cli.exitCode(), 0);
    EXPECT_EQ(cli.readAllStandardOutput(), "Added " + TempPath("Games/") + ": 2 games found.\n");

    const SettingsStore store;
    const QString section = "Game List\\" + TempPath("games/").toLower();
    EXPECT_EQ(store.Read("Folders\\Game Folders", "00"), TempPath("Games/"));
    EXPECT_EQ(store.Read(section, "zelda.smc"), "Zelda;Ungrouped;Default;Default");
    EXPECT_EQ(store.Read(section, "mario.sfc"), "Mario;Ungrouped;Default;Default");
}

} // namespace
