#include "support/SnesImageBuilder.h"
#include "support/WindowTest.h"

#include <QDir>
#include <QStandardPaths>

namespace {

// Four games in two groups: an image without a copier header, one with it, a file
// that is no image, and a zipped image.
class GameMenuTest : public WindowTest {
protected:
    void Start() {
        SeedGames("Games",
                  {{"mario.smc", "Mario;RPG"},
                   {"zelda.smc", "Zelda;RPG"},
                   {"metroid.smc", "Metroid;Action & Adventure"},
                   {"pack.zip", "Pack;Action & Adventure"}},
                  "RPG", {"RPG", "Action & Adventure"});
        WriteFile("Games/mario.smc", SnesImageBuilder::HeaderlessLoRom("SUPER MARIO"));
        WriteFile("Games/zelda.smc", SnesImageBuilder::ValidLoRomWithCopierHeader("ZELDA 3"));
        MakeZip("Games/pack.zip",
                {{"game.smc", SnesImageBuilder::HeaderlessLoRom("FINAL FANTASY 3")}});
        EnableLog();
        StartWindow();
    }

    // The shown group, its games and, in brackets, the selected one.
    QString Shown() const {
        return Control<QComboBox>("cboGroupList")->currentText() + ": " + Listed().join(", ") +
               " [" + Selected() + "]";
    }
    void Select(const QString& caption) {
        List()->setCurrentItem(List()->findItems(caption, Qt::MatchExactly).value(0));
    }
    // Opens the game information through the menu and runs the steps in it.
    void WithGameInfo(const std::function<void(QDialog*)>& steps) {
        InDialog([this] { ChooseFromGameMenu("mnuRomMenu_GameInfo"); }, steps);
    }
    QStringList LogLines(const QString& pattern) const {
        return LogText().split("\r\n").filter(QRegularExpression(pattern));
    }
};

TEST_F(GameMenuTest, OpensFromTheKeyboardPreparedForTheSelectedGameAndItsSaveStates) {
    const QString home =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/retroarch";
    QDir(home).removeRecursively();
    for (const char* file : {"states/mario.state1", "states/mario.state.auto", "saves/mario.srm",
                             "states/zelda.state2"})
        WriteFile(QDir(TempPath()).relativeFilePath(home + '/' + file));
    m_state.Store.Write("Found Emulators", "RetroArch (Snes9x)",
                        "RetroArch;/usr/bin/retroarch;/cores/snes9x_libretro.so;;;;;;");
    Start();
    m_state.Emulators.Records[1].SaveFolder = MakeFolder("S9X");
    WriteFile("S9X/MARIO.001");
    QMenu* menu = Control<QMenu>("mnuRomMenu");
    QTest::keyClick(List(), Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_TRUE(menu->isVisible());
    menu->hide();
    EXPECT_EQ(MenuEntries(menu, true).size(), 8); // every entry
    EXPECT_EQ(MenuEntries(Control<QMenu>("mnuRomMenu_SendToGroup")),
              (QStringList{"RPG*", "Action && Adventure", "Ungrouped", "&New Group..."}));
    Control<QMenu>("mnuSaveStates")->popup({}); // probed as it opens
    Control<QMenu>("mnuSaveStates")->hide();
    EXPECT_EQ(MenuEntries(Control<QMenu>("mnuSaveStates_Snes9X"), true), QStringList{"(1) Used"});
    for (const qint16 clickDeletes : {0, 1}) { // only when the setting is on
        m_state.Options.StateClickDeletes = clickDeletes;
        Control<QAction>("mnuSaveStates_Snes9X_State(1)")->trigger();
    }
    // A found emulator has its own submenu, of its real files.
    QMenu* submenu = Control<QMenu>("mnuSaveStates_RetroArch (Snes9x)");
    EXPECT_EQ(MenuEntries(submenu, true), (QStringList{"(1) Used", "(Auto) Used", "SRAM File"}));
    EXPECT_EQ(MenuEntries(submenu).size(), 12); // (0) to (9) too
    Control<QAction>("mnuSaveStates_RetroArch (Snes9x)_State(1)")->trigger();
    Control<QAction>("mnuSaveStates_RetroArch (Snes9x)_SRAM")->trigger();
    EXPECT_EQ(m_shell.CallsOf("ShellDeleteFile"),
              (QList<QStringList>{{TempPath("S9X/mario.001")},
                                  {home + "/states/mario.state1"},
                                  {home + "/saves/mario.srm"}}));
    OpenGameMenu(); // "Launch Using..." offers it after the three
    QMenu* launchUsing = Control<QMenu>("mnuRomMenu_LaunchUsing");
    EXPECT_EQ(MenuEntries(launchUsing),
              (QStringList{"Nlke", "Snes9X", "ZSnes", "RetroArch (Snes9x)", "Default"}));
    launchUsing->actions()[3]->trigger();
    EXPECT_EQ(m_state.Games.Records[Game("Mario")].Emulator, "RetroArch (Snes9x)");
    QDir(home).removeRecursively();

    ChooseGroup("Ungrouped"); // no games: nothing to act on
    QTest::keyClick(List(), Qt::Key_Menu);
    EXPECT_FALSE(menu->isVisible());
    menu->popup({}); // from the menu bar
    EXPECT_TRUE(MenuEntries(menu, true).isEmpty());
    menu->hide();
}

TEST_F(GameMenuTest, RenameKeepsCaptionsUniqueAndRemoveHidesTheGame) {
    Start();
    m_prompts.AnswerInput(" mARIO ").AnswerInput("zelda").AnswerInput(" Super Mario ");
    for (int i = 0; i < 3; ++i)
        ChooseFromGameMenu("mnuRomMenu_Rename");
    EXPECT_EQ(Shown(), "RPG: Super Mario, Zelda [Super Mario]");
    const QString prompt = "Enter a new caption for:\r\n\r\nMario";
    EXPECT_EQ(m_prompts.AskedTexts(),
              (QStringList{prompt, prompt,
                           "Caption cannot be renamed, the caption you entered is already used.",
                           prompt}));
    EXPECT_EQ(m_prompts.Asked()[0].title + ": " + m_prompts.Asked()[0].proposed, "Rename: Mario");

    Select("Zelda");
    ChooseFromGameMenu("mnuRomMenu_Remove");
    EXPECT_EQ(Shown(), "RPG: Super Mario [Super Mario]");
    ChooseFromGameMenu("mnuRomMenu_Remove");
    EXPECT_EQ(Shown(), "RPG:  []");
    EXPECT_EQ(Control<QLabel>("picSnapshot")->text(), "No snapshot");
    EXPECT_EQ(LogLines("Caption Changed|^Removed"),
              (QStringList{"mario.smc Caption Changed", "Removed Game From List: Zelda",
                           "Removed Game From List: Super Mario"}));
}

TEST_F(GameMenuTest, SendToGroupSwitchesTheViewAsAutoSwitchGroupSays) {
    Start();
    ChooseFromGameMenu("RPG"); // the group shown: nothing happens
    m_state.Options.AutoSwitchGroup = 0;
    ChooseFromGameMenu("Action & Adventure");
    EXPECT_EQ(Shown(), "RPG: Zelda [Zelda]");
    ChooseFromGameMenu("mnuSendToGroup_FixedGroup");
    EXPECT_EQ(Shown(), "RPG:  []");

    m_state.Options.AutoSwitchGroup = 2; // any value but 0 follows an existing group...
    ChooseGroup("Action & Adventure");
    Select("Mario");
    ChooseFromGameMenu("RPG");
    EXPECT_EQ(Shown(), "RPG: Mario [Mario]");
    m_prompts.AnswerInput("Puzzle").AnswerInput("rpg").AnswerInput("Racing");
    ChooseFromGameMenu("mnuSendToGroup_NewGroup"); // ...but only 1 a new one
    EXPECT_EQ(Shown(), "RPG:  []");
    ChooseGroup("Ungrouped");
    ChooseFromGameMenu("mnuSendToGroup_NewGroup"); // refused: the group exists
    EXPECT_TRUE(Control<QAction>("mnuSendToGroup_FixedGroup")->isChecked());
    m_state.Options.AutoSwitchGroup = 1;
    ChooseFromGameMenu("mnuSendToGroup_NewGroup");
    EXPECT_EQ(Shown(), "Racing: Zelda [Zelda]");

    EXPECT_EQ(m_state.Games.Records[Game("Mario")].Group, "Puzzle");
    EXPECT_EQ(m_prompts.Asked()[0].title + ": " + m_prompts.Asked()[0].text,
              "Create Group: Enter the new group's caption:");
    EXPECT_EQ(LogLines("^Sent"),
              (QStringList{R"(Sent "Mario" to "Action & Adventure")",
                           R"(Sent "Zelda" to "Ungrouped")", R"(Sent "Mario" to "RPG")"}));
}

TEST_F(GameMenuTest, GameInfoShowsTheHeaderOfAnImageOrOfAZipWhenAskedAndChecksTheCaption) {
    Start();
    QString header;
    Select("Zelda"); // behind a copier header
    WithGameInfo([&header](QDialog* dialog) {
        header = ControlIn<QPlainTextEdit>(dialog, "txtRomInfo")->toPlainText();
        EXPECT_EQ(ControlIn<QLabel>(dialog, "lblGroup")->text(), "Group: RPG");
        auto* caption = ControlIn<QLineEdit>(dialog, "txtCaption");
        caption->clear();
        ClickOn(dialog, "cmdOK");
        QTest::keyClicks(caption, "MARIO");
        ClickOn(dialog, "cmdOK");
        ClickOn(dialog, "cmdInternalCaption");
        EXPECT_EQ(caption->text(), "Zelda 3");
        caption->clear();
        QTest::keyClicks(caption, " Zelda; III "); // ";" is refused
        QTest::keyClick(caption, Qt::Key_Return);  // trimmed as the box is left, then OK
        EXPECT_FALSE(dialog->isVisible());
    });
    EXPECT_EQ(header, "ROM Size:  2 MegaBits\nROM Type:  ROM only\nSRAM Size: None\n"
                      "ROM Speed: Unknown (2)\nBank Size: LoROM (32kb banks)\n"
                      "Country:   USA (NTSC)\nLicense:   Nintendo\nChecksum:  4608\n");
    EXPECT_EQ(Shown(), "RPG: Mario, Zelda III [Zelda III]");
    EXPECT_EQ(m_prompts.AskedTexts().join('|'), "The game has no caption, please enter one!|The "
                                                "caption you entered is already used by another "
                                                "game, please enter another.");

    Select("Mario"); // no copier header: the same header, 512 bytes earlier
    WithGameInfo([&header](QDialog* dialog) {
        EXPECT_EQ(ControlIn<QPlainTextEdit>(dialog, "txtRomInfo")->toPlainText(), header);
        ClickOn(dialog, "cmdOK"); // unchanged: no lookup, no log line
    });
    ChooseGroup("Action & Adventure");
    Select("Metroid"); // no SNES image at all
    WithGameInfo([](QDialog* dialog) { ClickOn(dialog, "cmdInternalCaption"); });
    EXPECT_EQ(m_prompts.AskedTexts().last(), "The internal caption of this game is invalid!");
    EXPECT_EQ(
        LogLines("Caption Changed|^Retrieving"),
        (QStringList{"Retrieving internal data...Done.", "zelda.smc Caption Changed",
                     "Retrieving internal data...Done.", "Retrieving internal data...Done."}));

    // A zipped game is extracted for its header only when the player says yes.
    m_state.Options.UnzipFolder = MakeFolder("Unzip");
    Select("Pack");
    const qsizetype asked = m_prompts.Asked().size();
    m_prompts.AnswerMessage(PromptAnswer::Yes).AnswerMessage(PromptAnswer::No);
    WithGameInfo([this](QDialog* dialog) {
        EXPECT_EQ(ControlIn<QLabel>(dialog, "lblFilename")->text(), "Filename: pack.zip");
        EXPECT_EQ(QDir(TempPath("Unzip")).entryList(QDir::Files), QStringList{"game.smc"});
        ClickOn(dialog, "cmdInternalCaption");
        EXPECT_EQ(ControlIn<QLineEdit>(dialog, "txtCaption")->text(), "Final Fantasy 3");
    });
    EXPECT_TRUE(QDir(TempPath("Unzip")).isEmpty()); // flushed once the dialog closed
    EXPECT_EQ(m_prompts.Asked().value(asked).text,
              "The file you are requesting information for is compressed.\r\nDo you want to "
              "decompress it and retrieve the additional internal data?");
    EXPECT_EQ(m_prompts.Asked().value(asked).icon, PromptIcon::Question);
    EXPECT_TRUE(LogText().contains("\r\nDecompressed: " + TempPath("games/pack.zip").toLower()));

    WithGameInfo([](QDialog* dialog) { // "No": the narrow dialog (3720 twips) without the header
        EXPECT_FALSE(ControlIn<QPlainTextEdit>(dialog, "txtRomInfo")->isVisible());
        EXPECT_FALSE(ControlIn<QPushButton>(dialog, "cmdInternalCaption")->isEnabled());
        EXPECT_EQ(dialog->width(), qRound(3720 * dialog->logicalDpiX() / 1440.0));
    });
    EXPECT_TRUE(LogText().contains("\r\nAdjusted form size to hide internal data (not read)."));
}

} // namespace
