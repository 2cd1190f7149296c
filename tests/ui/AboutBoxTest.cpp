#include "support/EnvironmentChange.h"
#include "support/ScriptedPrompts.h"
#include "support/ScriptedShell.h"
#include "support/StandInEmulator.h"
#include "support/TestFixtures.h"
#include "support/WidgetSteps.h"
#include "ui/frmAbout.h"

namespace {

using AboutBoxTest = LumbraTest;

TEST_F(AboutBoxTest, ShowsTheVersionAndStartsTheSystemInformationToolOrSaysWhatQtKnows) {
    const QString tool = WriteStandInScript(MakeFolder("tools") + "/kinfocenter", "exit 0");
    ScriptedPrompts prompts;
    ScriptedShell shell;
    frmAbout about(prompts, shell);
    EXPECT_EQ(about.findChild<QLabel*>("lblVersion")->text(), "Version " LUMBRA_VERSION);
    const QString credits = about.findChild<QLabel*>("lblCredits")->text();
    EXPECT_TRUE(credits.contains("Qt 6.") && credits.contains("libarchive 3."))
        << credits.toStdString();

    auto* sysInfo = about.findChild<QPushButton*>("cmdSysInfo");
    for (const QString& folder : {TempPath("tools"), MakeFolder("empty")}) {
        const EnvironmentChange onPath("PATH", folder);
        QTest::mouseClick(sysInfo, Qt::LeftButton);
    }
    EXPECT_EQ(shell.Calls(), (QList<ScriptedShell::Call>{{"ShellExecute", {tool, "", ""}}}));
    ASSERT_EQ(prompts.Asked().size(), 1);
    EXPECT_EQ(prompts.Asked().first().title, "System Information");
    EXPECT_TRUE(prompts.Asked().first().text.contains("\nKernel: "));
}

} // namespace
