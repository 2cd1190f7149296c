#include "base/StringHelpers.h"
#include "support/ScriptedPrompts.h"
#include "support/ScriptedShell.h"
#include "support/TestFixtures.h"
#include "support/WidgetSteps.h"
#include "ui/frmExportGameList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTest>
#include <memory>

namespace {

const QString Section = "Export Prefs";

class ExportDialogTest : public LumbraTest {
protected:
    void Open() {
        m_dialog = std::make_unique<frmExportGameList>(m_state, m_prompts, m_shell);
        m_dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_dialog.get()));
    }
    template <typename T = QWidget> T* Control(const QString& name) const {
        T* control = m_dialog->findChild<T*>(name);
        EXPECT_NE(control, nullptr) << name.toStdString();
        return control;
    }
    QComboBox* Box(const QString& name) const { return Control<QComboBox>(name); }
    void Click(const QString& name) { QTest::mouseClick(Control(name), Qt::LeftButton); }
    // On the option's round indicator, wherever the layout stretches the button.
    void Choose(const QString& name) {
        auto* option = Control<QRadioButton>(name);
        QStyleOptionButton style;
        style.initFrom(option);
        QTest::mouseClick(option, Qt::LeftButton, {},
                          option->style()
                              ->subElementRect(QStyle::SE_RadioButtonIndicator, &style, option)
                              .center());
    }
    static QString Stored(const QString& key) { return SettingsStore().Read(Section, key); }

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
        m_state.Store.Write(Section, key, value);
    Open();
    EXPECT_TRUE(Control<QRadioButton>("optExportMethod_2")->isChecked());
    EXPECT_EQ(Box("cboGroups")->currentText(), "Action");
    EXPECT_EQ(Box("cboGameFolders")->currentText(), AddBackslash(TempPath("snes"))); // 7: none
    EXPECT_EQ(Box("cboFilePatterns")->currentText(), "*.zip");
    EXPECT_TRUE(Box("cboGroups")->isEnabled());
    EXPECT_FALSE(Box("cboGameFolders")->isEnabled() || Box("cboFilePatterns")->isEnabled());
    EXPECT_EQ(Box("cboWriteOrder_0")->currentText(), "Folder");
    EXPECT_FALSE(Control<QCheckBox>("chkWriteOrder_1")->isChecked());
    EXPECT_TRUE(Control<QRadioButton>("optFileFormat_1")->isChecked());

    // "Group" chosen in the first box: the box that showed it takes "Folder".
    PickFromList(Box("cboWriteOrder_0"), "Group");
    EXPECT_EQ(Box("cboWriteOrder_0")->currentText(), "Group");
    EXPECT_EQ(Box("cboWriteOrder_1")->currentText(), "Folder");

    Choose("optExportMethod_3");
    EXPECT_TRUE(Box("cboFilePatterns")->isEnabled());
    EXPECT_FALSE(Box("cboGroups")->isEnabled());
    QLineEdit* pattern = Box("cboFilePatterns")->lineEdit();
    pattern->selectAll();
    QTest::keyClicks(pattern, "mario*");
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(Stored("optExportMethod") + Stored("cboGroups") + Stored("cboGameFolders"), "320");
    EXPECT_EQ(Stored("File Pattern 01") + Stored("File Pattern 02"), "*.zipmario*");
    EXPECT_EQ(Stored("cboFilePatterns"), "2"); // the typed pattern is the choice
    EXPECT_EQ(Stored("cboWriteOrder0") + Stored("cboWriteOrder1") + Stored("cboWriteOrder5"),
              "150");
    EXPECT_EQ(Stored("chkWriteOrder0") + Stored("chkWriteOrder1"), "10");
    EXPECT_EQ(Stored("optFileFormat"), "1");
}

TEST_F(ExportDialogTest, ExportsToTheChosenFileAndAsksBeforeReplacingOne) {
    WriteFile("Games/Mario.smc", QByteArray(2048, 'm'));
    WriteFile("Games/Zelda.sfc", QByteArray(1023, 'z'));
    const QStringList games = {"Mario", "mario.smc", "Zelda", "zelda.sfc"};
    for (int i = 0; i < 2; ++i) {
        GameRecord& game = m_state.Games.Records[i];
        game.Caption = games[2 * i];
        game.Filename = games[2 * i + 1];
        game.Folder = TempPath("Games/").toLower();
        game.Group = "Ungrouped";
    }
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
    EXPECT_EQ(save.title, "Export Game List");
    EXPECT_EQ(save.filter, "HTML (*.html;*.htm)|*.html;*.htm|All Files (*.*)|*.*");
    EXPECT_EQ(save.proposed, AddBackslash(TempPath("Out")) + "gamelist");
    EXPECT_TRUE(ReadFile(page).startsWith("<html><head>\r\n"));
    EXPECT_TRUE(m_prompts.Asked().at(2).text.startsWith("Game List Exported!\r\n"));
    EXPECT_EQ(m_prompts.Asked().at(2).buttons, PromptButtons::YesNoCancel);
    EXPECT_EQ(m_shell.CallsOf("ShellExecute"), (QList<QStringList>{{TempPath("Out"), "", ""}}));
    EXPECT_EQ(Control<QLabel>("lblProgress")->text(), "Exporting Game List in HTML...");
    const auto* bar = Control<QProgressBar>("prgProgress");
    EXPECT_EQ(bar->value(), 2);
    EXPECT_EQ(bar->maximum(), 2);

    Choose("optFileFormat_0");
    m_prompts.AnswerFile(old).AnswerMessage(PromptAnswer::No);
    Click("cmdExport");
    ASSERT_EQ(m_prompts.Asked().size(), 5);
    EXPECT_EQ(m_prompts.Asked().at(3).filter, "Plain Text (*.txt)|*.txt|All Files (*.*)|*.*");
    const ScriptedPrompts::Question replace = m_prompts.Asked().at(4);
    EXPECT_EQ(replace.text, old + " already exists.\r\nDo you want to replace it?");
    EXPECT_EQ(replace.title, "Export");
    EXPECT_EQ(replace.buttons, PromptButtons::YesNo);
    EXPECT_EQ(replace.icon, PromptIcon::Exclamation);
    EXPECT_EQ(ReadFile(old), "the old list\r\n");
    m_prompts.AnswerFile(old).AnswerMessage(PromptAnswer::Yes).AnswerMessage(PromptAnswer::Yes);
    Click("cmdExport"); // replaced, and opened
    EXPECT_NE(ReadFile(old), "the old list\r\n");
    EXPECT_EQ(m_shell.CallsOf("ShellExecute").last(), (QStringList{old, "", ""}));

    ASSERT_TRUE(QFile::remove(TempPath("Games/Zelda.sfc")));
    m_prompts.AnswerFile(TempPath("Out/new.txt"));
    Click("cmdExport");
    EXPECT_EQ(m_prompts.AskedTexts().last(), "Unknown Error, Export Failed!");

    Click("cmdClose");
    EXPECT_EQ(m_dialog->result(), QDialog::Accepted);
    EXPECT_EQ(Stored("optFileFormat"), "0");
}

} // namespace
