#include "cli/CliRun.h"
#include "support/FakeSystem.h"
#include "support/SnesImageBuilder.h"
#include "support/TestFixtures.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

// lumbra-cli on a system of its own: its home, settings store, PATH and the root of
// the catalogue's absolute paths all in the test's folder.
class EmulatorsCliTest : public LumbraTest {
protected:
    EmulatorsCliTest() : m_system(TempPath("system")) {
        m_environment.insert(m_system.Environment());
        m_system.WriteCatalogue(DataHome() + "/Lumbra/emulators/system.json");
        m_retroarch = m_system.WriteProgram(m_system.Bin() + "/retroarch");
        m_system.WriteFile(Core("bsnes_mercury_performance_libretro.so"));
        m_system.WriteFile(Core("snes9x_libretro.so"));
        m_mednafen = m_system.WriteProgram(m_system.Root("/usr/games/mednafen"));
    }

    CliResult Run(const QStringList& arguments) const { return RunCli(arguments, m_environment); }
    QString DataHome() const { return m_system.Home() + "/.local/share"; }
    QString RetroArchHome() const { return m_system.Home() + "/.config/retroarch"; }
    QString Core(const QString& file) const {
        return m_system.Root("/usr/lib/x86_64-linux-gnu/libretro/") + file;
    }

    FakeSystem m_system;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    QString m_retroarch;
    QString m_mednafen;
};

TEST_F(EmulatorsCliTest, FindsTheInstalledEmulatorsAndSetsThemUpBesideLumbrasOwn) {
    const CliResult detect = Run({"emulators", "detect"});
    EXPECT_EQ(detect.ExitCode, 0) << detect.Err.toStdString();
    EXPECT_EQ(detect.Out, "RetroArch (bsnes-mercury Performance): " + m_retroarch + " -L " +
                              Core("bsnes_mercury_performance_libretro.so") +
                              " {options} {game}\nRetroArch (Snes9x): " + m_retroarch + " -L " +
                              Core("snes9x_libretro.so") +
                              " {options} {game}\nMednafen: " + m_mednafen + " {options} {game}\n");
    const QString json = Run({"emulators", "detect", "--json"}).Out.section('\n', 1, 1);
    EXPECT_EQ(QJsonDocument::fromJson(json.toUtf8()).object().value("core"),
              Core("snes9x_libretro.so"));

    const QString states = MakeFolder("States");
    const QList<std::pair<QStringList, int>> runs{
        {{"emulators", "set", "retroarch (snes9x)", "--profile", "fast", "--state-folder", states},
         0},
        {{"emulators", "set", "Mednafen", "--command", "{program} -video.fs 1 {options} {game}"},
         0},
        {{"emulators", "set", "Mednafen", "--command", "{program} -f"}, 1},
        {{"emulators", "set", "Mednafen", "--folder", states}, 2},
        {{"emulators", "set", "Mednafen", "--save-folder", TempPath("missing")}, 1},
        {{"config", "set", "DefaultEmulator", "retroarch (snes9x)"}, 0},
        {{"config", "set", "DefaultEmulator", "Nope"}, 1},
        {{"profiles", "set", "RetroArch (Snes9x)", "fast", "-f --verbose"}, 0},
        {{"profiles", "set", "snes9x", "Basic", "-x"}, 0},
        {{"profiles", "set", "snes9x", "a;b", "-x"}, 1},
        {{"profiles", "set", "Nope", "a", "-x"}, 1},
        {{"emulators", "remove", "mednafen"}, 0},
        {{"emulators", "remove", "Mednafen"}, 1},
    };
    for (const auto& [arguments, exitCode] : runs)
        EXPECT_EQ(Run(arguments).ExitCode, exitCode) << arguments.join(' ').toStdString();
    EXPECT_EQ(Run({"config", "get", "DefaultEmulator"}).Out, "RetroArch (Snes9x)\n");
    EXPECT_TRUE(Run({"emulators", "remove", "ZSnes"}).Err.contains("Lumbra's own three stay"));

    EXPECT_EQ(Run({"profiles", "list", "retroarch (snes9x)"}).Out, "fast=-f --verbose\n");
    EXPECT_EQ(Run({"profiles", "list"}).Out,
              "Snes9X\n  Basic=-x\nRetroArch (Snes9x)\n  fast=-f --verbose\n");
    EXPECT_EQ(Run({"profiles", "remove", "snes9x", "BASIC"}).ExitCode, 0);
    EXPECT_EQ(Run({"profiles", "remove", "snes9x", "Basic"}).ExitCode, 1);
    EXPECT_EQ(Run({"profiles", "list", "Snes9X"}).Out, "");

    // Detected again, the player's settings stay; a core gone is forgotten.
    QFile::remove(Core("bsnes_mercury_performance_libretro.so"));
    const CliResult again = Run({"emulators", "detect"});
    EXPECT_EQ(again.Err, "lumbra-cli: no longer found, removed: RetroArch (bsnes-mercury "
                         "Performance)\n");
    const QString list = Run({"emulators", "list"}).Out;
    EXPECT_TRUE(list.startsWith("Nlke\n") &&
                list.contains("\nZSnes\n  folder:       (not set up)\n"))
        << list.toStdString();
    EXPECT_TRUE(list.contains("\n  core:         " + Core("snes9x_libretro.so") +
                              "\n  command:      {program} -L {core} {options} {game}"
                              "\n  profile:      fast\n  states:       " +
                              states + "/\n"))
        << list.toStdString();
}

