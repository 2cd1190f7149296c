#include "launch/LaunchEmu.h"

#include "base/AppTitle.h"
#include "base/ErrorReport.h"
#include "base/EventLog.h"
#include "base/Prompts.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "catalogue/PlayStatistics.h"
#include "config/Emulators.h"
#include "config/Profiles.h"
#include "emulators/FoundEmulatorTable.h"
#include "launch/PlayWizard.h"
#include "platform/PathResolver.h"
#include "platform/ShortPath.h"
#include "platform/SystemShell.h"
#include "rom/DecompressGame.h"
#include "rom/GameImage.h"
#include "snapshots/SnapshotWizard.h"

#include <QDir>

namespace {

const QString Flush = QStringLiteral("flush");
constexpr int SubscriptOutOfRange = 9;
constexpr int InvalidArgument = 5;

// A step that cannot go on: the launch ends through its error report.
struct RunTimeError {
    int Number;
    QString Description;
};

void Log(const QString& line) {
    LogEvent(line);
}

// The folder a program is looked for in: nothing when the emulator is not set up.
QString ProbeInFolder(const QString& folder, const QString& name) {
    if (TrimBlanks(folder).isEmpty())
        return QString();
    return GetShortPath(AddBackslash(folder) + name);
}

// The game's own launch file beside it, as the file system spells it: .pif, then .bat,
// then .sh; empty when there is none. Looking makes no link.
QString FindGameLaunchFile(const QString& base) {
    PathResolver resolver;
    for (const char* extension : {".pif", ".bat", ".sh"}) {
        const QString launchFile = resolver.Resolve(base + QLatin1String(extension));
        if (!launchFile.isEmpty())
            return launchFile;
    }
    return QString();
}

// The short path of the game's own launch file, or empty.
QString GameLaunchFile(const QString& base) {
    const QString launchFile = FindGameLaunchFile(base);
    return launchFile.isEmpty() ? QString() : GetShortPath(launchFile);
}

} // namespace

void EmulatorLauncher::ReportMissingGame(const QString& fileName) {
    m_prompts.Message(
        fileName + QStringLiteral("\r\nCan no longer be found!\r\n\r\n") +
            QStringLiteral("Solution: If you are storing your ROMs on removable "
                           "media ") +
            QStringLiteral("insert the media and try again. Otherwise the file was ") +
            QStringLiteral("deleted/moved/renamed while ") + AppTitle +
            QStringLiteral(" was running, to correct the problem exit ") + AppTitle +
            QStringLiteral(", then open it back up."),
        PromptButtons::Ok, PromptIcon::Exclamation);
}

void EmulatorLauncher::ReportEmptyArchive() {
    m_prompts.Message(QStringLiteral("No SNES game file was found in the requested file, ") +
                          QStringLiteral("you may want to remove the file from the list "
                                         "(Right-Click the file to bring up the menu)"),
                      PromptButtons::Ok, PromptIcon::Exclamation);
}

EmulatorLauncher::EmulatorLauncher(AppState& state, Prompts& prompts, SystemShell& shell,
                                   SnapshotWizardView& wizardView)
    : m_state(state), m_prompts(prompts), m_shell(shell), m_wizardView(wizardView) {}

void EmulatorLauncher::ReleaseDetachedPlay() {
    FlushKeptFiles(m_state.Unzip, m_state.Options.UnzipFolder);
    RemoveShortPathLinks();
}

