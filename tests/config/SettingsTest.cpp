#include "config/Settings.h"
#include "support/TestFixtures.h"

#include <QDir>
#include <QFileInfo>
#include <tuple>

TEST_F(LumbraTest, SettingsFirstRunAndBadNumbersGiveDefaults) {
    m_state.Options.SPC_ShowMenu = 0;
    ImportSettings(m_state.Store, m_state.Options, m_state.Emulators, "reg", QString());
    Settings expected = DefaultSettings();
    EXPECT_TRUE(m_state.Options == expected);
    // A first run names no folder that does not exist here, nor a relative "c:\".
    EXPECT_EQ(expected.SnapshotFolder,
              qEnvironmentVariable("XDG_DATA_HOME") + "/Lumbra/snapshots/");
    EXPECT_EQ(expected.ExportFolder, QDir::homePath() + '/');
    // A private folder, its letter case kept: lower-cased it would name a twin.
    EXPECT_EQ(expected.UnzipFolder, qEnvironmentVariable("XDG_CACHE_HOME") + "/Lumbra/unzip/");
    for (const EmulatorRecord& e : m_state.Emulators.Records)
        EXPECT_EQ(e.Folder + "|" + e.SaveFolder + "|" + e.DefaultProfile, "||"); // not set up

    m_state.Store.Write("Settings", "SPC_ShowMenu", "yes");
    m_state.Store.Write("Settings", "Snapshots_Show", "");
    m_state.Store.Write("Settings", "MainForm", "left;20;30;40");
    m_state.Options.SPC_ShowMenu = 0;
    ImportSettings(m_state.Store, m_state.Options, m_state.Emulators, "reg", QString());
    expected.MainForm = {1860, 20, 30, 40, 0};
    EXPECT_TRUE(m_state.Options == expected);
}

TEST_F(LumbraTest, EmulatorsAndSettingsRoundTrip) {
    AppState restored;
    DefineEmulators(restored.Emulators, restored.Store);
    m_state.Store.Write("Emulators", "ZSnes", "/emu/zsnes/;/emu/saves/");
    EXPECT_EQ(m_state.Emulators.FindEmulatorIndex(""), -1); // even before the names are set
    DefineEmulators(m_state.Emulators, m_state.Store);
    const EmulatorRecord& zsnes = m_state.Emulators.Records[2];
    EXPECT_EQ(m_state.Emulators.FindEmulatorIndex("zsnes"), 2);
    EXPECT_EQ(zsnes.Folder + zsnes.SaveFolder, "/emu/zsnes//emu/saves/");
    EXPECT_EQ(zsnes.LaunchFiles, "zsnes.pif;zsnes.lnk;zsnes.bat;zsnes.exe;zsnes;zsnes.sh");

    // Every field differs from its default; flags keep any integer as read.
    const WindowPlacement placement{-100, 200, 9000, 7000, 2};
    m_state.Options = {"/snap;x/", "/spc/",  "/export/",   "/unzip/", "app", 2,  "open",   3,
                       4,          "Snes9X", "RPG;x",      5,         6,     7,  8,        9,
                       10,         11,       "nosnap.png", 12,        13,    14, placement};
    for (EmulatorRecord& e : m_state.Emulators.Records)
        std::tie(e.Folder, e.SaveFolder, e.DefaultProfile) =
            std::tuple("/emu/" + e.Name + "/", "/saves/" + e.Name + "/", "Fast " + e.Name);

    // The file target only logs; an unknown target does nothing.
    EnableLog();
    const QString file = TempPath("settings.ini");
    ExportSettings(m_state.Store, m_state.Options, m_state.Emulators, "file", file);
    ImportSettings(m_state.Store, m_state.Options, m_state.Emulators, "Ini", file);
    ExportSettings(m_state.Store, m_state.Options, m_state.Emulators, "xml", file);
    EXPECT_FALSE(QFileInfo::exists(file));
    EXPECT_EQ(m_state.Store.Sections(), QStringList{"Emulators"});
    EXPECT_EQ(LogText(), "\r\nExporting Settings to file: " + file +
                             "\r\nImporting Settings from file: " + file);

    ExportSettings(m_state.Store, m_state.Options, m_state.Emulators, "REG", QString());
    EXPECT_EQ(m_state.Store.Read("Folders", "Snes9X"), "/emu/Snes9X/;/saves/Snes9X/;Fast Snes9X");
    EXPECT_EQ(m_state.Store.Read("Settings", "ShowCommandLine"), "14");
    ImportSettings(restored.Store, restored.Options, restored.Emulators, "Registry", QString());
    EXPECT_TRUE(restored.Options == m_state.Options);
    EXPECT_TRUE(restored.Emulators.Records == m_state.Emulators.Records);
}