TEST_F(EmulatorsCliTest, StatesListsEveryFileTheEmulatorsWroteForAGame) {
    const QByteArray image = SnesImageBuilder::ValidLoRomWithCopierHeader("STAR FOX");
    WriteFile("Games/starfox.smc", image);
    const QString md5 = QString::fromLatin1(
        QCryptographicHash::hash(image.mid(512), QCryptographicHash::Md5).toHex());
    m_environment.insert("MEDNAFEN_HOME", TempPath("mednafen"));
    QFile::remove(Core("bsnes_mercury_performance_libretro.so"));
    const QString zsnes = MakeFolder("ZSnes");
    for (const QStringList& setUp : {QStringList{"folders", "add", TempPath("Games")},
                                     {"emulators", "detect"},
                                     {"emulators", "set", "ZSnes", "--save-folder", zsnes}})
        ASSERT_EQ(Run(setUp).ExitCode, 0) << setUp.join(' ').toStdString();

    const QString retroarch = RetroArchHome();
    const QStringList files{retroarch + "/states/starfox.state.auto",
                            retroarch + "/screenshots/starfox-261122-213639.png",
                            TempPath("mednafen/mcs/starfox." + md5 + ".mc3"),
                            TempPath("mednafen/snaps/starfox-0000.png"),
                            zsnes + "/starfox.zs3",
                            DataHome() + "/Lumbra/snapshots/starfox.png",
                            retroarch + "/saves/starfox.srm"};
    for (const QString& file : files)
        m_system.WriteFile(file);

    const CliResult text = Run({"states", "Star Fox"});
    EXPECT_EQ(text.ExitCode, 0) << text.Err.toStdString();
    EXPECT_EQ(text.Out,
              "Snapshot: " + files[5] + "\nZSnes\n  state 3:       " + files[4] +
                  "\nMednafen\n  state 3:       " + files[2] + "\n  screenshot:    " + files[3] +
                  "\nRetroArch (Snes9x)\n  auto state:    " + files[0] +
                  "\n  battery save:  " + files[6] + "\n  screenshot:    " + files[1] + '\n');
    // The same records, a JSON object a line.
    EXPECT_EQ(Run({"states", "--json", "--index", "0"}).Out.section('\n', 1, 1),
              R"({"emulator":"ZSnes","kind":"state","slot":"3","path":")" + files[4] + "\"}");
    EXPECT_EQ(Run({"states", "Nothing Like It"}).ExitCode, 1);
}

} // namespace
