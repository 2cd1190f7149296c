#include "app/Startup.h"
#include "emulators/FoundEmulators.h"
#include "support/SnesImageBuilder.h"
#include "support/StandInEmulator.h"
#include "support/WidgetSteps.h"
#include "support/WindowTest.h"
#include "ui/frmSettings.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>

namespace {

using Flag = qint16 Settings::*;
using Text = QString Settings::*;
// Each check box is named "chk" and its setting, most text boxes "txt" and theirs.
#define FLAG(setting) std::pair<const char*, Flag>("chk" #setting, &Settings::setting)
#define TXT(setting) std::pair<const char*, Text>("txt" #setting, &Settings::setting)

class SettingsDialogTest : public WindowTest {
protected:
    // A store as a player who has set everything up leaves it.
    void SeedStore() {
        AppState seed;
        DefineEmulators(seed.Emulators, seed.Store);
        seed.Emulators.Records[1] = {"Snes9X", "/emus/snes9x/", "/emus/saves/", "", "fast", ""};
        seed.Groups.AddGroup("RPG");
        seed.GameFolders.AddGameFolder(MakeFolder("Games") + '/');
        Settings& options = seed.Options;
        options.DefaultEmulator = "Snes9X";
        options.DefaultGroup = "Gone";
        options.ExportFolder = "/exports/";
        options.SnapshotFolder = "/snaps/";
        options.Snapshots_NoSnapPic = "/snaps/none.png";
        options.SPC_OpenWith = "%custom";
        options.SPC_App = "spcplay;-q";
        options.StateClickDeletes = options.Snapshots_AutoUse1st = options.SPC_DisplayList = 1;
        options.AutoSwitchGroup = options.Snapshots_Show = options.SPC_ShowMenu = 0;
        SaveEverything(seed);
        LoadConfiguration(m_state);
        ImportGroupList(m_state, "reg", QString());
    }

    void Open() {
        m_dialog = std::make_unique<frmSettings>(m_state, m_prompts, m_shell, nullptr);
        m_dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_dialog.get()));
    }

    template <typename T> T* Control(const QString& name) const {
        QWidget* dialog = m_dialog ? m_dialog.get() : QApplication::activeModalWidget();
        T* control = dialog->findChild<T*>(name);
        EXPECT_NE(control, nullptr) << name.toStdString();
        return control;
    }
    // The control, after a click on the tab of its page.
    template <typename T = QWidget> T* Reveal(const QString& name) {
        auto* pages = Control<QTabWidget>("tabSettings");
        T* control = Control<T>(name);
        for (int i = 0; i < pages->count(); ++i) {
            if (pages->widget(i)->isAncestorOf(control)) {
                QTabBar* tabs = pages->tabBar();
                QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(i).center());
            }
        }
        return control;
    }
    void Press(const QString& name) { QTest::keyClick(Reveal(name), Qt::Key_Space); }
    void Click(const QString& name) { QTest::mouseClick(Reveal(name), Qt::LeftButton); }
    void Type(const QString& name, const QString& text) {
        Reveal<QLineEdit>(name)->selectAll();
        QTest::keyClicks(Control<QLineEdit>(name), text);
    }
    QString TextOf(const QString& name) const { return Control<QLineEdit>(name)->text(); }
    std::unique_ptr<frmSettings> m_dialog;
};

