#include "app/Startup.h"
#include "base/ErrorReport.h"
#include "base/StringHelpers.h"
#include "support/ScriptedPrompts.h"
#include "support/TestFixtures.h"

#include <tuple>

namespace {

using HelpersTest = LumbraTest;

TEST(StringHelpers, FieldsPositionsAndPaths) {
    // The record, the field's number, the delimiters and the field.
    const std::tuple<const char*, int, const char*, const char*> fields[] = {
        {"a;b;c", 2, ";", "b"}, {"  a;b  ", 2, ";", "b"}, {"a; b ;c", 2, ";", " b "},
        {"a;b;", 3, ";", ""},   {"a;b", 3, ";", ""},      {"a;b", 0, ";", ""},
        {"a;b", 1, "", ""},     {"a,b;c", 2, ",;", "b;c"}};
    for (const auto& [record, number, delimiters, field] : fields) {
        EXPECT_EQ(GetField(record, number, delimiters), field) << record << " " << number;
        // All fields at once give the same fields.
        if (number > 0) {
            EXPECT_EQ(GetFields(record, delimiters).value(number - 1), field) << record;
        }
    }

    // Lower case as QString::toLower gives it, beyond ASCII too.
    for (const char* text :
         {"", "game 0001.smc", "Game 0001.SMC", "@[Z]`{A}", "ÉCOLE.SFC", "İstanbul", "ΣΑΣ"})
        EXPECT_EQ(LowerCase(QString::fromUtf8(text)), QString::fromUtf8(text).toLower()) << text;

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

// "/debug" and "/DEBUG" turn it on in the main window's tests.
TEST(Startup, OnlyTheExactSwitchTurnsOnDebugMode) {
    for (const QStringList& arguments : {QStringList{"/debug", "more"}, {" /debug"}, {}})
        EXPECT_FALSE(IsDebugSwitch(arguments)) << arguments.join(' ').toStdString();
}

// The event log (nothing kept outside debug mode, continued lines) is tested with its
// window, and LogError's line with the folder scan.
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
