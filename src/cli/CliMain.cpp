#include "catalogue/AppState.h"
#include "cli/CliCommands.h"
#include "cli/CliLog.h"
#include "platform/ShortPath.h"

#include <QCoreApplication>
#include <QTextStream>
#include <cstdio>
#include <map>

namespace {

const char* const Usage = R"(Usage: lumbra-cli [--debug] COMMAND [ARGUMENTS]

Lumbra's command-line front: inspect SNES game images and set up the catalogue
from a terminal. It reads and writes the same settings store as Lumbra.

Commands:
  info [--json] FILE...      the internal header of each game file and its caption;
                             for a zip, the header of the game inside ("game")
  list [--group NAME] [--filter WORDS] [--json]
       [--sort last-played|play-count|play-time]
                             the captions the game list shows for a group (default:
                             the default group; "All Games" lists every game), in
                             its order; --filter keeps the games whose caption or
                             file name holds every word (case and accents aside);
                             --sort puts the most recently played, most often or
                             longest played first; --json prints their records,
                             or every record when none of --group, --filter,
                             --sort is given
  scan                       rescan the game folders and store the game list
  folders list               the game folders
  folders add|remove PATH    add or remove a game folder
  groups list                the groups, "Ungrouped" first
  groups add|remove NAME     add or remove a group
  config list                every setting of the "Settings" and "Folders" sections
  config get KEY             one setting ("DefaultEmulator", "Snapshot Folder", ...)
  config set KEY VALUE       change one setting
  emulators list             the three emulators and their folders, then the ones
                             that detect found
  emulators detect [--json]  look for the emulators of the catalogue (RetroArch and
                             its SNES cores, Mednafen, snes9x, bsnes, ares, Mesen...)
                             and store what is found; nothing is started
  emulators set NAME [--folder DIR] [--save-folder DIR] [--profile NAME]
                             set up an emulator (Nlke, Snes9X or ZSnes)
  emulators set NAME [--profile NAME] [--command TEXT] [--state-folder DIR]
         [--save-folder DIR] [--screenshot-folder DIR]
                             change a found emulator: its command (with {program},
                             {core}, {options} and {game}), default profile, and the
                             folders of its files ("" for the emulator's own)
  emulators remove NAME      forget a found emulator
  profiles list [EMULATOR]   the settings profiles of one emulator, or of all
  profiles set EMULATOR PROFILE "OPTION TEXT"
                             add or change a profile: the options it passes
  profiles remove EMULATOR PROFILE
                             remove a profile
  launch --index N | CAPTION play a game as a double click in Lumbra would: message
                             boxes go to standard error and take their default
                             answer; after play the new screenshots are listed (or
                             the first becomes the snapshot, "Snapshots_AutoUse1st")
  states [--json] --index N | CAPTION
                             a game's snapshot and every file its emulators wrote:
                             save states, battery saves, screenshots
  export [--method entire|folder PATH|group NAME|pattern GLOB] [--sort KEY]
         [--columns KEY,KEY,...] [--format text|html] [--force] FILE|-
                             write the game list as a text table or an HTML page,
                             to FILE or standard output (-); keys: caption, group,
                             file-size, file-type, filename, folder. What is not
                             given comes from the export dialog's last choices;
                             an existing FILE is replaced only with --force

Options:
  --debug                    write the event log to standard error
  --help                     show this help

Exit status: 0 done, 1 refused or failed, 2 usage error.
)";

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);

    QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool debug = arguments.removeAll(QStringLiteral("--debug")) > 0;
    if (arguments.contains(QStringLiteral("--help")) || arguments.contains(QStringLiteral("-h"))) {
        out << Usage;
        return ExitOk;
    }
    if (arguments.isEmpty()) {
        err << Usage;
        return ExitUsage;
    }

    using Command = int (*)(CliContext&, const QStringList&);
    const std::map<QString, Command> commands = {
        {QStringLiteral("info"), RunInfo},           {QStringLiteral("list"), RunList},
        {QStringLiteral("scan"), RunScan},           {QStringLiteral("folders"), RunFolders},
        {QStringLiteral("groups"), RunGroups},       {QStringLiteral("config"), RunConfig},
        {QStringLiteral("emulators"), RunEmulators}, {QStringLiteral("launch"), RunLaunch},
        {QStringLiteral("export"), RunExport},       {QStringLiteral("profiles"), RunProfiles},
        {QStringLiteral("states"), RunStates}};
    const QString name = arguments.takeFirst();
    const auto command = commands.find(name);
    if (command == commands.end()) {
        err << "lumbra-cli: unknown command: " << name << "\nTry 'lumbra-cli --help'.\n";
        return ExitUsage;
    }

    AppState state;
    CliLog log(debug);
    CliContext context{state, log, out, err};
    const int status = command->second(context, arguments);
    // A game started without waiting may still need its short-path links.
    if (name != QLatin1String("launch"))
        RemoveShortPathLinks();
    // A command that reports success must have stored what it changed.
    if (const QString failure = state.Store.WriteError(); !failure.isEmpty()) {
        err << "lumbra-cli: " << failure << '\n';
        return ExitFailed;
    }
    return status;
}
