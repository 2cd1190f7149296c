#include "support/TestFixtures.h"
#include "ui/frmLoadGameList.h"

#include <QProgressBar>

namespace {

using LoadGameListTest = LumbraTest;

TEST_F(LoadGameListTest, ShowContinuesTheCurrentLineAndCloseLogsTheUnloadMarker) {
    EnableLog();
    frmLoadGameList window;
    Progress& progress = window;
    LogEvent(QStringLiteral("Importing GameList from: Registry..."));
    progress.Show();
    progress.SetMaximum(40);
    progress.SetValue(25);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowTitle(), "Loading Game List...");
    auto* bar = window.findChild<QProgressBar*>("LoadProgressBar");
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->maximum(), 40);
    EXPECT_EQ(bar->value(), 25);
    EXPECT_EQ(LogText(), "\r\nImporting GameList from: Registry...(Loaded frmLoadGameList)...");

    progress.Close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(LogText().endsWith("...\r\n\r\n=== Unloaded frmLoadGameList ==="));
}

TEST_F(LoadGameListTest, MarkersComeOncePerLoadAndOnlyInDebugMode) {
    frmLoadGameList(nullptr).Show();
    EXPECT_TRUE(LogText().isEmpty());
    EnableLog();
    {
        frmLoadGameList window;
        window.Show();
        window.Show();
        window.Close();
    }
    frmLoadGameList(nullptr).Show(); // released while shown: unloaded by its destruction
    const QString once = "(Loaded frmLoadGameList)...\r\n\r\n=== Unloaded frmLoadGameList ===";
    EXPECT_EQ(LogText(), once + once);
}

} // namespace
