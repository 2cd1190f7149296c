#include "support/ScriptedPrompts.h"
#include "support/TestFixtures.h"
#include "support/WidgetSteps.h"
#include "ui/SnapshotWizardDialogView.h"
#include "ui/frmSnapshotWizard.h"

#include <QFile>
#include <QImage>

namespace {

using SnapshotWizardWindowTest = LumbraTest;

// The game already has a snapshot; play left a square and a wide screenshot.
TEST_F(SnapshotWizardWindowTest, PreviewsThePickedImageAndClosesOnceItIsUsed) {
    m_state.Options.SnapshotFolder = MakeFolder("Snapshots");
    WriteFile("Snapshots/super.png", "old");
    ScriptedPrompts prompts;
    SnapshotWizard wizard(m_state, prompts);
    wizard.SetRomFilename("Super.smc");
    wizard.SetFilePath(MakeFolder("Shots"));
    QImage(16, 16, QImage::Format_RGB32).save(TempPath("Shots/shot1.png"));
    QImage(32, 16, QImage::Format_RGB32).save(TempPath("Shots/shot2.bmp"));
    wizard.SortForNewImages();

    InDialog([&wizard] { SnapshotWizardDialogView().ShowModal(wizard); },
             [&prompts](QDialog* dialog) {
                 ASSERT_TRUE(qobject_cast<frmSnapshotWizard*>(dialog));
                 EXPECT_TRUE(QTest::qWaitForWindowExposed(dialog));
                 auto* list = dialog->findChild<QListWidget*>("lstNewImages");
                 auto* use = dialog->findChild<QPushButton*>("cmdUse");
                 auto* preview = dialog->findChild<QLabel*>("imgPreview");
                 EXPECT_EQ(list->count(), 2);
                 EXPECT_FALSE(use->isEnabled()); // until an image is picked

                 ClickLine(list, 1);
                 EXPECT_TRUE(use->isEnabled());
                 EXPECT_EQ(preview->pixmap().size(), QSize(256, 128));
                 QTest::keyClick(list, Qt::Key_Up);
                 EXPECT_EQ(preview->pixmap().size(), QSize(224, 224));

                 prompts.AnswerMessage(PromptAnswer::Yes).AnswerMessage(PromptAnswer::No);
                 QTest::mouseClick(use, Qt::LeftButton); // declines to replace: stays open
                 EXPECT_TRUE(dialog->isVisible());
                 prompts.AnswerMessage(PromptAnswer::Yes).AnswerMessage(PromptAnswer::Yes);
                 QTest::mouseClick(use, Qt::LeftButton);
                 EXPECT_FALSE(dialog->isVisible());
             });
    EXPECT_EQ(prompts.AskedTexts().size(), 5);
    EXPECT_FALSE(QFile::exists(TempPath("Shots/shot1.png")));
    EXPECT_EQ(QImage(TempPath("Snapshots/super.png")).size(), QSize(16, 16));
}

} // namespace
