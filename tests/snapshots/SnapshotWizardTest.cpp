#include "snapshots/SnapshotWizard.h"
#include "snapshots/Snapshot.h"
#include "support/ScriptedPrompts.h"
#include "support/TestFixtures.h"

#include <QDir>
#include <QFile>

namespace {

const QString Confirm = "Use this snapshot for Super?";
const QString Replace = QStringLiteral(
    "There's already a snapshot for this game, do you want to replace it with this one?");

// A snapshot folder, and a wizard for "Super.Game.smc" that the launch activated
// on the emulator's screenshot folder before play.
class SnapshotWizardTest : public LumbraTest {
protected:
    SnapshotWizardTest() { m_state.Options.SnapshotFolder = MakeFolder("Snapshots"); }

    SnapshotWizard& Activate(bool autoUseFirst = false, bool autoRenameAll = false) {
        MakeFolder("ZSnes/Shots");
        m_wizard.SetRomFilename("Super.Game.smc");
        m_wizard.SetAutoUseFirst(autoUseFirst);
        m_wizard.SetAutoRenameAll(autoRenameAll);
        m_wizard.SetFilePath(TempPath("zsnes/shots/")); // in any letter case
        return m_wizard;
    }
    // Screenshots that hold their own names.
    void Shoot(const QStringList& names) {
        for (const QString& name : names)
            WriteFile("ZSnes/Shots/" + name, name.toUtf8());
    }
    QStringList Files(const QString& folder) const {
        return QDir(TempPath(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    ScriptedPrompts m_prompts;
    SnapshotWizard m_wizard{m_state, m_prompts};
};

// The wizard's log lines are checked with the launch that shows it.
TEST_F(SnapshotWizardTest, OnlyImagesWrittenAfterActivationAreNewAndTheChosenOneIsMoved) {
    Shoot({"old.png", "notes.txt"});
    SnapshotWizard& wizard = Activate();
    EXPECT_EQ(wizard.FilePath(), TempPath("zsnes/shots"));
    Shoot({"Super-230415-101010.png", "super-0000.PNG", "Alpha.JPG", "readme.txt", ".hidden.png"});
    MakeFolder("ZSnes/Shots/folder.png");
    wizard.SortForNewImages();
    ASSERT_EQ(wizard.NewImages(),
              (QStringList{"Alpha.JPG", "super-0000.PNG", "Super-230415-101010.png"}));

    m_prompts.AnswerMessage(PromptAnswer::Yes);
    EXPECT_TRUE(wizard.UseSnapshot(2));
    EXPECT_EQ(m_prompts.AskedTexts(),
              (QStringList{Confirm, "Image used as snapshot.\r\nFilename: (super.png)"}));
    EXPECT_EQ(Files("Snapshots"), QStringList{"super.png"});
    EXPECT_FALSE(Files("ZSnes/Shots").contains("Super-230415-101010.png"));
    EXPECT_EQ(m_state.Options.SnapshotFolder, TempPath("Snapshots/"));
    EXPECT_EQ(wizard.ImageCount(), 0);

    // Declining unloads the wizard too.
    Activate();
    Shoot({"shot.bmp"});
    wizard.SortForNewImages();
    m_prompts.AnswerMessage(PromptAnswer::No);
    EXPECT_TRUE(wizard.UseSnapshot(0));
    EXPECT_EQ(wizard.ImageCount(), 0);
}

TEST_F(SnapshotWizardTest, AutomaticUseTakesTheFirstImageAndRenamingNumbersTheRest) {
    Shoot({"super_00.png"});
    SnapshotWizard& wizard = Activate(true, true);
    Shoot({"a.BMP", "b.gif", "c.png"});
    wizard.SortForNewImages();
    EXPECT_TRUE(m_prompts.Asked().isEmpty());
    EXPECT_TRUE(wizard.FirstPicUsed());
    EXPECT_EQ(Files("Snapshots"), QStringList{"super.bmp"});
    // One counter for all images: 00 is free for the gif and taken for the png.
    EXPECT_EQ(Files("ZSnes/Shots"), (QStringList{"super_00.gif", "super_00.png", "super_01.png"}));
}

TEST_F(SnapshotWizardTest, AnExistingSnapshotIsReplacedOnlyWhenThePlayerAgrees) {
    WriteFile("Snapshots/SUPER.png", "old");
    EXPECT_EQ(FindSnapshot("Super.smc", m_state.Options.SnapshotFolder)->right(10), "/super.png");
    SnapshotWizard& wizard = Activate();
    EXPECT_TRUE(wizard.PicExists());
    Shoot({"shot1.png", "shot2.png"});
    wizard.SortForNewImages();

    m_prompts.AnswerMessage(PromptAnswer::Yes).AnswerMessage(PromptAnswer::No);
    EXPECT_FALSE(wizard.UseSnapshot(0));
    QFile::remove(TempPath("ZSnes/Shots/shot2.png"));
    m_prompts.AnswerMessage(PromptAnswer::Yes);
    EXPECT_FALSE(wizard.UseSnapshot(1));
    EXPECT_EQ(Files("Snapshots"), QStringList{"SUPER.png"});
    EXPECT_EQ(wizard.ImageCount(), 2);
    m_prompts.AnswerMessage(PromptAnswer::Yes).AnswerMessage(PromptAnswer::Yes);
    EXPECT_TRUE(wizard.UseSnapshot(0));
    EXPECT_EQ(Files("Snapshots"), QStringList{"super.png"});

    const QList<ScriptedPrompts::Question>& asked = m_prompts.Asked();
    EXPECT_EQ(m_prompts.AskedTexts().mid(1, 2), (QStringList{Replace, Confirm}));
    EXPECT_EQ(asked.value(1).icon, PromptIcon::Exclamation);
    EXPECT_TRUE(asked.value(3).text.startsWith(
        "File not found (53)\r\nAccured in cmdUse_Click (frmSnapshotWizard)\r\n"));
    WriteFile("Snapshots/super.jpg"); // a jpg comes before a png
    EXPECT_EQ(FindSnapshot("Super.smc", m_state.Options.SnapshotFolder)->right(10), "/super.jpg");
}

TEST_F(SnapshotWizardTest, TheSnapshotFolderIsMadeWhenFirstUsedEvenOnAnotherFileSystem) {
    QTemporaryDir tmpfs("/dev/shm/lumbra-XXXXXX"); // where there is a tmpfs
    const QDir root(tmpfs.isValid() ? tmpfs.path() : TempPath());
    root.mkdir("Data");
    m_state.Options.SnapshotFolder = root.filePath("data/Lumbra/snapshots");
    SnapshotWizard& wizard = Activate(true);
    Shoot({"shot.png"});
    wizard.SortForNewImages();
    EXPECT_EQ(QDir(root.filePath("Data/Lumbra/snapshots")).entryList(QDir::Files),
              QStringList{"super.png"});
    EXPECT_TRUE(Files("ZSnes/Shots").isEmpty());
}

} // namespace
