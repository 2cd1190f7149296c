#include "launch/LaunchEmu.h"

#include "base/EventLog.h"
#include "base/Prompts.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "catalogue/PlayStatistics.h"
#include "config/Emulators.h"
#include "config/Profiles.h"
#include "emulators/FoundEmulatorTable.h"
#include "launch/PlayWizard.h"
#include "platform/CommandLine.h"
#include "platform/PathResolver.h"
#include "platform/SystemShell.h"
#include "rom/DecompressGame.h"
#include "rom/GameImage.h"
#include "snapshots/SnapshotWizard.h"

#include <QFileInfo>

namespace {

const QString Flush = QStringLiteral("flush");

// The game's profile, else (none, or "Default") the emulator's default profile; empty when neither
// is set.
QString OptionText(const SettingsStore& store, const FoundEmulator& emulator,
                   const QString& gameProfile) {
    const QString profile = ChosenOrDefault(gameProfile, emulator.DefaultProfile);
    return profile.isEmpty() ? QString() : TrimBlanks(ReadProfile(store, emulator.Name, profile));
}

QString CommandText(const EmulatorCommand& command) {
    QStringList words{QFileInfo(command.Program).fileName()};
    for (const QString& argument : command.Arguments)
        words.append(QuoteCommandLineArgument(argument));
    return words.join(QLatin1Char(' '));
}

} // namespace

QString EarlyFailureText(const QString& emulatorName, const ProgramEnd& end) {
    QString text;
    if (!end.Started)
        text = emulatorName + QStringLiteral(" could not be started: ") + end.StartError;
    else if (end.Crashed)
        text = emulatorName + QStringLiteral(" stopped at once: it crashed.");
    else
        text = emulatorName + QStringLiteral(" stopped at once with exit status ") +
               QString::number(end.ExitStatus) + QStringLiteral(".");
    if (!end.ErrorTail.isEmpty())
        text += QStringLiteral("\r\n\r\n") + end.ErrorTail;
    return text;
}

static void ReportEarlyFailure(Prompts& prompts, const QString& emulatorName,
                               const ProgramEnd& end) {
    const QString text = EarlyFailureText(emulatorName, end);
    LogEvent(QStringLiteral("    Emulator Failed: ") +
             QString(text).replace(QStringLiteral("\r\n\r\n"), QStringLiteral("\r\n")));
    prompts.Message(text, PromptButtons::Ok, PromptIcon::Exclamation);
}

LaunchEnd EmulatorLauncher::LaunchFound(GameRecord& game, const FoundEmulatorTable& table,
                                        const FoundEmulator& emulator) {
    const QString realGame = PathResolver().Resolve(game.Folder + game.Filename);
    const bool zipped = IsZippedGame(game.Filename);
    if (realGame.isEmpty()) {
        ReportMissingGame(game.Filename);
        LogEvent(QStringLiteral("} EXIT LaunchEmu (Error, file not found)"));
        return LaunchEnd::GameNotFound;
    }
    QString gamePath = realGame;
    const bool extracted = zipped && !table.ReadsZip(emulator.Name);
    if (extracted) {
        LogEvent(QStringLiteral("    Decompressing: ") + realGame + QStringLiteral("..."));
        const QString fileName = DecompressGame(m_state.Unzip, m_state.Options.UnzipFolder,
                                                m_prompts, game.Folder + game.Filename);
        LogEvent(QStringLiteral("done."), true);
        if (fileName.isEmpty()) {
            ReportEmptyArchive();
            LogEvent(QStringLiteral("} EXIT LaunchEmu (Error, file not found)"));
            return LaunchEnd::GameNotFound;
        }
        game.ExtractedFile = fileName;
        gamePath =
            PathResolver().ResolveOrKeep(AddBackslash(m_state.Options.UnzipFolder) + fileName);
    }
    LogEvent(QStringLiteral("    Filename: ") + gamePath);
    LogEvent(QStringLiteral("    Settings Profile: ") + game.Profile + QStringLiteral("\r\n"));
    LogEvent(QStringLiteral("    Emulator: ") + emulator.Name);

    const std::optional<EmulatorCommand> command =
        table.Command(emulator.Name, OptionText(m_state.Store, emulator, game.Profile), gamePath);
    const QString folder = QFileInfo(realGame).absolutePath();
    const QString name = emulator.Name;
    if (!command || command->Program.isEmpty()) {
        ProgramEnd none;
        none.StartError = QStringLiteral("no program");
        ReportEarlyFailure(m_prompts, name, none);
        if (extracted)
            DecompressGame(m_state.Unzip, m_state.Options.UnzipFolder, m_prompts, Flush);
        LogEvent(QStringLiteral("} EXIT LaunchEmu (No Launch File Exists)"));
        return LaunchEnd::NoLaunchFile;
    }
    LogEvent(QStringLiteral("    Launch File: ") + command->Program);
    LogEvent(QStringLiteral("    Command Line Defined"));

    const Settings& options = m_state.Options;
    bool failed = false;
    const QElapsedTimer playClock = StartPlay(m_state.Store, game);
    if (options.Snapshots_UseWizard != 1) {
        LogEvent(QStringLiteral("    Shell Using: ShellExecute (Win32 API)"));
        Prompts& prompts = m_prompts;
        m_shell.StartProgram(
            command->Program, command->Arguments, folder,
            [&prompts, name](const ProgramEnd& end) { ReportEarlyFailure(prompts, name, end); });
        if (extracted)
            KeepExtractedFiles(m_state.Unzip);
    } else {
        SnapshotWizard wizard(m_state, m_prompts);
        wizard.SetRomFilename(game.Filename);
        // The emulator names its files after the game it was given: the extracted one
        // when it does not read zips.
        const std::optional<EmulatorGameFiles> files = table.GameFiles(name, gamePath);
        if (files && !files->ScreenshotFolder.isEmpty()) {
            const EmulatorGameFiles names = *files;
            wizard.SetImageFilter(
                [names](const QString& image) { return names.IsScreenshot(image); });
            ArmWizard(wizard, options, files->ScreenshotFolder);
        }
        LogEvent(QStringLiteral("    Shell Using: ShellAndWait (WaitForSingleObject Win32 API)"));
        if (options.ShowCommandLine != 0)
            m_prompts.Message(CommandText(*command));
        const ProgramEnd end = m_shell.RunProgram(command->Program, command->Arguments, folder);
        EndPlay(m_state.Store, game, playClock);
        if (end.FailedEarly()) {
            failed = true;
            ReportEarlyFailure(m_prompts, name, end);
        }
        OfferNewImages(wizard, options, m_wizardView);
        if (extracted)
            DecompressGame(m_state.Unzip, m_state.Options.UnzipFolder, m_prompts, Flush);
    }
    LogEvent(QStringLiteral("} END LaunchEmu"));
    return failed ? LaunchEnd::Failed : LaunchEnd::Ended;
}
