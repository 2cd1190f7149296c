#include "catalogue/AppState.h"
#include "cli/CliLog.h"
#include "cli/CliPrompts.h"
#include "cli/CliSupport.h"
#include "config/StoreWriterLock.h"
#include "launch/LaunchEmu.h"
#include "platform/RealShell.h"
#include "snapshots/SnapshotWizard.h"

namespace {

// After play there is no window to show the wizard in: the new images are listed
// (the first one is already the snapshot when "Snapshots_AutoUse1st" is on).
class ListedWizard final : public SnapshotWizardView {
public:
    explicit ListedWizard(QTextStream& out) : m_out(out) {}
    void ShowModal(SnapshotWizard& wizard) override {
        m_out << "New images in " << wizard.FilePath() << ":\n";
        for (const QString& image : wizard.NewImages())
            m_out << "  " << image << '\n';
    }

private:
    QTextStream& m_out;
};

} // namespace

int RunLaunch(CliContext& context, const QStringList& arguments) {
    QStringList rest = arguments;
    const std::optional<GameChoice> choice = TakeGameChoice(rest);
    if (!choice)
        return UsageError(context, QStringLiteral("usage: launch --index N, or launch CAPTION"));
    AppState& state = context.State;
    StoreWriterLock lock(state.Store, StoreWriterLock::Holder::Command);
    if (!ClaimStore(context, lock))
        return ExitFailed;
    LoadCatalogue(context);
    const std::optional<int> index = FindChosenGame(context, *choice);
    if (!index)
        return ExitFailed;

    CliPrompts prompts(context.Err);
    RealShell shell(prompts, [](const QString&) { return false; });
    ListedWizard wizard(context.Out);
    EmulatorLauncher launcher(state, prompts, shell, wizard);
    const LaunchEnd end = launcher.Launch(*index);
    const QString reason = context.Log.LastLine();
    // The launch notes the extracted names of a zipped game in its record.
    ExportGameList(state, Store, QString());
    if (end == LaunchEnd::Ended)
        return ExitOk;
    context.Err << "lumbra-cli: " << reason << '\n';
    return ExitFailed;
}
