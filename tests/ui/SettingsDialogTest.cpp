#include "app/Startup.h"
#include "config/Settings.h"
#include "emulators/FoundEmulators.h"
#include "support/SnesImageBuilder.h"
#include "support/StandInEmulator.h"
#include "support/WindowTest.h"
#include "ui/frmSettings.h"

#include <QTabBar>
#include <QTabWidget>

namespace {

class SettingsDialogTest : public WindowTest {
protected:
    void Open() {
        m_dialog = std::make_unique<frmSettings>(m_state, m_prompts, m_shell, nullptr);
        ASSERT_TRUE(ShownOnScreen(m_dialog.get()));
    }

    template <typename T> T* Control(const QString& name) const {
        return ControlIn<T>(m_dialog ? m_dialog.get() : QApplication::activeModalWidget(), name);
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
    void Type(const QString& name, const QString& text) { TypeInto(Reveal<QLineEdit>(name), text); }
    QString TextOf(const QString& name) const { return Control<QLineEdit>(name)->text(); }
    std::unique_ptr<frmSettings> m_dialog;
};

TEST_F(SettingsDialogTest,
       EveryPageShowsTheStoredSettingsEachControlWritesItsOwnAndFoundEmulatorsJoin) {
    // A store as a player who has set everything up leaves it.
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
    EnableLog();
    Open();
    EXPECT_EQ(LogText(), "\r\n\r\n=== Loaded frmSettings ===\r\nAdding groups to "
                         "cboDefaultGroup...Done.");

    // "Gone" is gone: "Ungrouped"; Lumbra may start on "All Games".
    EXPECT_EQ(Control<QComboBox>("cboEmulator")->currentText() + "|" +
                  Control<QComboBox>("cboDefaultEmulator")->currentText() + "|" +
                  Control<QComboBox>("cboDefaultGroup")->currentText(),
              "Snes9X|Snes9X|Ungrouped");
    EXPECT_EQ(ItemTexts(Control<QComboBox>("cboDefaultGroup")),
              (QStringList{"All Games", "Ungrouped", "RPG"}));
    EXPECT_EQ(ItemTexts(Control<QListWidget>("lstRomFolders")), QStringList{TempPath("Games/")});
    QStringList shown;
    for (const char* name :
         {"txtEmuFolder", "txtEmuSaveFolder", "txtDefaultProfile", "txtExportFolder",
          "txtSnapshotFolder", "txtNoSnapPic", "txtSPCProgram", "txtSPCParameters"})
        shown << TextOf(name);
    EXPECT_EQ(shown.join('|'),
              "/emus/snes9x/|/emus/saves/|fast|/exports/|/snaps/|/snaps/none.png|spcplay|-q");
    EXPECT_TRUE(Control<QRadioButton>("optProgram")->isChecked());
    EXPECT_TRUE(Control<QLineEdit>("txtSPCParameters")->isEnabled());
    // Every check box shows its stored setting and writes it at once; each is named "chk"
    // and the setting's key.
    for (QCheckBox* box : m_dialog->findChildren<QCheckBox*>()) {
        const QString key = box->objectName().mid(3);
        const QString stored = SettingText(m_state.Options, key).value_or("none");
        EXPECT_EQ(box->isChecked(), stored != "0") << key.toStdString();
        Press(box->objectName());
        EXPECT_EQ(SettingText(m_state.Options, key), stored == "0" ? "1" : "0")
            << key.toStdString();
    }
    for (const auto& [name, key] :
         QList<std::pair<QString, QString>>{{"txtExportFolder", "Export Folder"},
                                            {"txtUnzipFolder", "Unzip Folder"},
                                            {"txtSnapshotFolder", "Snapshot Folder"},
                                            {"txtSPCFolder", "SPC Folder"},
                                            {"txtNoSnapPic", "Snapshots_NoSnapPic"}}) {
        Type(name, "/typed/");
        EXPECT_EQ(SettingText(m_state.Options, key), "/typed/") << key.toStdString();
    }

    // The emulator texts follow the emulator chosen; ";" would split a stored record.
    PickFromList(Reveal<QComboBox>("cboEmulator"), "Nlke");
    EXPECT_EQ(Control<QLabel>("lblLaunchFiles")->text(),
              "nlke.pif nlke.lnk nlke.bat nlke.exe nlke nlke.sh");
    Type("txtEmuFolder", "/nlke;/");
    Type("txtDefaultProfile", "quick");
    EXPECT_EQ(m_state.Emulators.Records[0].Folder + m_state.Emulators.Records[0].DefaultProfile +
                  m_state.Emulators.Records[1].Folder,
              "/nlke/quick/emus/snes9x/");
    SaveProfileInEditor("Smooth"); // "Settings..." makes a new profile the emulator's default
    Click("cmdEmuSettings");
    EXPECT_EQ(m_state.Emulators.Records[0].DefaultProfile + TextOf("txtDefaultProfile"),
              "SmoothSmooth");
    PickFromList(Reveal<QComboBox>("cboDefaultEmulator"), "ZSnes");
    PickFromList(Reveal<QComboBox>("cboDefaultGroup"), "All Games"); // Lumbra may start on it
    EXPECT_EQ(m_state.Options.DefaultEmulator + m_state.Options.DefaultGroup, "ZSnesAll Games");

    Press("optAssociated");
    EXPECT_EQ(m_state.Options.SPC_OpenWith, "%WIN");
    EXPECT_FALSE(Control<QWidget>("cmdSPCProgram_Browse")->isEnabled());
    Press("optProgram");
    Type("txtSPCProgram", "gme");
    Type("txtSPCParameters", "--loop");
    EXPECT_EQ(m_state.Options.SPC_OpenWith + m_state.Options.SPC_App, "%CUSTOMgme;--loop");

    // The browsers name the emulator chosen; Find Emulators adds the emulators found.
    const QString bin = WithMednafenOnPath([this] { Click("cmdFindEmulators"); });
    PickFromList(Reveal<QComboBox>("cboEmulator"), "ZSnes");
    const QStringList buttons{"cmdEmuFolder_Browse",      "cmdEmuSaveFolder_Browse",
                              "cmdExportFolder_Browse",   "cmdUnzipFolder_Browse",
                              "cmdSnapshotFolder_Browse", "cmdSPCFolder_Browse"};
    for (const QString& button : buttons) {
        m_shell.AnswerFolder("/Picked/" + button);
        Click(button);
    }
    const EmulatorRecord& zsnes = m_state.Emulators.Records[2];
    EXPECT_EQ(zsnes.Folder + zsnes.SaveFolder + m_state.Options.SnapshotFolder +
                  TextOf("txtSPCFolder"),
              "/picked/cmdemufolder_browse//picked/cmdemusavefolder_browse/"
              "/picked/cmdsnapshotfolder_browse//picked/cmdspcfolder_browse/");
    for (const QStringList& call : m_shell.CallsOf("BrowseForFolder"))
        EXPECT_EQ(call.first(), "Please choose the folder where ZSnes resides:");

    Click("cmdSnapshotFolder_Browse"); // cancelled; the browser started at the field's folder
    EXPECT_EQ(m_state.Options.SnapshotFolder, "/picked/cmdsnapshotfolder_browse/");
    EXPECT_EQ(m_shell.CallsOf("BrowseForFolder").last().last(),
              "/picked/cmdsnapshotfolder_browse/");

    m_prompts.AnswerFile("/pics/No Shot.PNG").AnswerFile(std::nullopt);
    Click("cmdNoSnapPic_Pick");
    Click("cmdNoSnapPic_Pick");
    EXPECT_EQ(m_state.Options.Snapshots_NoSnapPic, "/pics/No Shot.PNG");
    EXPECT_EQ(m_prompts.Asked().value(0).title + ": " + m_prompts.Asked().value(0).filter,
              "Pick No Snapshot Image: Supported Image Types|*.bmp;*.jpg;*.png;*.gif");
    EXPECT_EQ(m_prompts.Asked().value(1).proposed, "/pics/No Shot.PNG"); // opens at its folder

    // Find Emulators lists what it found, for the default emulator too; Remove forgets one.
    auto* list = Control<QListWidget>("lstFoundEmulators");
    const QStringList found = ItemTexts(list);
    ASSERT_TRUE(found.contains("Mednafen") && FindFoundEmulator(m_state.Store, "Mednafen"));
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

TEST_F(SettingsDialogTest, EditingAFoundEmulatorSavesWhatThePlayerTypedOnlyWhenItCanRun) {
    DefineEmulators(m_state.Emulators, m_state.Store);
    FoundEmulator mednafen;
    mednafen.Name = mednafen.Entry = "Mednafen";
    mednafen.Program = WriteStandInScript(MakeFolder("Emulators") + "/mednafen", "exit 0");
    mednafen.Command = "{program} {options} {game}";
    WriteFoundEmulator(m_state.Store, mednafen);
    Open();
    auto* list = Reveal<QListWidget>("lstFoundEmulators");
    ClickLine(list, static_cast<int>(ItemTexts(list).indexOf("Mednafen")));

    const QString shots = MakeFolder("My Shots");
    m_shell.AnswerFolder(shots);
    bool stayedOpen = false;
    const auto openEditor = [this] { Click("cmdEditFoundEmulator"); };
    InDialog(openEditor, [&](QDialog* editor) {
        // A command without the game, then a program that cannot run, are refused.
        TypeInto(editor, "txtCommand", "{program} -fs 1");
        ClickOn(editor, "cmdOK");
        TypeInto(editor, "txtCommand", "{program} -fs 1 {options} {game}");
        TypeInto(editor, "txtProgram", TempPath("Emulators/missing"));
        ClickOn(editor, "cmdOK");
        stayedOpen = editor->isVisible();
        TypeInto(editor, "txtProgram", mednafen.Program);
        TypeInto(editor, "txtDefaultProfile", "Full Screen");
        ClickOn(editor, "cmdScreenshotFolder_Browse");
        ClickOn(editor, "cmdOK");
        EXPECT_FALSE(editor->isVisible());
    });
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(m_prompts.AskedTexts(),
              (QStringList{"The command needs {game} where the game's path goes.",
                           "The program \"" + TempPath("Emulators/missing") +
                               "\" is not a file that can be run."}));
    FoundEmulator edited = mednafen;
    edited.Command = "{program} -fs 1 {options} {game}";
    edited.DefaultProfile = "Full Screen";
    edited.ScreenshotFolder = shots; // as picked, letter case kept
    EXPECT_EQ(FindFoundEmulator(m_state.Store, "Mednafen"), edited);

    InDialog(openEditor, [&](QDialog* editor) { // Cancel keeps what was stored
        TypeInto(editor, "txtCommand", "{program} {game} --changed");
        ClickOn(editor, "cmdCancel");
        EXPECT_FALSE(editor->isVisible());
    });
    EXPECT_EQ(FindFoundEmulator(m_state.Store, "Mednafen"), edited);
}

TEST_F(SettingsDialogTest, FoldersComeAndGoFromAFirstRunAndEachCloseStoresItsShare) {
    WriteFile("Games/Zelda.smc", SnesImageBuilder::ValidLoRomWithCopierHeader("ZELDA"));
    WriteFile("Games/Mario.sfc", SnesImageBuilder::HeaderlessLoRom("MARIO"));
    StartWindow();
    QListWidget* games = List();
    auto* addGameFolder = m_window->findChild<QPushButton*>("cmdAddGameFolder");
    EXPECT_TRUE(addGameFolder->isVisible());
    EXPECT_EQ(Status(), "No game folder yet");

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
    EXPECT_EQ(m_state.Games.Count() + games->count(), 4);
    EXPECT_FALSE(addGameFolder->isVisible());
    EXPECT_FALSE(m_window->findChild<QLabel*>("picSnapshot")->isVisible()); // laid out at once
    EXPECT_EQ(SettingsStore().Read("Folders\\Game Folders", "00") + '|' +
                  SettingsStore().Read("Settings", "Snapshots_Show"),
              TempPath("Games/") + "|0");

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
    EXPECT_EQ(m_state.Games.Count() + games->count(), 0);
    EXPECT_TRUE(addGameFolder->isVisible());
    EXPECT_EQ(SettingsStore().Read("Folders\\Game Folders", "00") + '|' +
                  SettingsStore().Read("Settings", "Snapshots_Show"),
              TempPath("Games/") + "|1");
}

} // namespace
