#include "base/StringHelpers.h"
#include "export/ExportPrefs.h"
#include "support/ScriptedPrompts.h"
#include "support/ScriptedShell.h"
#include "support/TestFixtures.h"
#include "support/WidgetSteps.h"
#include "ui/frmExportGameList.h"

#include <QFile>

namespace {

class ExportDialogTest : public LumbraTest {
protected:
    void Open() {
        m_dialog = std::make_unique<frmExportGameList>(m_state, m_prompts, m_shell);
        ASSERT_TRUE(ShownOnScreen(m_dialog.get()));
    }
    template <typename T = QWidget> T* Control(const QString& name) const {
        return ControlIn<T>(m_dialog.get(), name);
    }
    QComboBox* Box(const QString& name) const { return Control<QComboBox>(name); }
    void Click(const QString& name) { ClickOn(m_dialog.get(), name); }
    void Choose(const QString& name) { QTest::keyClick(Control(name), Qt::Key_Space); }
    static QString Stored(const QString& key) {
        return SettingsStore().Read(ExportPrefsSection, key);
    }

    ScriptedPrompts m_prompts;
    ScriptedShell m_shell;
    std::unique_ptr<frmExportGameList> m_dialog;
};

TEST_F(ExportDialogTest, OpensWithTheStoredChoicesAndKeepsThemOnClosing) {
    m_state.GameFolders.AddGameFolder(MakeFolder("snes"));
    m_state.Groups.AddGroup("RPG");
    m_state.Groups.AddGroup("Action");
    const QList<std::pair<QString, QString>> stored = {
        {"optExportMethod", "2"},     {"cboGameFolders", "7"},      {"cboGroups", "2"},
        {"File Pattern 00", "*.smc"}, {"File Pattern 01", "*.zip"}, {"cboFilePatterns", "1"},
        {"cboWriteOrder0", "5"},      {"cboWriteOrder5", "0"},      {"chkWriteOrder1", "0"},
        {"optFileFormat", "1"}};
    for (const auto& [key, value] : stored)
        m_state.Store.Write(ExportPrefsSection, key, value);
    Open();
    EXPECT_TRUE(Control<QRadioButton>("optExportMethod_2")->isChecked() &&
                Control<QRadioButton>("optFileFormat_1")->isChecked());
    // The folder stored as 7 is no more: the first one.
    EXPECT_EQ(Box("cboGroups")->currentText() + '|' + Box("cboGameFolders")->currentText() + '|' +
                  Box("cboFilePatterns")->currentText() + '|' +
                  Box("cboWriteOrder_0")->currentText(),
              "Action|" + AddBackslash(TempPath("snes")) + "|*.zip|Folder");
    EXPECT_TRUE(Box("cboGroups")->isEnabled());
    EXPECT_FALSE(Box("cboGameFolders")->isEnabled() || Box("cboFilePatterns")->isEnabled());
    EXPECT_FALSE(Control<QCheckBox>("chkWriteOrder_1")->isChecked());

    // "Group" chosen in the first box: the box that showed it takes "Folder".
    PickFromList(Box("cboWriteOrder_0"), "Group");
    EXPECT_EQ(Box("cboWriteOrder_1")->currentText(), "Folder");

    Choose("optExportMethod_3");
    EXPECT_TRUE(Box("cboFilePatterns")->isEnabled());
    EXPECT_FALSE(Box("cboGroups")->isEnabled());
    QLineEdit* pattern = Box("cboFilePatterns")->lineEdit();
    pattern->selectAll();
    QTest::keyClicks(pattern, "mario*");
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(m_dialog->isVisible());
    // The typed pattern is added and is the choice.
    QStringList kept;
    for (const char* key :
         {"optExportMethod", "cboGroups", "cboGameFolders", "File Pattern 01", "File Pattern 02",
          "cboFilePatterns", "cboWriteOrder0", "cboWriteOrder1", "cboWriteOrder5", "chkWriteOrder0",
          "chkWriteOrder1", "optFileFormat"})
        kept << Stored(key);
    EXPECT_EQ(kept.join(' '), "3 2 0 *.zip mario* 2 1 5 0 1 0 1");
}

TEST_F(ExportDialogTest, ExportsToTheChosenFileAndAsksBeforeReplacingOne) {
    WriteFile("Games/Mario.smc", QByteArray(2048, 'm'));
    WriteFile("Games/Zelda.sfc", QByteArray(1023, 'z'));
    const QString folder = TempPath("Games/").toLower();
    m_state.Games.Records[0] = {"Mario", "mario.smc", {}, {}, folder, {}, "Ungrouped", {}, {}};
    m_state.Games.Records[1] = {"Zelda", "zelda.sfc", {}, {}, folder, {}, "Ungrouped", {}, {}};
    m_state.Options.ExportFolder = MakeFolder("Out");
    const QString page = TempPath("Out/list.htm");
    const QString old = WriteFile("Out/old.txt", "the old list\r\n");
    Open();

    Choose("optFileFormat_1");
    m_prompts.AnswerFile(std::nullopt).AnswerFile(page);
    m_prompts.AnswerMessage(PromptAnswer::No); // "... open it now?": the folder
    Click("cmdExport");                        // cancelled: nothing more is asked
    Click("cmdExport");
    ASSERT_EQ(m_prompts.Asked().size(), 3);
    const ScriptedPrompts::Question save = m_prompts.Asked().at(1);
    EXPECT_EQ(save.kind, ScriptedPrompts::Kind::SaveFile);
    EXPECT_EQ(save.title + ": " + save.filter + " at " + save.proposed,
              "Export Game List: HTML (*.html;*.htm)|*.html;*.htm|All Files (*.*)|*.* at " +
                  AddBackslash(TempPath("Out")) + "gamelist");
    EXPECT_TRUE(ReadFile(page).startsWith("<html><head>\r\n"));
    EXPECT_TRUE(m_prompts.Asked().at(2).text.startsWith("Game List Exported!\r\n"));
    EXPECT_EQ(m_prompts.Asked().at(2).buttons, PromptButtons::YesNoCancel);
    EXPECT_EQ(m_shell.CallsOf("OpenDocument"), (QList<QStringList>{{TempPath("Out")}}));
    EXPECT_EQ(Control<QLabel>("lblProgress")->text(), "Exporting Game List in HTML...");
    EXPECT_EQ(Control<QProgressBar>("prgProgress")->value(), 2); // of 2

    Choose("optFileFormat_0");
    m_prompts.AnswerFile(old).AnswerMessage(PromptAnswer::No);
    Click("cmdExport");
    ASSERT_EQ(m_prompts.Asked().size(), 5);
    EXPECT_EQ(m_prompts.Asked().at(3).filter, "Plain Text (*.txt)|*.txt|All Files (*.*)|*.*");
    const ScriptedPrompts::Question replace = m_prompts.Asked().at(4);
    EXPECT_EQ(replace.title + ": " + replace.text,
              "Export: " + old + " already exists.\r\nDo you want to replace it?");
    EXPECT_TRUE(replace.buttons == PromptButtons::YesNo && replace.icon == PromptIcon::Exclamation);
    EXPECT_EQ(ReadFile(old), "the old list\r\n");
    m_prompts.AnswerFile(old).AnswerMessage(PromptAnswer::Yes).AnswerMessage(PromptAnswer::Yes);
    Click("cmdExport"); // replaced, and opened
    EXPECT_NE(ReadFile(old), "the old list\r\n");
    EXPECT_EQ(m_shell.CallsOf("OpenDocument").last(), (QStringList{old}));

    ASSERT_TRUE(QFile::remove(TempPath("Games/Zelda.sfc")));
    m_prompts.AnswerFile(TempPath("Out/new.txt"));
    Click("cmdExport");
    EXPECT_EQ(m_prompts.AskedTexts().last(), "Unknown Error, Export Failed!");

    Click("cmdClose");
    EXPECT_EQ(m_dialog->result(), QDialog::Accepted);
    EXPECT_EQ(Stored("optFileFormat"), "0");
}

} // namespace