TEST_F(SettingsDialogTest, EveryPageShowsTheStoredSettings) {
    SeedStore();
    EnableLog();
    Open();
    EXPECT_EQ(LogText(), "\r\n\r\n=== Loaded frmSettings ===\r\nAdding groups to "
                         "cboDefaultGroup...Done.");

    EXPECT_EQ(Control<QComboBox>("cboEmulator")->currentText(), "Snes9X");
    EXPECT_EQ(Control<QComboBox>("cboDefaultEmulator")->currentText(), "Snes9X");
    EXPECT_EQ(TextOf("txtEmuFolder") + TextOf("txtEmuSaveFolder") + TextOf("txtDefaultProfile"),
              "/emus/snes9x//emus/saves/fast");

    EXPECT_EQ(Control<QComboBox>("cboDefaultGroup")->currentText(), "Ungrouped"); // "Gone" is gone
    EXPECT_EQ(Control<QComboBox>("cboDefaultGroup")->count(), 3); // "All Games" first
    EXPECT_EQ(ItemTexts(Control<QListWidget>("lstRomFolders")), QStringList{TempPath("Games/")});
    EXPECT_EQ(TextOf("txtExportFolder") + TextOf("txtSnapshotFolder") + TextOf("txtNoSnapPic"),
              "/exports//snaps//snaps/none.png");
    EXPECT_EQ(TextOf("txtSPCProgram") + TextOf("txtSPCParameters"), "spcplay-q");
    EXPECT_TRUE(Control<QRadioButton>("optProgram")->isChecked());
    EXPECT_TRUE(Control<QLineEdit>("txtSPCParameters")->isEnabled());

    QStringList checked;
    for (QCheckBox* box : m_dialog->findChildren<QCheckBox*>()) {
        if (box->isChecked())
            checked << box->objectName();
    }
    checked.sort();
    EXPECT_EQ(checked, (QStringList{"chkRomBatchFileSupport", "chkSPC_DisplayList",
                                    "chkSPC_UseWizard", "chkShowCommandLine",
                                    "chkSnapshots_AutoUse1st", "chkSnapshots_HideIfPicExists",
                                    "chkSnapshots_UseWizard", "chkStateClickDeletes"}));

    Click("cmdClose");
    m_dialog.reset();
    EXPECT_TRUE(
        LogText().endsWith("\r\nExporting Game Folder list to: Registry...Done.\r\nExporting "
                           "Settings to: Registry...Done.\r\n\r\n=== Unloaded frmSettings ==="));
}

