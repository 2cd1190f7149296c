#include "app/ErrorReport.h"
#include "app/Startup.h"
#include "app/StringHelpers.h"
#include "support/ScriptedPrompts.h"
#include "support/TestFixtures.h"

namespace {

using HelpersTest = LumbraTest;

TEST(StringHelpers, FieldsPositionsAndPaths) {
    EXPECT_EQ(GetField("a;b;c", 2, ";"), "b");
    EXPECT_EQ(GetField("  a;b  ", 2, ";"), "b");
    EXPECT_EQ(GetField("a; b ;c", 2, ";"), " b ");
    EXPECT_EQ(GetField("a;b;", 3, ";"), "");
    EXPECT_EQ(GetField("a;b", 3, ";"), "");
    EXPECT_EQ(GetField("a;b", 0, ";"), "");
    EXPECT_EQ(GetField("a;b", 1, ""), "");
    EXPECT_EQ(GetField("a,b;c", 2, ",;"), "b;c");

    EXPECT_EQ(InStrLast("C:\\a\\b.smc", "\\"), 5);
    EXPECT_EQ(InStrLast("b.smc", "\\"), 0);
    EXPECT_EQ(InStrLast("b.smc", QString(QChar(0))), 0);
    EXPECT_EQ(InStrLast("b.smc", "c"), 5);
    EXPECT_EQ(InStrLastSeparator("/home/me\\x"), 9);

    EXPECT_EQ(AddBackslash("  /home/me/SNES Roms  "), "/home/me/SNES Roms/");
    EXPECT_EQ(AddBackslash("c:\\games\\"), "c:\\games\\");
    EXPECT_EQ(AddBackslash("   "), "");
    EXPECT_EQ(GetFileName("/roms/game.smc"), "game.smc");
    EXPECT_EQ(GetFileName("c:\\roms\\"), "c:\\roms\\");
    EXPECT_EQ(GetFileName("game.smc"), "game.smc");

    EXPECT_EQ(ChangeExtension("game.smc", "bmp"), "game.bmp");
    EXPECT_EQ(ChangeExtension("game", "bmp"), "game.bmp");
    EXPECT_EQ(ChangeExtension("", "jpg"), "New File.jpg");
    // A dot in a folder name counts when the file name has none.
    EXPECT_EQ(ChangeExtension("/snaps.old/game", "gif"), "/snaps.gif");
}

TEST(Startup, OnlyTheExactSwitchTurnsOnDebugMode) {
    EXPECT_TRUE(IsDebugSwitch({"/debug"}));
    EXPECT_TRUE(IsDebugSwitch({"/DEBUG"}));
    EXPECT_FALSE(IsDebugSwitch({"/debug", "more"}));
    EXPECT_FALSE(IsDebugSwitch({" /debug"}));
    EXPECT_FALSE(IsDebugSwitch({}));
}

TEST_F(HelpersTest, LogWritesLinesAndContinuationsOnlyInDebugMode) {
    for (int i = 0; i < 100; ++i)
        LogEvent("never kept");
    EXPECT_EQ(EventLog::View(), nullptr);
    EXPECT_EQ(LogText(), "");

    EnableLog();
    LogEvent("Exporting GameList to: Registry... ");
    LogEvent("Done.", true);
    LogError(9, "GameList_ImportFileList");
    EXPECT_EQ(LogText(), "\r\nExporting GameList to: Registry... Done."
                         "\r\nError #9 accured in GameList_ImportFileList");
}

TEST_F(HelpersTest, ErrorReportLogsAndShowsTheCriticalBox) {
    EnableLog();
    ScriptedPrompts prompts;
    ShowErrorReport(prompts, 0, "An unexpected error accured!", "cmdRomFolders_Add_Click");
    EXPECT_EQ(LogText(), "\r\nError: 0, cmdRomFolders_Add_Click");
    ASSERT_EQ(prompts.Asked().size(), 1);
    const ScriptedPrompts::Question& box = prompts.Asked().first();
    EXPECT_EQ(box.icon, PromptIcon::Critical);
    EXPECT_TRUE(box.text.startsWith(
        "An unexpected error accured! (0)\r\nAccured in cmdRomFolders_Add_Click\r\n\r\n"));
    EXPECT_TRUE(box.text.endsWith("\r\nI'll try to solve the problem!"));
}

} // namespace
