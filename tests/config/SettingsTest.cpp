#include "config/Settings.h"
#include "launch/OsHelpers.h"
#include "support/TestFixtures.h"

#include <QFileInfo>

TEST_F(LumbraTest, SettingsFirstRunAndRoundTrip) {
    DefineEmulators(m_state);
    m_state.Options.SPC_ShowMenu = 0;
    ImportSettings(m_state, QStringLiteral("reg"), QString());
    Settings defaults;
    defaults.UnzipFolder = GetTempFolder().toLower();
    EXPECT_TRUE(m_state.Options == defaults);
    for (const EmulatorRecord& emulator : m_state.Emulators.Records)
        EXPECT_EQ(emulator.Folder + "|" + emulator.SaveFolder + "|" + emulator.DefaultProfile,
                  "c:\\|c:\\|");

    Settings& o = m_state.Options;
    for (QString* text :
         {&o.SnapshotFolder, &o.SPCFolder, &o.ExportFolder, &o.UnzipFolder, &o.SPC_App,
          &o.SPC_OpenWith, &o.DefaultEmulator, &o.DefaultGroup, &o.Snapshots_NoSnapPic})
        *text = QStringLiteral("/changed/") + *text + QStringLiteral(";x");
    for (qint16* flag : {&o.SPC_DisplayList, &o.SPC_ShowMenu, &o.SPC_UseWizard, &o.AutoSwitchGroup,
                         &o.RomBatchFileSupport, &o.UseBaseFilenames, &o.StateClickDeletes,
                         &o.Snapshots_AutoRenameAll, &o.Snapshots_AutoUse1st,
                         &o.Snapshots_HideIfPicExists, &o.Snapshots_Show, &o.Snapshots_UseWizard})
        *flag = static_cast<qint16>(*flag == 0 ? 1 : 0);
    o.MainForm = {-100, 200, 9000, 7000, 2};
    for (EmulatorRecord& emulator : m_state.Emulators.Records) {
        emulator.Folder = "/emu/" + emulator.Name + "/";
        emulator.SaveFolder = "/saves/" + emulator.Name + "/";
        emulator.DefaultProfile = "Fast " + emulator.Name;
    }
    ExportSettings(m_state, QStringLiteral("REG"), QString());
    EXPECT_EQ(m_state.Store.Read("Folders", "Snes9X"), "/emu/Snes9X/;/saves/Snes9X/;Fast Snes9X");
    EXPECT_EQ(m_state.Store.Read("Settings", "MainForm"), "-100;200;9000;7000;2");

    AppState restored;
    DefineEmulators(restored);
    ImportSettings(restored, QStringLiteral("Registry"), QString());
    EXPECT_TRUE(restored.Options == m_state.Options);
    EXPECT_TRUE(restored.Emulators.Records == m_state.Emulators.Records);
}

TEST_F(LumbraTest, SettingsTargetsAndLogLines) {
    ExportSettings(m_state, QStringLiteral("reg"), QString());
    EXPECT_EQ(LogText(), QString());

    m_state.Store.Clear();
    EnableLog();
    const QString file = TempPath(QStringLiteral("settings.ini"));
    ExportSettings(m_state, QStringLiteral("file"), file);
    ImportSettings(m_state, QStringLiteral("Ini"), file);
    ExportSettings(m_state, QStringLiteral("xml"), file);
    EXPECT_FALSE(QFileInfo::exists(file));
    EXPECT_TRUE(m_state.Store.Sections().isEmpty());
    ExportSettings(m_state, QStringLiteral("reg"), QString());
    ImportSettings(m_state, QStringLiteral("reg"), QString());
    EXPECT_EQ(LogText(), "\r\nExporting Settings to file: " + file +
                             "\r\nImporting Settings from file: " + file +
                             "\r\nExporting Settings to: Registry...Done."
                             "\r\nImporting Settings from: Registry...Done.");
}

TEST_F(LumbraTest, SettingsBadNumbersKeepDefaultsAndMainFormFields) {
    for (const auto& [key, value] : {std::pair{"SPC_ShowMenu", "yes"},
                                     {"SPC_DisplayList", "7"},
                                     {"Snapshots_Show", ""},
                                     {"DefaultGroup", "RPG"},
                                     {"MainForm", "left;20;30;40;2"}})
        m_state.Store.Write("Settings", key, value);
    ImportSettings(m_state, QStringLiteral("reg"), QString());
    const Settings& o = m_state.Options;
    EXPECT_EQ(QList<int>({o.SPC_ShowMenu, o.SPC_DisplayList, o.Snapshots_Show}),
              QList<int>({1, 7, 1}));
    EXPECT_EQ(o.DefaultGroup, QStringLiteral("RPG"));
    EXPECT_TRUE(o.MainForm == (WindowPlacement{1860, 20, 30, 40, 2}));

    m_state.Store.Write("Settings", "MainForm", "10;20;30;40");
    ImportSettings(m_state, QStringLiteral("reg"), QString());
    EXPECT_TRUE(o.MainForm == (WindowPlacement{10, 20, 30, 40, 0}));
}