LaunchEnd EmulatorLauncher::Launch(int gameIndex) {
    const QString savedFolder = QDir::currentPath();
    ReleaseDetachedPlay();
    Log(QStringLiteral("\r\n{ BEGIN LaunchEmu"));
    try {
        if (gameIndex < 0 || gameIndex >= GameList::Capacity)
            throw RunTimeError{SubscriptOutOfRange, QStringLiteral("Subscript out of range")};
        GameRecord& game = m_state.Games.Records[gameIndex];
        const Settings& options = m_state.Options;
        Log(QStringLiteral("    Game Caption: ") + game.Caption);
        game.Folder = AddBackslash(game.Folder);

        // An emulator Lumbra found is started directly with the game's real path, unless
        // the game has its own launch file.
        const QString chosenEmulator = ChosenOrDefault(game.Emulator, options.DefaultEmulator);
        if (m_state.Emulators.FindEmulatorIndex(chosenEmulator) < 0) {
            const FoundEmulatorTable table(m_state.Store, LoadEmulatorCatalogue());
            const FoundEmulator* found = table.Find(chosenEmulator);
            const int dot = InStrLast(game.Filename, QStringLiteral("."));
            const bool ownLaunchFile =
                options.RomBatchFileSupport == 1 && dot > 0 && !IsZippedGame(game.Filename) &&
                !FindGameLaunchFile(game.Folder + game.Filename.left(dot - 1)).isEmpty();
            if (found && !ownLaunchFile) {
                const LaunchEnd end = LaunchFound(game, table, *found);
                QDir::setCurrent(savedFolder);
                return end;
            }
        }

        QString launchFolder;
        QString launchFileName;
        const bool zipped = IsZippedGame(game.Filename);
        if (!zipped) {
            launchFolder = game.Folder;
            launchFileName = game.Filename;
        } else {
            // Both pieces are still empty here, so the line reads "Decompressing: ...".
            Log(QStringLiteral("    Decompressing: ") + launchFolder + launchFileName +
                QStringLiteral("..."));
            launchFileName = DecompressGame(m_state.Unzip, m_state.Options.UnzipFolder, m_prompts,
                                            game.Folder + game.Filename);
            LogEvent(QStringLiteral("done."), true);
            launchFolder = AddBackslash(options.UnzipFolder);
            Log(QStringLiteral("    Filename: ") + launchFolder + launchFileName);
            game.ExtractedFile = launchFileName;
            game.ExtractedShortName = GetFileName(GetShortPath(launchFolder + launchFileName));
        }

        // The game's own launch file, beside it: .pif, then .bat, then .sh. Files that
        // came out of an archive are data, never programs: a zipped game has none.
        QString launchFile;
        bool gameLaunchFile = false;
        if (options.RomBatchFileSupport == 1 && !zipped) {
            const int dot = InStrLast(launchFileName, QStringLiteral("."));
            if (dot == 0)
                throw RunTimeError{InvalidArgument,
                                   QStringLiteral("Invalid procedure call or argument")};
            launchFile = GameLaunchFile(launchFolder + launchFileName.left(dot - 1));
            gameLaunchFile = !launchFile.isEmpty();
        }

        if (launchFileName.isEmpty() && !gameLaunchFile) {
            if (zipped)
                ReportEmptyArchive();
            else
                ReportMissingGame(game.ExtractedFile);
            Log(QStringLiteral("} EXIT LaunchEmu (Error, file not found)"));
            return LaunchEnd::GameNotFound;
        }
        if (!zipped && !gameLaunchFile) {
            Log(QStringLiteral("    Filename: ") + launchFolder + launchFileName);
            Log(QStringLiteral("    Settings Profile: ") + game.Profile + QStringLiteral("\r\n"));
        }

        int emulatorIndex = -1;
        if (!gameLaunchFile) {
            emulatorIndex = m_state.Emulators.FindEmulatorIndex(chosenEmulator);
            if (emulatorIndex < 0)
                throw RunTimeError{SubscriptOutOfRange, QStringLiteral("Subscript out of range")};
            const EmulatorRecord& emulator = m_state.Emulators.Records[emulatorIndex];
            Log(QStringLiteral("    Emulator: ") + emulator.LaunchFiles);
            for (const QString& pattern : emulator.LaunchFiles.split(QLatin1Char(';'))) {
                if (!pattern.isEmpty() && !ProbeInFolder(emulator.Folder, pattern).isEmpty()) {
                    launchFile = pattern.toLower();
                    break;
                }
            }
            if (launchFile.isEmpty()) {
                Log(QStringLiteral("Launch File: NONE FOUND"));
                m_prompts.Message(
                    QStringLiteral("No files were found to launch ") + chosenEmulator +
                        QStringLiteral("\r\n\r\nYou must setup this emulator in the Settings ") +
                        QStringLiteral("dialog in order to use this emulator.\r\n") +
                        QStringLiteral("If you have already done this and get this message ") +
                        QStringLiteral("check to be sure one of these files are present in the ") +
                        QStringLiteral("folder you specified: ") + emulator.LaunchFiles +
                        QStringLiteral("\r\n\r\nHow To Get There: On the main window Click the "
                                       "'Options' menu, ") +
                        QStringLiteral("choose 'Front-End Settings', and choose 'Emulators' in "
                                       "the 'Configure' ") +
                        QStringLiteral("dropdown list."),
                    PromptButtons::Ok, PromptIcon::Information);
                if (zipped)
                    DecompressGame(m_state.Unzip, m_state.Options.UnzipFolder, m_prompts, Flush);
                Log(QStringLiteral("} EXIT LaunchEmu (No Launch File Exists)"));
                return LaunchEnd::NoLaunchFile;
            }
        }
        Log(QStringLiteral("    Launch File: ") + launchFile.toLower());

        // The wizard looks for new screenshots in the save folders.
        for (EmulatorRecord& emulator : m_state.Emulators.Records)
            emulator.SnapshotFolder = emulator.SaveFolder;

        const QElapsedTimer playClock = StartPlay(m_state.Store, game);
        if (gameLaunchFile) {
            Log(QStringLiteral("    Shell Using: ShellExecute (Win32 API)"));
            m_shell.ShellExecute(launchFile, QString(), QString());
        } else {
            const EmulatorRecord& emulator = m_state.Emulators.Records[emulatorIndex];
            const QString emulatorFolder = AddBackslash(emulator.Folder);
            const QString shortGamePath = GetShortPath(launchFolder + launchFileName);
            if (shortGamePath.isEmpty() && !ShortPathFailure().isEmpty()) {
                // The private folder for short paths is not safe to use.
                m_prompts.Message(ShortPathFailure(), PromptButtons::Ok, PromptIcon::Exclamation);
                if (zipped)
                    DecompressGame(m_state.Unzip, m_state.Options.UnzipFolder, m_prompts, Flush);
                Log(QStringLiteral("} EXIT LaunchEmu (No Short Path)"));
                return LaunchEnd::Failed;
            }
            QDir::setCurrent(PathResolver().ResolveOrKeep(emulatorFolder));
            QString arguments = (QStringLiteral(" ") + shortGamePath).toLower();
            Log(QStringLiteral("    Command Line Defined"));
            const QString program = PathResolver().ResolveOrKeep(emulatorFolder + launchFile);
            if (options.Snapshots_UseWizard != 1) {
                // Profiles reach the emulator only in the waiting mode.
                Log(QStringLiteral("    Shell Using: ShellExecute (Win32 API)"));
                m_shell.ShellExecute(program, arguments, emulatorFolder);
            } else {
                SnapshotWizard wizard(m_state, m_prompts);
                wizard.SetRomFilename(game.Filename);
                ArmWizard(wizard, options, emulator.SnapshotFolder);
                if (!game.Profile.isEmpty()) {
                    const QString optionText = TrimBlanks(
                        ReadProfile(m_state.Store, QStringLiteral("Snes9X"), game.Profile));
                    if (emulator.Name.toLower() == QLatin1String("snes9x"))
                        arguments = QStringLiteral(" ") + optionText + arguments;
                }
                Log(QStringLiteral(
                    "    Shell Using: ShellAndWait (WaitForSingleObject Win32 API)"));
                if (options.ShowCommandLine != 0)
                    m_prompts.Message(launchFile + arguments);
                m_shell.ShellAndWait(emulatorFolder + launchFile + arguments,
                                     QStringLiteral("ShellAndWait"));
                EndPlay(m_state.Store, game, playClock);
                OfferNewImages(wizard, options, m_wizardView);
            }
        }

        const bool detached = gameLaunchFile || options.Snapshots_UseWizard != 1;
        if (zipped && detached) {
            KeepExtractedFiles(m_state.Unzip);
        } else if (zipped) {
            DecompressGame(m_state.Unzip, m_state.Options.UnzipFolder, m_prompts, Flush);
        }
        if (!detached)
            RemoveShortPathLinks();
        QDir::setCurrent(savedFolder);
        Log(QStringLiteral("} END LaunchEmu"));
        return LaunchEnd::Ended;
    } catch (const RunTimeError& error) {
        // Ends without its closing line, without a flush and in the folder it was in.
        ShowErrorReport(m_prompts, error.Number, error.Description, QStringLiteral("launchEmu"));
        return LaunchEnd::Failed;
    }
}
