#include "support/TestFixtures.h"
#include "support/WidgetSteps.h"
#include "ui/frmLoadGameList.h"

namespace {

using LoadGameListTest = LumbraTest;

TEST_F(LoadGameListTest, ShowsProgressAndLogsOneMarkerPairPerLoad) {
    EnableLog();
    const QString unloaded = "\r\n\r\n=== Unloaded frmLoadGameList ===";
    frmLoadGameList window;
    LogEvent("Importing GameList from: Registry...");
    window.Show();
    window.Show();
    window.SetMaximum(40);
    window.SetValue(25);
    EXPECT_TRUE(window.isVisible());
    auto* bar = ControlIn<QProgressBar>(&window, "LoadProgressBar");
    EXPECT_EQ(QPoint(bar->maximum(), bar->value()), QPoint(40, 25));
    window.Close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(LogText().endsWith(unloaded)); // before the window goes
    frmLoadGameList(nullptr).Show();           // released while shown: unloaded by its destruction
    EXPECT_EQ(LogText(), "\r\nImporting GameList from: Registry...(Loaded frmLoadGameList)..." +
                             unloaded + "(Loaded frmLoadGameList)..." + unloaded);
}

} // namespace
