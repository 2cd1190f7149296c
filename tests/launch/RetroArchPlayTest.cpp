#include "catalogue/FolderScan.h"
#include "config/Profiles.h"
#include "emulators/EmulatorCatalogue.h"
#include "emulators/EmulatorDetection.h"
#include "emulators/EmulatorEnvironment.h"
#include "emulators/FoundEmulators.h"
#include "launch/LaunchEmu.h"
#include "platform/RealShell.h"
#include "snapshots/SnapshotWizard.h"
#include "support/ScriptedPrompts.h"
#include "support/SnesImageBuilder.h"
#include "support/TestFixtures.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>

namespace {

class PlayerAtTheWizard final : public SnapshotWizardView {
public:
    void ShowModal(SnapshotWizard& wizard) override {
        Shown << wizard.NewImages();
        wizard.UseSnapshot(0);
    }
    QStringList Shown;
};

// Sets an environment variable for the test's length.
class EnvironmentChange {
public:
    EnvironmentChange(const char* name, const QString& value)
        : m_name(name), m_was(qgetenv(name)), m_set(qEnvironmentVariableIsSet(name)) {
        qputenv(name, value.toLocal8Bit());
    }
    ~EnvironmentChange() {
        if (m_set)
            qputenv(m_name, m_was);
        else
            qunsetenv(m_name);
    }

private:
    const char* m_name;
    QByteArray m_was;
    bool m_set;
};

// The real RetroArch with the bsnes-mercury core, found as Lumbra finds it, plays a
// game for 120 frames without a window or sound, takes its screenshot and ends; the
// wizard then offers that screenshot from RetroArch's own folder.
TEST(RetroArchPlayTest, TheWizardOffersTheScreenshotTheRealRetroArchTook) {
    if (QStandardPaths::findExecutable("retroarch").isEmpty())
        GTEST_SKIP() << "retroarch is not installed";
    QTemporaryDir temp;
    const QString home = temp.path() + "/home";
    const EnvironmentChange homeChange("HOME", home);
    const EnvironmentChange configChange("XDG_CONFIG_HOME", home + "/.config");
    QDir().mkpath(home + "/.config/retroarch");
    QFile settings(home + "/.config/retroarch/retroarch.cfg");
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("video_driver = \"null\"\naudio_driver = \"null\"\ninput_driver = \"null\"\n"
                   "gamemode_enable = \"false\"\nmenu_driver = \"null\"\n");
    settings.close();

    AppState state;
    DefineEmulators(state.Emulators, state.Store);
    state.Options = DefaultSettings();
    state.Options.SnapshotFolder = temp.path() + "/Snaps/";
    state.Options.UnzipFolder = temp.path() + "/Unzip/";
    state.Options.Snapshots_UseWizard = 1;
    state.Options.ShowCommandLine = 0;
    QDir().mkpath(state.Options.SnapshotFolder);
    QDir().mkpath(temp.path() + "/My Games");
    QFile game(temp.path() + "/My Games/Super Game.sfc");
    ASSERT_TRUE(game.open(QIODevice::WriteOnly));
    game.write(SnesImageBuilder::HeaderlessLoRom("SUPER GAME"));
    game.close();
    GameList_ImportFileList(state, temp.path() + "/My Games");

    StoreDetectedEmulators(state.Store,
                           DetectEmulators(LoadEmulatorCatalogue(), EmulatorEnvironment()));
    std::optional<FoundEmulator> retroArch =
        FindFoundEmulator(state.Store, "RetroArch (bsnes-mercury Performance)");
    ASSERT_TRUE(retroArch) << "the bsnes-mercury-performance core was not found";
    // A session bus of its own, for RetroArch's start.
    if (!QStandardPaths::findExecutable("dbus-run-session").isEmpty()) {
        retroArch->Command = "dbus-run-session -- " + retroArch->Command;
        WriteFoundEmulator(state.Store, *retroArch);
    }
    WriteProfile(state.Store, retroArch->Name, "frames", "--max-frames=120 --max-frames-ss");
    GameRecord& record = state.Games.Records[state.Games.FindGame("filename", "super game.sfc")];
    record.Emulator = retroArch->Name;
    record.Profile = "frames";

    ScriptedPrompts prompts;
    prompts.AnswerMessage(PromptAnswer::Yes); // "Use this snapshot for super game?"
    RealShell shell(prompts, [](const QString&) { return true; });
    PlayerAtTheWizard player;
    EmulatorLauncher launcher(state, prompts, shell, player);
    ASSERT_EQ(launcher.Launch(state.Games.FindGame("filename", "super game.sfc")), LaunchEnd::Ended)
        << prompts.AskedTexts().join("\n").toStdString();
    ASSERT_EQ(player.Shown.size(), 1) << prompts.AskedTexts().join("\n").toStdString();
    EXPECT_TRUE(QRegularExpression("^Super Game.*\\.png$").match(player.Shown.first()).hasMatch())
        << player.Shown.first().toStdString();
    EXPECT_TRUE(QFile::exists(state.Options.SnapshotFolder + "super game.png"));
}

} // namespace
