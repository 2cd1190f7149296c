#include "emulators/FoundEmulators.h"
#include "support/StandInEmulator.h"
#include "support/WindowTest.h"
#include "ui/frmSettings.h"

#include <QTabWidget>

namespace {

class FoundEmulatorEditTest : public WindowTest {
protected:
    FoundEmulatorEditTest() {
        DefineEmulators(m_state.Emulators, m_state.Store);
        m_emulator.Name = m_emulator.Entry = "Mednafen";
        m_emulator.Program = WriteStandInScript(MakeFolder("Emulators") + "/mednafen", "exit 0");
        m_emulator.Command = "{program} {options} {game}";
        WriteFoundEmulator(m_state.Store, m_emulator);
        m_dialog = std::make_unique<frmSettings>(m_state, m_prompts, m_shell, nullptr);
        m_dialog->show();
        auto* pages = ControlIn<QTabWidget>(m_dialog.get(), "tabSettings");
        pages->setCurrentIndex(pages->indexOf(ControlIn(m_dialog.get(), "Emulators")));
        auto* list = ControlIn<QListWidget>(m_dialog.get(), "lstFoundEmulators");
        ClickLine(list, static_cast<int>(ItemTexts(list).indexOf("Mednafen")));
    }

    // Opens the editor with a click on "Edit..." and runs the steps in it, which close it.
    void EditWith(const std::function<void(QDialog*)>& steps) {
        InDialog([this] { ClickOn(m_dialog.get(), "cmdEditFoundEmulator"); },
                 [&steps](QDialog* editor) {
                     steps(editor);
                     EXPECT_FALSE(editor->isVisible()) << "the editor is still open";
                 });
    }
    static void Type(QWidget* editor, const QString& field, const QString& text) {
        TypeInto(ControlIn<QLineEdit>(editor, field), text);
    }

    FoundEmulator m_emulator;
    std::unique_ptr<frmSettings> m_dialog;
};

TEST_F(FoundEmulatorEditTest, EditSavesWhatThePlayerTypedOnlyWhenItCanRun) {
    const QString shots = MakeFolder("My Shots");
    m_shell.AnswerFolder(shots);
    bool stayedOpen = false;
    EditWith([&](QDialog* editor) {
        // A command without the game, then a program that cannot run, are refused.
        Type(editor, "txtCommand", "{program} -fs 1");
        ClickOn(editor, "cmdOK");
        Type(editor, "txtCommand", "{program} -fs 1 {options} {game}");
        Type(editor, "txtProgram", TempPath("Emulators/missing"));
        ClickOn(editor, "cmdOK");
        stayedOpen = editor->isVisible();
        Type(editor, "txtProgram", m_emulator.Program);
        Type(editor, "txtDefaultProfile", "Full Screen");
        ClickOn(editor, "cmdScreenshotFolder_Browse");
        ClickOn(editor, "cmdOK");
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
    EditWith([&](QDialog* editor) {
        Type(editor, "txtCommand", "{program} {game} --changed");
        ClickOn(editor, "cmdCancel");
    });
    EXPECT_EQ(FindFoundEmulator(m_state.Store, "Mednafen"), edited);
}

} // namespace
