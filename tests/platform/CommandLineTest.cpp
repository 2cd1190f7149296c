#include "platform/CommandLine.h"
#include "support/TestFixtures.h"

#include <QDir>
#include <QFile>

namespace {

using CommandLineTest = LumbraTest;

TEST_F(CommandLineTest, TheProgramIsTheFirstExistingFileAmongThePrefixes) {
    for (const QString program : {"Emu Folder/ZSnes", "Emu Folder/Snes9X.sh", "Run", "Run Me"})
        QFile(WriteFile(program, "#!/bin/sh\n"))
            .setPermissions(QFile::ReadOwner |
                            (program.endsWith(".sh") ? QFile::Permissions() : QFile::ExeOwner));
    MakeFolder("Emu");
    const QString zsnes = "%T/Emu Folder/ZSnes";
    // The command line, the program (empty: nothing to start) and its arguments.
    const std::tuple<QString, QString, QStringList> cases[] = {
        {R"("%T/Emu Folder/ZSnes" -v "a b")", zsnes, {"-v", "a b"}},
        {R"(  "%T/emu folder/zsnes")", zsnes, {}},
        {R"("%T/Emu Folder/ZSnes)", zsnes, {}},
        {R"(%T/emu folder/zsnes -v game.smc)", zsnes, {"-v", "game.smc"}},
        {R"(%T/EMU FOLDER/snes9x.SH x)", "/bin/sh", {"%T/Emu Folder/Snes9X.sh", "x"}},
        {R"(%T/run me now)", "%T/Run", {"me", "now"}},
        {R"(%T/nothing here)", {}, {}},
        {R"("%T/Emu Folder" x)", {}, {}},
        {"", {}, {}},
        {R"(zsnes "a b")", zsnes, {"a b"}}, // from the current folder
    };
    QDir::setCurrent(TempPath("Emu Folder"));
    for (auto [commandLine, program, arguments] : cases) {
        const ParsedCommand parsed = ParseCommandLine(commandLine.replace("%T", TempPath()));
        EXPECT_EQ(parsed.Program, program.replace("%T", TempPath())) << commandLine.toStdString();
        EXPECT_EQ(parsed.Arguments, arguments.replaceInStrings("%T", TempPath()));
    }
}

TEST(SplitArguments, QuotesGroupAndBackslashesEscapeOnlyBeforeAQuote) {
    const std::pair<const char*, QStringList> cases[] = {
        {"a  b\tc", {"a", "b", "c"}},
        {R"( "a b" c )", {"a b", "c"}},
        {R"(a"b c"d)", {"ab cd"}},
        {R"("" x)", {"", "x"}},
        {R"("say ""hi""")", {R"(say "hi")"}},
        {R"(C:\Games\ a\\b)", {R"(C:\Games\)", R"(a\\b)"}},
        {R"(\"x\")", {R"("x")"}},
        {R"("a\\" b)", {R"(a\)", "b"}},
        {R"("unclosed b)", {"unclosed b"}},
        {"", {}},
    };
    for (const auto& [text, arguments] : cases)
        EXPECT_EQ(SplitArguments(QString::fromUtf8(text)), arguments) << text;

    const QStringList awkward{
        R"(It's "a" game; $(touch pwned) & b.smc)", R"(a\)", R"(a\\"b)", "", "tab\there", "plain"};
    QStringList quoted;
    for (const QString& argument : awkward)
        quoted.append(QuoteCommandLineArgument(argument));
    EXPECT_EQ(SplitArguments(quoted.join(' ')), awkward);
    EXPECT_EQ(quoted.last(), "plain");
}

} // namespace
