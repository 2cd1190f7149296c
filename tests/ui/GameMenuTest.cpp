#include "support/SnesImageBuilder.h"
#include "support/WidgetSteps.h"
#include "support/WindowTest.h"

#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStandardPaths>

namespace {

// Four games in two groups: an image without a copier header, one with it, a file
// that is no image, and a zipped image.
class GameMenuTest : public WindowTest {
protected:
    void Start() {
        EnableLog();
        const QString folder = MakeFolder("Games") + '/';
        WriteFile("Games/mario.smc", SnesImageBuilder::HeaderlessLoRom("SUPER MARIO"));
        WriteFile("Games/zelda.smc", SnesImageBuilder::ValidLoRomWithCopierHeader("ZELDA 3"));
        WriteFile("Games/metroid.smc", "x");
        MakeZip("Games/pack.zip",
                {{"game.smc", SnesImageBuilder::HeaderlessLoRom("FINAL FANTASY 3")}});

        m_state.Store.Write("Folders\\Game Folders", "00", folder);
        m_state.Store.Write("Group List", "00", "RPG");
        m_state.Store.Write("Group List", "01", "Action & Adventure");
        m_state.Store.Write("Settings", "DefaultGroup", "RPG");
        const QStringList games{"mario.smc",   "Mario;RPG",
                                "zelda.smc",   "Zelda;RPG",
                                "metroid.smc", "Metroid;Action & Adventure",
                                "pack.zip",    "Pack;Action & Adventure"};
        for (int i = 0; i < games.size(); i += 2)
            m_state.Store.Write("Game List\\" + folder.toLower(), games[i], games[i + 1]);
        m_state.Store.Sync();
        StartWindow();
    }

