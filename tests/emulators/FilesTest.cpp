#include "support/FakeSystem.h"
#include "support/TestFixtures.h"

#include "emulators/EmulatorCatalogue.h"
#include "emulators/EmulatorEnvironment.h"
#include "emulators/EmulatorFiles.h"
#include "emulators/FoundEmulators.h"

#include <QCryptographicHash>

// Readable files in failure messages.
inline void PrintTo(const EmulatorFile& file, std::ostream* out) {
    *out << int(file.Kind) << ' ' << file.Slot << ' ' << file.Path.toStdString()
         << (file.Exists ? " (exists)" : "");
}

namespace {

class FilesTest : public LumbraTest {
protected:
    FilesTest()
        : m_system(TempPath("system")),
          m_catalogue(LoadEmulatorCatalogue({m_system.WriteCatalogue()})) {}

    EmulatorGameFiles FilesOf(const QString& entry, const QString& game,
                              const FoundEmulator& player = {}) const {
        FoundEmulator emulator = player;
        emulator.Entry = entry;
        if (emulator.Program.isEmpty())
            emulator.Program = m_system.Bin() + "/emulator";
        return GameFilesFor(*m_catalogue.Find(entry), emulator, game,
                            EmulatorEnvironment(m_environment));
    }

    static QStringList Paths(const QList<EmulatorFile>& files) {
        QStringList paths;
        for (const EmulatorFile& file : files)
            paths.append(file.Path);
        return paths;
    }

