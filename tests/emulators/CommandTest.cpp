#include "support/TestFixtures.h"

#include "emulators/EmulatorCommand.h"
#include "emulators/FoundEmulators.h"

namespace {

TEST(EmulatorCommandTest, PlaceholdersBecomeWholeArgumentsAndNothingIsReadByAShell) {
    struct Case {
        QString Command;
        QString Options;
        QStringList Expected; // program first
    };
    const QString game = "/games/Super Metroid (U) $(touch x).sfc";
    const QList<Case> cases{
        {"{program} -L {core} {options} {game}", "", {"/bin/ra", "-L", "/cores/a b.so", game}},
        {"{program} -L {core} {options} {game}",
         " -f  \"--appendconfig=/my cfg\" ",
         {"/bin/ra", "-L", "/cores/a b.so", "-f", "--appendconfig=/my cfg", game}},
        {"{program} run com.snes9x.Snes9x {options} {game}",
         "-mutesound",
         {"/bin/ra", "run", "com.snes9x.Snes9x", "-mutesound", game}},
        {"{program} --rom={game} {unknown} {slot:3}",
         "",
         {"/bin/ra", "--rom=" + game, "{unknown}", "{slot:3}"}},
        {"\"/opt/my emu/run\" \"{game}\"", "x", {"/opt/my emu/run", game}},
        {"", "-f", {""}},
    };
    FoundEmulator emulator;
    emulator.Program = "/bin/ra";
    emulator.Core = "/cores/a b.so";
    for (const Case& test : cases) {
        emulator.Command = test.Command;
        const EmulatorCommand command = ExpandEmulatorCommand(emulator, test.Options, game);
        EXPECT_EQ(QStringList{command.Program} + command.Arguments, test.Expected)
            << test.Command.toStdString();
    }

    emulator.Command = "{program} -L {core} {options} {game}";
    EXPECT_EQ(CommandPreview(emulator), "/bin/ra -L \"/cores/a b.so\" {options} {game}");
}

} // namespace