    QListWidget* List() const { return Control<QListWidget>("lstGameList"); }
    // The shown group, its games and, in brackets, the selected one.
    QString Shown() const {
        const QListWidgetItem* selected = List()->currentItem();
        return Control<QComboBox>("cboGroupList")->currentText() + ": " +
               ItemTexts(List()).join(", ") + " [" + (selected ? selected->text() : QString()) +
               "]";
    }
    void Select(const QString& caption) {
        List()->setCurrentItem(List()->findItems(caption, Qt::MatchExactly).value(0));
    }
    void ChooseGroup(const QString& group) {
        PickFromList(Control<QComboBox>("cboGroupList"), group);
    }
    // Opens the game menu with the context-menu key and chooses an entry by its name,
    // or a group of "Send To Group..." by the group.
    void Choose(const QString& entry) {
        QTest::keyClick(List(), Qt::Key_Menu);
        ASSERT_TRUE(Control<QMenu>("mnuRomMenu")->isVisible());
        Control<QMenu>("mnuRomMenu")->hide();
        for (QAction* action : m_window->findChildren<QAction*>()) {
            if (action->objectName() == entry || (action->isVisible() && action->data() == entry)) {
                ASSERT_TRUE(action->isEnabled());
                return action->trigger();
            }
        }
        ADD_FAILURE() << "no entry " << entry.toStdString();
    }
    // Opens the game information through the menu and runs the steps in it.
    void WithGameInfo(const std::function<void(QDialog*)>& steps) {
        RunWhenModal([&steps](QWidget* modal) {
            auto* dialog = qobject_cast<QDialog*>(modal);
            steps(dialog);
            dialog->reject(); // when the steps left it open
        });
        Choose("mnuRomMenu_GameInfo");
    }
    QStringList LogLines(const QString& pattern) const {
        return LogText().split("\r\n").filter(QRegularExpression(pattern));
    }
};

template <typename T> T* In(QDialog* dialog, const char* name) {
    return dialog->findChild<T*>(QString::fromLatin1(name));
}

void Click(QDialog* dialog, const char* button) {
    QTest::mouseClick(In<QPushButton>(dialog, button), Qt::LeftButton);
}

QStringList Entries(const QMenu* menu, bool enabledOnly) {
    QStringList captions;
    for (const QAction* item : menu->actions()) {
        if (item->isVisible() && !item->isSeparator() && (item->isEnabled() || !enabledOnly))
            captions << item->text() + (item->isChecked() ? "*" : "");
    }
    return captions;
}

TEST_F(GameMenuTest, OpensFromTheKeyboardPreparedForTheSelectedGame) {
    Start();
    m_state.Emulators.Records[1].SaveFolder = MakeFolder("S9X");
    WriteFile("S9X/MARIO.001");
    QMenu* menu = Control<QMenu>("mnuRomMenu");
    QTest::keyClick(List(), Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_TRUE(menu->isVisible());
    menu->hide();
    EXPECT_EQ(Entries(menu, true).size(), 8); // every entry
    EXPECT_EQ(Entries(Control<QMenu>("mnuRomMenu_SendToGroup"), false),
              (QStringList{"RPG*", "Action && Adventure", "Ungrouped", "&New Group..."}));
    Control<QMenu>("mnuSaveStates")->popup({}); // probed as it opens
    Control<QMenu>("mnuSaveStates")->hide();
    EXPECT_EQ(Entries(Control<QMenu>("mnuSaveStates_Snes9X"), true), QStringList{"(1) Used"});
    for (const qint16 clickDeletes : {0, 1}) { // only when the setting is on
        m_state.Options.StateClickDeletes = clickDeletes;
        Control<QAction>("mnuSaveStates_Snes9X_State(1)")->trigger();
    }
    EXPECT_EQ(m_shell.CallsOf("ShellDeleteFile"), QList<QStringList>{{TempPath("S9X/mario.001")}});

    ChooseGroup("Ungrouped"); // no games: nothing to act on
    QTest::keyClick(List(), Qt::Key_Menu);
    EXPECT_FALSE(menu->isVisible());
    menu->popup({}); // from the menu bar
    EXPECT_TRUE(Entries(menu, true).isEmpty());
    menu->hide();
}

TEST_F(GameMenuTest, RenameKeepsCaptionsUniqueAndRemoveHidesTheGame) {
    Start();
    m_prompts.AnswerInput(" mARIO ").AnswerInput("zelda").AnswerInput(" Super Mario ");
    for (int i = 0; i < 3; ++i)
        Choose("mnuRomMenu_Rename");
    EXPECT_EQ(Shown(), "RPG: Super Mario, Zelda [Super Mario]");
    const QString prompt = "Enter a new caption for:\r\n\r\nMario";
    EXPECT_EQ(m_prompts.AskedTexts(),
              (QStringList{prompt, prompt,
                           "Caption cannot be renamed, the caption you entered is already used.",
                           prompt}));
    EXPECT_EQ(m_prompts.Asked()[0].title + ": " + m_prompts.Asked()[0].proposed, "Rename: Mario");

    Select("Zelda");
    Choose("mnuRomMenu_Remove");
    EXPECT_EQ(Shown(), "RPG: Super Mario [Super Mario]");
    Choose("mnuRomMenu_Remove");
    EXPECT_EQ(Shown(), "RPG:  []");
    EXPECT_EQ(Control<QLabel>("picSnapshot")->text(), "No snapshot");
    EXPECT_EQ(m_state.Games.Records[m_state.Games.FindGame("filename", "zelda.smc")].Caption,
              "/invisible");
    EXPECT_EQ(LogLines("Caption Changed|^Removed"),
              (QStringList{"mario.smc Caption Changed", "Removed Game From List: Zelda",
                           "Removed Game From List: Super Mario"}));
}

TEST_F(GameMenuTest, SendToGroupSwitchesTheViewAsAutoSwitchGroupSays) {
    Start();
    Choose("RPG"); // the group shown: nothing happens
    m_state.Options.AutoSwitchGroup = 0;
    Choose("Action & Adventure");
    EXPECT_EQ(Shown(), "RPG: Zelda [Zelda]");
    Choose("mnuSendToGroup_FixedGroup");
    EXPECT_EQ(Shown(), "RPG:  []");

    m_state.Options.AutoSwitchGroup = 2; // any value but 0 follows an existing group...
    ChooseGroup("Action & Adventure");
    Select("Mario");
    Choose("RPG");
    EXPECT_EQ(Shown(), "RPG: Mario [Mario]");
    m_prompts.AnswerInput("Puzzle").AnswerInput("rpg").AnswerInput("Racing");
    Choose("mnuSendToGroup_NewGroup"); // ...but only 1 a new one
    EXPECT_EQ(Shown(), "RPG:  []");
    ChooseGroup("Ungrouped");
    Choose("mnuSendToGroup_NewGroup"); // refused: the group exists
    EXPECT_TRUE(Control<QAction>("mnuSendToGroup_FixedGroup")->isChecked());
    m_state.Options.AutoSwitchGroup = 1;
    Choose("mnuSendToGroup_NewGroup");
    EXPECT_EQ(Shown(), "Racing: Zelda [Zelda]");

    EXPECT_EQ(Control<QComboBox>("cboGroupList")->count(), 6); // "All Games" too
    EXPECT_EQ(m_state.Games.Records[m_state.Games.FindGame("title", "Mario")].Group, "Puzzle");
    EXPECT_EQ(m_prompts.Asked()[0].title + ": " + m_prompts.Asked()[0].text,
              "Create Group: Enter the new group's caption:");
    EXPECT_EQ(LogLines("^Sent"),
              (QStringList{R"(Sent "Mario" to "Action & Adventure")",
                           R"(Sent "Zelda" to "Ungrouped")", R"(Sent "Mario" to "RPG")"}));
}

TEST_F(GameMenuTest, GameInfoShowsTheHeaderAndChecksTheCaptionOnOk) {
    Start();
    QString header;
    Select("Zelda"); // behind a copier header
    WithGameInfo([&header](QDialog* dialog) {
        header = In<QPlainTextEdit>(dialog, "txtRomInfo")->toPlainText();
        EXPECT_EQ(In<QLabel>(dialog, "lblGroup")->text(), "Group: RPG");
        auto* caption = In<QLineEdit>(dialog, "txtCaption");
        caption->clear();
        Click(dialog, "cmdOK");
        QTest::keyClicks(caption, "MARIO");
        Click(dialog, "cmdOK");
        Click(dialog, "cmdInternalCaption");
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
    EXPECT_EQ(m_prompts.AskedTexts(), (QStringList{"The game has no caption, please enter one!",
                                                   "The caption you entered is already used by "
                                                   "another game, please enter another."}));

    Select("Mario"); // no copier header: the same header, 512 bytes earlier
    WithGameInfo([&header](QDialog* dialog) {
        EXPECT_EQ(In<QPlainTextEdit>(dialog, "txtRomInfo")->toPlainText(), header);
        Click(dialog, "cmdOK"); // unchanged: no lookup, no log line
    });
    ChooseGroup("Action & Adventure");
    Select("Metroid"); // no SNES image at all
    WithGameInfo([](QDialog* dialog) { Click(dialog, "cmdInternalCaption"); });
    EXPECT_EQ(m_prompts.AskedTexts().last(), "The internal caption of this game is invalid!");
    EXPECT_EQ(
        LogLines("Caption Changed|^Retrieving"),
        (QStringList{"Retrieving internal data...Done.", "zelda.smc Caption Changed",
                     "Retrieving internal data...Done.", "Retrieving internal data...Done."}));
}

TEST_F(GameMenuTest, AZippedGameIsExtractedForItsHeaderOnlyWhenThePlayerSaysYes) {
    Start();
    m_state.Options.UnzipFolder = MakeFolder("Unzip");
    ChooseGroup("Action & Adventure");
    Select("Pack");
    m_prompts.AnswerMessage(PromptAnswer::Yes).AnswerMessage(PromptAnswer::No);
    WithGameInfo([this](QDialog* dialog) {
        EXPECT_EQ(In<QLabel>(dialog, "lblFilename")->text(), "Filename: pack.zip");
        EXPECT_EQ(QDir(TempPath("Unzip")).entryList(QDir::Files), QStringList{"game.smc"});
        Click(dialog, "cmdInternalCaption");
        EXPECT_EQ(In<QLineEdit>(dialog, "txtCaption")->text(), "Final Fantasy 3");
    });
    EXPECT_TRUE(QDir(TempPath("Unzip")).isEmpty()); // flushed once the dialog closed
    EXPECT_EQ(m_prompts.Asked()[0].text,
              "The file you are requesting information for is compressed.\r\nDo you want to "
              "decompress it and retrieve the additional internal data?");
    EXPECT_EQ(m_prompts.Asked()[0].icon, PromptIcon::Question);
    EXPECT_TRUE(LogText().contains("\r\nDecompressed: " + TempPath("games/pack.zip").toLower()));

    WithGameInfo([](QDialog* dialog) { // "No": the narrow dialog without the header
        const auto twips = [dialog](int value) {
            return qRound(value * dialog->logicalDpiX() / 1440.0);
        };
        EXPECT_FALSE(In<QPlainTextEdit>(dialog, "txtRomInfo")->isVisible());
        EXPECT_FALSE(In<QPushButton>(dialog, "cmdInternalCaption")->isEnabled());
        EXPECT_EQ(In<QGroupBox>(dialog, "fraGeneral")->x(), twips(120));
        EXPECT_EQ(dialog->width(), twips(3720));
    });
    EXPECT_TRUE(LogText().contains("\r\nAdjusted form size to hide internal data (not read)."));
}

} // namespace

namespace {

TEST_F(GameMenuTest, AFoundEmulatorHasItsOwnSaveStatesSubmenuOfItsRealFiles) {
    const QString home =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/retroarch";
    QDir(home).removeRecursively();
    for (const char* file : {"states/mario.state1", "states/mario.state.auto", "saves/mario.srm",
                             "states/zelda.state2"})
        WriteFile(QDir(TempPath()).relativeFilePath(home + '/' + file));
    m_state.Store.Write("Found Emulators", "RetroArch (Snes9x)",
                        "RetroArch;/usr/bin/retroarch;/cores/snes9x_libretro.so;;;;;;");
    Start();
    Select("Mario");
    m_state.Options.StateClickDeletes = 1;
    Control<QMenu>("mnuSaveStates")->popup({});
    Control<QMenu>("mnuSaveStates")->hide();
    QMenu* submenu = Control<QMenu>("mnuSaveStates_RetroArch (Snes9x)");
    EXPECT_EQ(Entries(submenu, true), (QStringList{"(1) Used", "(Auto) Used", "SRAM File"}));
    EXPECT_EQ(Entries(submenu, false).size(), 12);
    EXPECT_EQ(Entries(submenu, false).first(), "(0) Empty");
    Control<QAction>("mnuSaveStates_RetroArch (Snes9x)_State(1)")->trigger();
    Control<QAction>("mnuSaveStates_RetroArch (Snes9x)_SRAM")->trigger();
    EXPECT_EQ(m_shell.CallsOf("ShellDeleteFile"),
              (QList<QStringList>{{home + "/states/mario.state1"}, {home + "/saves/mario.srm"}}));

    // "Launch Using..." offers it after the three.
    QTest::keyClick(List(), Qt::Key_Menu);
    Control<QMenu>("mnuRomMenu")->hide();
    QMenu* launchUsing = Control<QMenu>("mnuRomMenu_LaunchUsing");
    EXPECT_EQ(Entries(launchUsing, false),
              (QStringList{"Nlke", "Snes9X", "ZSnes", "RetroArch (Snes9x)", "Default"}));
    launchUsing->actions()[3]->trigger();
    EXPECT_EQ(m_state.Games.Records[m_state.Games.FindGame("filename", "mario.smc")].Emulator,
              "RetroArch (Snes9x)");
    QDir(home).removeRecursively();
}

} // namespace
