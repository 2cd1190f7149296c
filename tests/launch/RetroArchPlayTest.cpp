#include "emulators/EmulatorCatalogue.h"
#include "emulators/EmulatorDetection.h"
#include "emulators/EmulatorEnvironment.h"
#include "emulators/FoundEmulators.h"
#include "support/EnvironmentChange.h"
#include "support/LaunchTest.h"
#include "support/SnesImageBuilder.h"

#include <QRegularExpression>
#include <QStandardPaths>

namespace {

using RetroArchPlayTest = LaunchTest;

// The real RetroArch with the bsnes-mercury core, found as Lumbra finds it, plays a
// game for 120 frames without a window or sound, takes its screenshot and ends; the
// wizard then offers that screenshot from RetroArch's own folder.
TEST_F(RetroArchPlayTest, TheWizardOffersTheScreenshotTheRealRetroArchTook) {
    if (QStandardPaths::findExecutable("retroarch").isEmpty())
        GTEST_SKIP() << "retroarch is not installed";
    const EnvironmentChange homeChange("HOME", TempPath("home"));
    const EnvironmentChange configChange("XDG_CONFIG_HOME", TempPath("home/.config"));
    WriteFile("home/.config/retroarch/retroarch.cfg",
              "video_driver = \"null\"\naudio_driver = \"null\"\ninput_driver = \"null\"\n"
              "gamemode_enable = \"false\"\nmenu_driver = \"null\"\n");
    m_state.Options.ShowCommandLine = 0;
    WriteFile("My Games/Super Game.sfc", SnesImageBuilder::HeaderlessLoRom("SUPER GAME"));
    GameList_ImportFileList(m_state, TempPath("My Games"));

    StoreDetectedEmulators(m_state.Store,
                           DetectEmulators(LoadEmulatorCatalogue(), EmulatorEnvironment()));
    std::optional<FoundEmulator> retroArch =
        FindFoundEmulator(m_state.Store, "RetroArch (bsnes-mercury Performance)");
    ASSERT_TRUE(retroArch) << "the bsnes-mercury-performance core was not found";
    // A session bus of its own, for RetroArch's start.
    if (!QStandardPaths::findExecutable("dbus-run-session").isEmpty()) {
        retroArch->Command = "dbus-run-session -- " + retroArch->Command;
        WriteFoundEmulator(m_state.Store, *retroArch);
    }
    WriteProfile(m_state.Store, retroArch->Name, "frames", "--max-frames=120 --max-frames-ss");
    Game("super game.sfc").Emulator = retroArch->Name;
    Game("super game.sfc").Profile = "frames";

    m_prompts.AnswerMessage(PromptAnswer::Yes); // "Use this snapshot for super game?"
    ASSERT_EQ(Launch("super game.sfc"), LaunchEnd::Ended)
        << m_prompts.AskedTexts().join("\n").toStdString();
    ASSERT_EQ(m_player.Shown.size(), 1) << m_prompts.AskedTexts().join("\n").toStdString();
    EXPECT_TRUE(QRegularExpression("^Super Game.*\\.png$").match(m_player.Shown.first()).hasMatch())
        << m_player.Shown.first().toStdString();
    EXPECT_TRUE(QFile::exists(TempPath("Snaps/super game.png")));
}

} // namespace