    FakeSystem m_system;
    EmulatorCatalogue m_catalogue;
    QProcessEnvironment m_environment = m_system.Environment();
};

TEST_F(FilesTest, RetroArchWritesInItsFoldersUnlessItsSettingsMoveThem) {
    const QString config = m_system.Home() + "/.config/retroarch";
    const QString game = WriteFile("Games/Super Metroid.sfc", "x");
    FoundEmulator bsnes;
    bsnes.Core = m_system.WriteFile(
        m_system.Root("/usr/lib/x86_64-linux-gnu/libretro/bsnes_mercury_performance_libretro.so"));

    EmulatorGameFiles files = FilesOf("RetroArch", game, bsnes);
    EXPECT_EQ(files.Base, "Super Metroid");
    EXPECT_EQ(files.StateFolder, config + "/states");
    EXPECT_EQ(files.SaveFolder, config + "/saves");
    EXPECT_EQ(files.ScreenshotFolder, config + "/screenshots");
    ASSERT_EQ(files.States.size(), 11);
    EXPECT_EQ(files.States[0].Path, config + "/states/Super Metroid.state");
    EXPECT_EQ(files.States[3], (EmulatorFile{EmulatorFileKind::StateSlot, 3,
                                             config + "/states/Super Metroid.state3", false}));
    EXPECT_EQ(files.States[10].Kind, EmulatorFileKind::AutoState);
    EXPECT_EQ(files.States[10].Path, config + "/states/Super Metroid.state.auto");
    EXPECT_EQ(files.Battery->Path, config + "/saves/Super Metroid.srm");

    for (const char* file :
         {"/states/Super Metroid.state3", "/states/super metroid.state4",
          "/saves/Super Metroid.srm", "/screenshots/Super Metroid-261122-213639.png",
          "/screenshots/Super Metroid.png", "/screenshots/Super Metroid-26112-213639.png",
          "/screenshots/Super Metroid2.png", "/screenshots/Other-261122-213639.png"})
        m_system.WriteFile(config + file);
    files = FilesOf("RetroArch", game, bsnes);
    EXPECT_EQ(Paths(files.ExistingFiles()), QStringList({config + "/states/Super Metroid.state3",
                                                         config + "/saves/Super Metroid.srm"}));
    EXPECT_EQ(files.Screenshots(),
              QStringList({config + "/screenshots/Super Metroid-261122-213639.png",
                           config + "/screenshots/Super Metroid.png"}));

    // Its settings move the folders; "default" and ":/..." keep them, "" is beside the game.
    m_system.WriteFile(config + "/retroarch.cfg", "# written by RetroArch\n"
                                                  "savestate_directory = \"~/RA States\"\n"
                                                  "savefile_directory = \":/saves\"\n"
                                                  "screenshot_directory = \"\"\n"
                                                  "sort_savestates_enable = \"true\"\n"
                                                  "sort_savefiles_enable = \"true\"\n"
                                                  "sort_savefiles_by_content_enable = \"false\"\n");
    files = FilesOf("RetroArch", game, bsnes);
    EXPECT_EQ(files.StateFolder, m_system.Home() + "/RA States/bsnes-mercury");
    EXPECT_EQ(files.SaveFolder, config + "/saves/bsnes-mercury");
    EXPECT_EQ(files.ScreenshotFolder, TempPath("Games"));

    m_system.WriteFile(config + "/retroarch.cfg",
                       "savestates_in_content_dir = \"true\"\n"
                       "screenshot_directory = \"default\"\n"
                       "sort_screenshots_by_content_enable = \"true\"\n");
    files = FilesOf("RetroArch", TempPath("Games/Zipped.ZIP"), bsnes);
    EXPECT_EQ(files.Base, "Zipped");
    EXPECT_EQ(files.StateFolder, TempPath("Games"));
    EXPECT_EQ(files.ScreenshotFolder, config + "/screenshots/Games");

    // The player's folders win over both.
    bsnes.StateFolder = TempPath("Mine/");
    bsnes.ScreenshotFolder = "~/Shots";
    files = FilesOf("RetroArch", game, bsnes);
    EXPECT_EQ(files.StateFolder, TempPath("Mine"));
    EXPECT_EQ(files.ScreenshotFolder, m_system.Home() + "/Shots");
}

TEST_F(FilesTest, MednafenNamesItsFilesWithTheMd5OfTheImageWithoutItsCopierHeader) {
    QByteArray image(64 * 1024, '\0');
    for (int i = 0; i < image.size(); ++i)
        image[i] = char(i * 7);
    const QString md5 =
        QString::fromLatin1(QCryptographicHash::hash(image, QCryptographicHash::Md5).toHex());
    const QString game = WriteFile("Games/Star Fox.smc", QByteArray(512, 'H') + image);

    EmulatorGameFiles files = FilesOf("Mednafen", game);
    const QString home = m_system.Home() + "/.mednafen";
    EXPECT_EQ(files.States.first().Path, home + "/mcs/Star Fox." + md5 + ".mc0");
    EXPECT_EQ(files.States[9].Path, home + "/mcs/Star Fox." + md5 + ".mc9");
    EXPECT_EQ(files.States.last(), (EmulatorFile{EmulatorFileKind::AutoState, -1,
                                                 home + "/mcs/Star Fox." + md5 + ".mca", false}));
    EXPECT_EQ(files.Battery->Path, home + "/sav/Star Fox." + md5 + ".srm");
    EXPECT_TRUE(files.IsScreenshot("Star Fox-0000.png"));
    EXPECT_FALSE(files.IsScreenshot("Star Fox-counter.txt"));

    // $MEDNAFEN_HOME moves everything; a zipped game is named after the archive and
    // has the md5 of the image inside.
    m_environment.insert("MEDNAFEN_HOME", TempPath("mednafen home"));
    const QString zipped = MakeZip("Games/zipped.zip", {{"inner.sfc", image}});
    files = FilesOf("Mednafen", zipped);
    EXPECT_EQ(files.Battery->Path, TempPath("mednafen home/sav/zipped." + md5 + ".srm"));
    EXPECT_EQ(files.ScreenshotFolder, TempPath("mednafen home/snaps"));

    // An image that cannot be read has no md5: no state or battery file is named.
    files = FilesOf("Mednafen", TempPath("Games/gone.sfc"));
    EXPECT_EQ(files.States, QList<EmulatorFile>());
    EXPECT_EQ(files.Battery, std::nullopt);
}

TEST_F(FilesTest, EachEmulatorNamesItsFilesItsOwnWay) {
    const QString games = TempPath("Games");
    const QString game = WriteFile("Games/Zelda.sfc", "x");
    const QString mesen = m_system.Home() + "/.config/Mesen2";
    struct Case {
        QString Entry;
        QString FirstState;
        QString LastState;
        QString Battery;
        QString Screenshot;
        QString NotScreenshot;
    };
    const QList<Case> cases{
        {"snes9x-gtk", games + "/Zelda.000", games + "/Zelda.009", games + "/Zelda.srm",
         "Zelda.001.png", "Zelda.01.png"},
        {"bsnes", games + "/Zelda.bsz", games + "/Zelda.bsz", games + "/Zelda.srm", "Zelda-001.bmp",
         "Zelda-001.png"},
        {"ares", games + "/Zelda.bs1", games + "/Zelda.bs9", games + "/Zelda.ram",
         "Zelda 2024-09-01 12-30-59.png", "Zelda 2024-09-01.png"},
        {"Mesen", mesen + "/SaveStates/Zelda_1.mss", mesen + "/SaveStates/Zelda_10.mss",
         mesen + "/Saves/Zelda.srm", "Zelda_000.png", "zelda_000.png"},
    };
    for (const Case& test : cases) {
        const EmulatorGameFiles files = FilesOf(test.Entry, game);
        const std::string entry = test.Entry.toStdString();
        ASSERT_FALSE(files.States.isEmpty()) << entry;
        EXPECT_EQ(files.States.first().Path, test.FirstState) << entry;
        EXPECT_EQ(files.States.last().Path, test.LastState) << entry;
        EXPECT_EQ(files.Battery->Path, test.Battery) << entry;
        EXPECT_TRUE(files.IsScreenshot(test.Screenshot)) << entry;
        EXPECT_FALSE(files.IsScreenshot(test.NotScreenshot)) << entry;
    }
    EXPECT_EQ(FilesOf("bsnes", game).States.first().Kind, EmulatorFileKind::AllStates);

    // Mesen names a zipped game's files after the image inside; portable, it keeps
    // them beside its program.
    const QString zipped =
        MakeZip("Games/pack.zip", {{"docs/readme.txt", "x"}, {"roms/The Game.sfc", "y"}});
    FoundEmulator portable;
    portable.Program = m_system.WriteProgram(TempPath("Mesen/Mesen"));
    EXPECT_EQ(FilesOf("Mesen", zipped, portable).Base, "The Game");
    EXPECT_EQ(FilesOf("Mesen", zipped, portable).SaveFolder, mesen + "/Saves");
    m_system.WriteFile(TempPath("Mesen/settings.json"), "{}");
    EXPECT_EQ(FilesOf("Mesen", zipped, portable).SaveFolder, TempPath("Mesen/Saves"));
    EXPECT_EQ(FilesOf("ares", zipped).Base, "pack");
}

} // namespace
