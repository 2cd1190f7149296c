#include "support/FakeSystem.h"
#include "support/TestFixtures.h"

#include "emulators/EmulatorCatalogue.h"
#include "emulators/EmulatorDetection.h"
#include "emulators/EmulatorEnvironment.h"


// Readable found emulators in failure messages.
inline void PrintTo(const FoundEmulator& emulator, std::ostream* out) {
    *out << emulator.Name.toStdString() << " = " << FoundEmulatorValue(emulator).toStdString();
}

namespace {

class DetectionTest : public LumbraTest {
protected:
    DetectionTest() : m_system(TempPath("system")) {}

    QList<FoundEmulator> Detect() const {
        return DetectEmulators(LoadEmulatorCatalogue({m_system.WriteCatalogue()}),
                               EmulatorEnvironment(m_system.Environment()));
    }

    static FoundEmulator Found(const QString& name, const QString& program, const QString& core,
                               const QString& command, const QString& home = QString()) {
        FoundEmulator emulator;
        emulator.Name = name;
        emulator.Entry = name.section(" (", 0, 0);
        emulator.Program = program;
        emulator.Core = core;
        emulator.Command = command;
        emulator.Home = home;
        return emulator;
    }

    FakeSystem m_system;
};

TEST_F(DetectionTest, FindsEachEmulatorTheWayItIsInstalled) {
    const QString retroarch = m_system.WriteProgram(m_system.Bin() + "/retroarch");
    const QString cores = m_system.Root("/usr/lib/x86_64-linux-gnu/libretro/");
    const QString info = m_system.Root("/usr/share/libretro/info/");
    for (const char* core : {"bsnes_mercury_performance_libretro.so", "snes9x_libretro.so",
                             "genesis_plus_gx_libretro.so", "mysnes_libretro.so"})
        m_system.WriteFile(cores + core);
    m_system.WriteFile(info + "bsnes_mercury_performance_libretro.info",
                       "display_name = \"Nintendo - SFC/SNES/GB/GBC (bsnes-mercury Performance)\"\n"
                       "corename = \"bsnes-mercury Performance\"\n");
    m_system.WriteFile(
        info + "mysnes_libretro.info",
        "# Software Information\ncorename = \"My SNES\"\nsystemid = \"super_nes\"\n");
    m_system.WriteFile(info + "genesis_plus_gx_libretro.info", "systemid = \"mega_drive\"\n");
    // The same core in the player's own folder: the first folder's wins.
    m_system.WriteFile(m_system.Home() + "/.config/retroarch/cores/snes9x_libretro.so");
    // Debian's Mednafen is in /usr/games, which is not on every PATH.
    const QString mednafen = m_system.WriteProgram(m_system.Root("/usr/games/mednafen"));
    const QString flatpak = m_system.WriteProgram(m_system.Bin() + "/flatpak");
    m_system.WriteFile(m_system.Home() + "/.local/share/flatpak/exports/bin/com.snes9x.Snes9x");
    m_system.WriteProgram(m_system.Home() + "/Applications/ares-v130.AppImage");
    const QString ares =
        m_system.WriteProgram(m_system.Home() + "/Applications/ares-v131.AppImage");

    const QString withCore = "{program} -L {core} {options} {game}";
    EXPECT_EQ(
        Detect(),
        QList<FoundEmulator>(
            {Found("RetroArch (bsnes-mercury Performance)", retroarch,
                   cores + "bsnes_mercury_performance_libretro.so", withCore),
             Found("RetroArch (My SNES)", retroarch, cores + "mysnes_libretro.so", withCore),
             Found("RetroArch (Snes9x)", retroarch, cores + "snes9x_libretro.so", withCore),
             Found("Mednafen", mednafen, "", "{program} {options} {game}"),
             Found("snes9x-gtk", flatpak, "", "{program} run com.snes9x.Snes9x {options} {game}"),
             Found("ares", ares, "", "{program} {options} {game}")}));
}

TEST_F(DetectionTest, AFlatpakRetroArchTakesTheCoresOfItsOwnFolder) {
    m_system.WriteFile(m_system.Root("/var/lib/flatpak/exports/bin/org.libretro.RetroArch"));
    m_system.WriteFile(m_system.Root("/usr/lib/x86_64-linux-gnu/libretro/bsnes_libretro.so"));
    const QString core = m_system.WriteFile(
        m_system.Home() +
        "/.var/app/org.libretro.RetroArch/config/retroarch/cores/snes9x_libretro.so");
    // Mednafen through Mednaffe's Flatpak.
    m_system.WriteFile(m_system.Root("/var/lib/flatpak/exports/bin/com.github.AmatCoder.mednaffe"));
    // Nothing yet: Flatpak exports without the flatpak program to start them, cores
    // without a RetroArch to load them, and a Mesen that is not executable.
    m_system.WriteFile(m_system.Home() + "/Applications/Mesen.AppImage");
    EXPECT_EQ(Detect(), QList<FoundEmulator>());

    const QString flatpak = m_system.WriteProgram(m_system.Bin() + "/flatpak");
    EXPECT_EQ(Detect(),
              QList<FoundEmulator>(
                  {Found("RetroArch (Snes9x)", flatpak, core,
                         "{program} run org.libretro.RetroArch -L {core} {options} {game}",
                         "~/.var/app/org.libretro.RetroArch/config/retroarch"),
                   Found("Mednafen", flatpak, "",
                         "{program} run --command=mednafen com.github.AmatCoder.mednaffe {options} "
                         "{game}")}));
}

TEST_F(DetectionTest, DetectionIsStoredAndKeepsWhatThePlayerChanged) {
    const auto found = [](const QString& name, const QString& program) {
        return Found(name, program, "", "{program} {options} {game}");
    };
    SettingsStore& store = m_state.Store;
    StoreDetectedEmulators(store, {found("Mednafen", "/usr/games/mednafen"), found("ares", "/a")});
    FoundEmulator edited = *FindFoundEmulator(store, "MEDNAFEN");
    edited.Command = "{program} -video.fs 1 {options} {game}";
    edited.DefaultProfile = "fast";
    edited.StateFolder = "/my states; 100% mine";
    WriteFoundEmulator(store, edited);
    EXPECT_EQ(SettingsStore().Read(FoundEmulatorsSection, "Mednafen"),
              "Mednafen;/usr/games/mednafen;;{program} -video.fs 1 {options} {game};fast;;;"
              "/my states%3B 100%25 mine;");
    EXPECT_EQ(*FindFoundEmulator(SettingsStore(), "mednafen"), edited);

    // Found again: the player's changes stay; ares is gone, bsnes new.
    StoredDetection again = StoreDetectedEmulators(
        store, {found("Mednafen", "/usr/games/mednafen"), found("bsnes", "/b")});
    EXPECT_EQ(again.Gone, QStringList{"ares"});
    EXPECT_EQ(again.Found.first(), edited);
    EXPECT_EQ(ReadFoundEmulators(SettingsStore()),
              QList<FoundEmulator>({again.Found.last(), edited})); // in name order

    // Found as another program: its command is the catalogue's again.
    again = StoreDetectedEmulators(store, {found("Mednafen", "/usr/bin/mednafen")});
    EXPECT_EQ(again.Found.first().Command, "{program} {options} {game}");
    EXPECT_EQ(again.Found.first().DefaultProfile, "fast");
    EXPECT_EQ(again.Found.first().StateFolder, edited.StateFolder);

    EXPECT_EQ(EmulatorName(store, "zsnes"), "ZSnes");
    EXPECT_EQ(EmulatorName(store, "MEDNAFEN"), "Mednafen");
    EXPECT_EQ(EmulatorName(store, "bsnes"), std::nullopt);
    EXPECT_FALSE(RemoveFoundEmulator(store, "ZSnes"));
    EXPECT_TRUE(RemoveFoundEmulator(store, "mednafen"));
    EXPECT_EQ(ReadFoundEmulators(SettingsStore()), QList<FoundEmulator>());
}

} // namespace