TEST_F(SettingsDialogTest, ControlsWriteTheirSettingsAtOnce) {
    SeedStore();
    Open();
    const Settings before = m_state.Options;
    const QList<std::pair<const char*, Flag>> flags{
        FLAG(AutoSwitchGroup),         FLAG(StateClickDeletes),
        FLAG(UseBaseFilenames),        FLAG(RomBatchFileSupport),
        FLAG(Snapshots_Show),          FLAG(Snapshots_UseWizard),
        FLAG(Snapshots_AutoUse1st),    FLAG(Snapshots_HideIfPicExists),
        FLAG(Snapshots_AutoRenameAll), FLAG(SPC_UseWizard),
        FLAG(SPC_DisplayList),         FLAG(SPC_ShowMenu),
        FLAG(ShowCommandLine)};
    for (const auto& [name, flag] : flags) {
        Press(name);
        EXPECT_EQ(m_state.Options.*flag, before.*flag == 0 ? 1 : 0) << name;
    }
    const QList<std::pair<const char*, Text>> texts{
        TXT(ExportFolder), TXT(UnzipFolder), TXT(SnapshotFolder), TXT(SPCFolder),
        std::pair<const char*, Text>("txtNoSnapPic", &Settings::Snapshots_NoSnapPic)};
    for (const auto& [name, text] : texts) {
        Type(name, "/typed/");
        EXPECT_EQ(m_state.Options.*text, "/typed/") << name;
    }

    // The emulator texts follow the emulator chosen; ";" would split a stored record.
    PickFromList(Reveal<QComboBox>("cboEmulator"), "Nlke");
    EXPECT_EQ(Control<QLabel>("lblLaunchFiles")->text(),
              "nlke.pif nlke.lnk nlke.bat nlke.exe nlke nlke.sh");
    Type("txtEmuFolder", "/nlke;/");
    Type("txtDefaultProfile", "quick");
    EXPECT_EQ(m_state.Emulators.Records[0].Folder, "/nlke/");
    EXPECT_EQ(m_state.Emulators.Records[0].DefaultProfile, "quick");
    EXPECT_EQ(m_state.Emulators.Records[1].Folder, "/emus/snes9x/");
    RunWhenModal([](QWidget* editor) { // "Settings..." makes a new profile the emulator's default
        QTest::keyClicks(editor->findChild<QLineEdit*>("txtProfileName"), "Smooth");
        QTest::mouseClick(editor->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    Click("cmdEmuSettings");
    EXPECT_EQ(m_state.Emulators.Records[0].DefaultProfile + TextOf("txtDefaultProfile"),
              "SmoothSmooth");
    PickFromList(Reveal<QComboBox>("cboDefaultEmulator"), "ZSnes");
    PickFromList(Reveal<QComboBox>("cboDefaultGroup"), "RPG");
    EXPECT_EQ(m_state.Options.DefaultEmulator + m_state.Options.DefaultGroup, "ZSnesRPG");
    PickFromList(Reveal<QComboBox>("cboDefaultGroup"), "All Games"); // Lumbra may start on it
    EXPECT_EQ(m_state.Options.DefaultGroup, "All Games");

    Press("optAssociated");
    EXPECT_EQ(m_state.Options.SPC_OpenWith, "%WIN");
    EXPECT_FALSE(Control<QWidget>("cmdSPCProgram_Browse")->isEnabled());
    Press("optProgram");
    EXPECT_EQ(m_state.Options.SPC_OpenWith, "%CUSTOM");
    Type("txtSPCProgram", "gme");
    Type("txtSPCParameters", "--loop");
    EXPECT_EQ(m_state.Options.SPC_App, "gme;--loop");
}

TEST_F(SettingsDialogTest, BrowsersNameTheEmulatorChosenOnTheFirstPage) {
    SeedStore();
    Open();
    PickFromList(Reveal<QComboBox>("cboEmulator"), "ZSnes");
    const QStringList buttons{"cmdEmuFolder_Browse",      "cmdEmuSaveFolder_Browse",
                              "cmdExportFolder_Browse",   "cmdUnzipFolder_Browse",
                              "cmdSnapshotFolder_Browse", "cmdSPCFolder_Browse"};
    for (const QString& button : buttons) {
        m_shell.AnswerFolder("/Picked/" + button);
        Click(button);
    }
    const EmulatorRecord& zsnes = m_state.Emulators.Records[2];
    EXPECT_EQ(zsnes.Folder, "/picked/cmdemufolder_browse/");
    EXPECT_EQ(zsnes.SaveFolder, "/picked/cmdemusavefolder_browse/");
    EXPECT_EQ(m_state.Options.SnapshotFolder, "/picked/cmdsnapshotfolder_browse/");
    EXPECT_EQ(TextOf("txtSPCFolder"), "/picked/cmdspcfolder_browse/");
    const QList<QStringList> browsed = m_shell.CallsOf("BrowseForFolder");
    ASSERT_EQ(browsed.size(), 6);
    for (const QStringList& call : browsed)
        EXPECT_EQ(call.first(), "Please choose the folder where ZSnes resides:");

    Click("cmdSnapshotFolder_Browse"); // cancelled; the browser started at the field's folder
    EXPECT_EQ(m_state.Options.SnapshotFolder, "/picked/cmdsnapshotfolder_browse/");
    EXPECT_EQ(m_shell.CallsOf("BrowseForFolder").last().last(),
              "/picked/cmdsnapshotfolder_browse/");

    m_prompts.AnswerFile("/pics/No Shot.PNG").AnswerFile(std::nullopt);
    Click("cmdNoSnapPic_Pick");
    Click("cmdNoSnapPic_Pick");
    EXPECT_EQ(m_state.Options.Snapshots_NoSnapPic, "/pics/No Shot.PNG");
    EXPECT_EQ(m_prompts.Asked().value(0).title, "Pick No Snapshot Image");
    EXPECT_EQ(m_prompts.Asked().value(0).filter, "Supported Image Types|*.bmp;*.jpg;*.png;*.gif");
    EXPECT_EQ(m_prompts.Asked().value(1).proposed, "/pics/No Shot.PNG"); // opens at its folder
}

TEST_F(SettingsDialogTest, FoldersComeAndGoFromAFirstRunAndEachCloseStoresItsShare) {
    WriteFile("Games/Zelda.smc", SnesImageBuilder::ValidLoRomWithCopierHeader("ZELDA"));
    WriteFile("Games/Mario.sfc", SnesImageBuilder::HeaderlessLoRom("MARIO"));
    StartWindow();
    auto* games = m_window->findChild<QListWidget*>("lstGameList");
    auto* addGameFolder = m_window->findChild<QPushButton*>("cmdAddGameFolder");
    EXPECT_TRUE(addGameFolder->isVisible());
    EXPECT_EQ(m_window->statusBar()->currentMessage(), "No game folder yet");

    // The first run's button opens the "ROM Folders" page; "&Close" stores folders and settings.
    RunWhenModal([&](QWidget*) {
        EXPECT_EQ(Control<QTabWidget>("tabSettings")->currentWidget()->objectName(), "ROM Folders");
        m_shell.AnswerFolder(TempPath("Games")).AnswerFolder(TempPath("Games/"));
        for (int i = 0; i < 3; ++i) // added, refused as already there, cancelled
            Click("cmdRomFolders_Add");
        EXPECT_EQ(ItemTexts(Control<QListWidget>("lstRomFolders")),
                  QStringList{TempPath("Games/")});
        EXPECT_EQ(games->count(), 2);
        ClickLine(Reveal<QListWidget>("lstRomFolders"), 0);
        EXPECT_EQ(Control<QLabel>("lblRomCount")->text(), "Game Count: 2");
        Press("chkSnapshots_Show");
        Click("cmdClose");
    });
    QTest::mouseClick(addGameFolder, Qt::LeftButton);
    const QString title = "Please choose a folder containing SNES games:";
    EXPECT_EQ(m_shell.CallsOf("BrowseForFolder"),
              (QList<QStringList>{
                  {title, ""}, {title, TempPath("Games/")}, {title, TempPath("Games/")}}));
    EXPECT_EQ(m_state.Games.Count(), 2);
    EXPECT_EQ(games->count(), 2);
    EXPECT_FALSE(addGameFolder->isVisible());
    EXPECT_FALSE(m_window->findChild<QLabel*>("picSnapshot")->isVisible()); // laid out at once
    EXPECT_EQ(SettingsStore().Read("Folders\\Game Folders", "00"), TempPath("Games/"));
    EXPECT_EQ(SettingsStore().Read("Settings", "Snapshots_Show"), "0");

    // Opened again from the menu: no doubled entries; the frame stores the settings only.
    RunWhenModal([&](QWidget* settings) {
        EXPECT_EQ(Control<QComboBox>("cboEmulator")->count(), 3);
        ClickLine(Reveal<QListWidget>("lstRomFolders"), 0);
        Click("cmdRomFolders_Remove");
        EXPECT_EQ(ItemTexts(Control<QListWidget>("lstRomFolders")), QStringList());
        Press("chkSnapshots_Show");
        settings->close();
    });
    m_window->findChild<QAction*>("mnuOptions_Settings")->trigger();
    EXPECT_EQ(m_state.Games.Count(), 0);
    EXPECT_EQ(games->count(), 0);
    EXPECT_TRUE(addGameFolder->isVisible());
    EXPECT_EQ(SettingsStore().Read("Folders\\Game Folders", "00"), TempPath("Games/"));
    EXPECT_EQ(SettingsStore().Read("Settings", "Snapshots_Show"), "1");
}

} // namespace

namespace {

TEST_F(SettingsDialogTest, FindEmulatorsListsWhatItFoundForTheDefaultAndRemoveForgetsOne) {
    SeedStore();
    const QString bin = MakeFolder("bin");
    WriteStandInScript(bin + "/mednafen", "exit 0");
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", bin.toLocal8Bit());
    Open();
    Click("cmdFindEmulators");
    qputenv("PATH", path);
    auto* list = Control<QListWidget>("lstFoundEmulators");
    const QStringList found = ItemTexts(list);
    ASSERT_TRUE(found.contains("Mednafen"));
    ASSERT_TRUE(FindFoundEmulator(m_state.Store, "Mednafen"));
    EXPECT_EQ(FindFoundEmulator(m_state.Store, "Mednafen")->Program, bin + "/mednafen");

    auto* defaultEmulator = Control<QComboBox>("cboDefaultEmulator");
    EXPECT_EQ(defaultEmulator->itemText(3), found.first()); // after the three
    PickFromList(defaultEmulator, "Mednafen");
    EXPECT_EQ(m_state.Options.DefaultEmulator, "Mednafen");

    ClickLine(list, static_cast<int>(found.indexOf("Mednafen")));
    Click("cmdRemoveFoundEmulator");
    EXPECT_FALSE(ItemTexts(list).contains("Mednafen"));
    EXPECT_EQ(defaultEmulator->findText("Mednafen"), -1);
    EXPECT_FALSE(FindFoundEmulator(m_state.Store, "Mednafen"));
}

} // namespace
