#include "emulators/FoundEmulators.h"
#include "support/StandInEmulator.h"
#include "support/WidgetSteps.h"
#include "support/WindowTest.h"
#include "ui/frmSettings.h"

#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>

namespace {

class FoundEmulatorEditTest : public WindowTest {
protected:
    FoundEmulatorEditTest() {
        DefineEmulators(m_state.Emulators, m_state.Store);
        m_emulator.Name = "Mednafen";
        m_emulator.Entry = "Mednafen";
        m_emulator.Program = WriteStandInScript(MakeFolder("Emulators") + "/mednafen", "exit 0");
        m_emulator.Command = "{program} {options} {game}";
        WriteFoundEmulator(m_state.Store, m_emulator);
        m_dialog = std::make_unique<frmSettings>(m_state, m_prompts, m_shell, nullptr);
        m_dialog->show();
        auto* pages = m_dialog->findChild<QTabWidget*>("tabSettings");
        pages->setCurrentIndex(pages->indexOf(m_dialog->findChild<QWidget*>("Emulators")));
        auto* list = m_dialog->findChild<QListWidget*>("lstFoundEmulators");
        ClickLine(list, static_cast<int>(ItemTexts(list).indexOf("Mednafen")));
    }

    // Opens the editor with a click on "Edit..." and runs the steps in it.
    void EditWith(const std::function<void(QWidget*)>& steps) {
        auto waiting = std::make_shared<bool>(true);
        RunWhenModal([steps, waiting](QWidget* editor) {
            if (!*waiting)
                return;
            *waiting = false;
            steps(editor);
            if (editor->isVisible()) {
                ADD_FAILURE() << "the editor is still open";
                static_cast<QDialog*>(editor)->reject();
            }
        });
        QTest::mouseClick(m_dialog->findChild<QPushButton*>("cmdEditFoundEmulator"),
                          Qt::LeftButton);
        EXPECT_FALSE(*waiting) << "the editor did not open";
        *waiting = false;
    }
    static void Type(QWidget* editor, const QString& field, const QString& text) {
        auto* line = editor->findChild<QLineEdit*>(field);
        line->selectAll();
        QTest::keyClicks(line, text);
    }
    static void Click(QWidget* editor, const QString& name) {
        QTest::mouseClick(editor->findChild<QAbstractButton*>(name), Qt::LeftButton);
    }

    FoundEmulator m_emulator;
    std::unique_ptr<frmSettings> m_dialog;
};

TEST_F(FoundEmulatorEditTest, EditSavesWhatThePlayerTypedOnlyWhenItCanRun) {
    const QString shots = MakeFolder("My Shots");
    m_shell.AnswerFolder(shots);
    bool stayedOpen = false;
    EditWith([&](QWidget* editor) {
        // A command without the game, then a program that cannot run, are refused.
        Type(editor, "txtCommand", "{program} -fs 1");
        Click(editor, "cmdOK");
        Type(editor, "txtCommand", "{program} -fs 1 {options} {game}");
        Type(editor, "txtProgram", TempPath("Emulators/missing"));
        Click(editor, "cmdOK");
        stayedOpen = editor->isVisible();
        Type(editor, "txtProgram", m_emulator.Program);
        Type(editor, "txtDefaultProfile", "Full Screen");
        Click(editor, "cmdScreenshotFolder_Browse");
        Click(editor, "cmdOK");
    });
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(m_prompts.AskedTexts(),
              (QStringList{"The command needs {game} where the game's path goes.",
                           "The program \"" + TempPath("Emulators/missing") +
                               "\" is not a file that can be run."}));
    FoundEmulator edited = m_emulator;
    edited.Command = "{program} -fs 1 {options} {game}";
    edited.DefaultProfile = "Full Screen";
    edited.ScreenshotFolder = shots; // as picked, letter case kept
    EXPECT_EQ(FindFoundEmulator(m_state.Store, "Mednafen"), edited);

    // Cancel keeps what was stored.
    EditWith([&](QWidget* editor) {
        Type(editor, "txtCommand", "{program} {game} --changed");
        Click(editor, "cmdCancel");
    });
    EXPECT_EQ(FindFoundEmulator(m_state.Store, "Mednafen"), edited);
}

} // namespace
