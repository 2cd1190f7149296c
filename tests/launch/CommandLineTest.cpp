#include "launch/CommandLine.h"
#include "support/TestFixtures.h"

#include <QDir>
#include <QFile>

namespace {

class CommandLineTest : public LumbraTest {
protected:
    void WriteProgram(const QString& relativePath, bool executable) {
        QFile(WriteFile(relativePath, "#!/bin/sh\n"))
            .setPermissions(QFile::ReadOwner | QFile::WriteOwner |
                            (executable ? QFile::ExeOwner : QFile::Permissions()));
    }
    QString WithRoot(QString text) const { return text.replace(QStringLiteral("%T"), TempPath()); }
};

TEST_F(CommandLineTest, TheProgramIsTheFirstExistingFileAmongThePrefixes) {
    WriteProgram(QStringLiteral("Emu Folder/ZSnes"), true);
    WriteProgram(QStringLiteral("Emu Folder/Snes9X.sh"), false);
    WriteProgram(QStringLiteral("Run"), true);
    WriteProgram(QStringLiteral("Run Me"), true);
    MakeFolder(QStringLiteral("Emu"));
    const QString zsnes = QStringLiteral("%T/Emu Folder/ZSnes");

    const struct {
        const char* commandLine;
        QString program; // empty: nothing to start
        QStringList arguments;
    } cases[] = {
        {R"("%T/Emu Folder/ZSnes" -v "a b")", zsnes, {"-v", "a b"}},
        {R"(  "%T/emu folder/zsnes")", zsnes, {}},
        {R"("%T/Emu Folder/ZSnes)", zsnes, {}},
        {R"(%T/emu folder/zsnes -v game.smc)", zsnes, {"-v", "game.smc"}},
        {R"(%T/EMU FOLDER/snes9x.SH x)", "/bin/sh", {"%T/Emu Folder/Snes9X.sh", "x"}},
        {R"(%T/run me now)", "%T/Run", {"me", "now"}},
        {R"(%T/nothing here)", {}, {}},
        {R"("%T/Emu Folder" x)", {}, {}},
        {R"("%T/Emu Folder/missing" x)", {}, {}},
        {"", {}, {}},
        {R"(zsnes "a b")", zsnes, {"a b"}}, // from the current folder
    };
    const QString saved = QDir::currentPath();
    QDir::setCurrent(TempPath(QStringLiteral("Emu Folder")));
    for (auto [commandLine, program, arguments] : cases) {
        const ParsedCommand parsed = ParseCommandLine(WithRoot(QString::fromUtf8(commandLine)));
        EXPECT_EQ(parsed.Program, WithRoot(program)) << commandLine;
        EXPECT_EQ(parsed.Arguments, arguments.replaceInStrings(QStringLiteral("%T"), TempPath()))
            << commandLine;
    }
    QDir::setCurrent(saved);
}

TEST(SplitArguments, QuotesGroupAndBackslashesEscapeOnlyBeforeAQuote) {
    const struct {
        const char* text;
        QStringList arguments;
    } cases[] = {
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
    EXPECT_EQ(SplitArguments(quoted.join(QLatin1Char(' '))), awkward);
    EXPECT_EQ(quoted.last(), QStringLiteral("plain"));
}

} // namespace
