#include "snapshots/SnapshotCommands.h"
#include "support/ScriptedPrompts.h"
#include "support/ScriptedShell.h"
#include "support/TestFixtures.h"

#include <QDir>

namespace {

using Calls = QList<ScriptedShell::Call>;

class SnapshotCommandsTest : public LumbraTest {
protected:
    SnapshotCommandsTest() { m_state.Options.SnapshotFolder = MakeFolder("Shots"); }

    QString Folder() const { return TempPath("Shots/"); }
    QStringList Shots() const { return QDir(TempPath("Shots")).entryList(QDir::Files); }

    ScriptedPrompts m_prompts;
    ScriptedShell m_shell;
};

TEST_F(SnapshotCommandsTest, ChangeDeletesTheOldSnapshotsForGoodAndCopiesThePickedOne) {
    WriteFile("Shots/zelda.bmp");
    WriteFile("Shots/Zelda.GIF");
    WriteFile("Shots/other.bmp");
    const QString picked = WriteFile("Pictures/title.jpeg");
    m_prompts.AnswerFile(picked).AnswerMessage(PromptAnswer::Yes);
    ChangeSnapshot(m_state, m_prompts, m_shell, "zelda.smc");

    EXPECT_EQ(m_state.Options.SnapshotFolder, Folder());
    EXPECT_EQ(Shots(), QStringList{"other.bmp"});
    // A four-letter extension gives its last three letters to the copy.
    EXPECT_EQ(m_shell.Calls(), (Calls{{"ShellCopyFile", {picked, Folder() + "zelda.peg"}}}));
    const QList<ScriptedPrompts::Question>& asked = m_prompts.Asked();
    ASSERT_EQ(asked.size(), 2);
    EXPECT_EQ(
        asked[0].title + '|' + asked[0].filter,
        "Pick New Snapshot|All Supported Formats|*.bmp;*.gif;*.jpg;*.png|Bitmap Image "
        "(*.bmp)|*.bmp|GIF Image (*.gif)|*.gif|JPEG Image (*.jpg)|*.jpg|PNG Image (*.png)|*.png");
    EXPECT_TRUE(asked[1].text.contains("permanently delete all previous snapshots"));
    EXPECT_TRUE(asked[1].buttons == PromptButtons::YesNo &&
                asked[1].icon == PromptIcon::Exclamation);
}

TEST_F(SnapshotCommandsTest, ChangeStopsAtCancelAtNoAndAtTheGamesOwnSnapshot) {
    WriteFile("Shots/zelda.bmp");
    m_prompts.AnswerFile(std::nullopt)
        .AnswerFile(TempPath("shots/ZELDA.gif")) // the snapshot folder in another letter case
        .AnswerFile(WriteFile("new.png"))
        .AnswerMessage(PromptAnswer::No);
    for (int i = 0; i < 3; ++i)
        ChangeSnapshot(m_state, m_prompts, m_shell, "zelda.smc");

    EXPECT_TRUE(m_shell.Calls().isEmpty());
    EXPECT_EQ(Shots(), QStringList{"zelda.bmp"});
    const ScriptedPrompts::Question& refusal = m_prompts.Asked().value(2);
    EXPECT_EQ(refusal.title, "Can't Change Snapshot, Source appears to match target");
}

TEST_F(SnapshotCommandsTest, OpenAndRemoveActOnTheFirstPictureTypeThatExists) {
    OpenSnapshot(m_state, m_prompts, m_shell, "zelda.smc");
    RemoveSnapshot(m_state, m_shell, "zelda.smc"); // none: the last candidate goes to the shell
    WriteFile("Shots/Zelda.GIF");
    OpenSnapshot(m_state, m_prompts, m_shell, "zelda.smc");
    WriteFile("Shots/zelda.bmp");
    OpenSnapshot(m_state, m_prompts, m_shell, "zelda.smc");
    RemoveSnapshot(m_state, m_shell, "zelda.smc");

    EXPECT_EQ(m_prompts.AskedTexts(), QStringList{"Cannot open snapshot, none exist."});
    EXPECT_EQ(m_prompts.Asked()[0].icon, PromptIcon::Information);
    EXPECT_EQ(m_shell.Calls(), (Calls{{"ShellDeleteFile", {Folder() + "zelda.png"}},
                                      {"OpenDocument", {TempPath("Shots/Zelda.GIF")}},
                                      {"OpenDocument", {TempPath("Shots/zelda.bmp")}},
                                      {"ShellDeleteFile", {Folder() + "zelda.bmp"}}}));
}

} // namespace
