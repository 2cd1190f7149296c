#include "launch/PlayWizard.h"

#include "base/EventLog.h"
#include "config/Settings.h"
#include "snapshots/SnapshotWizard.h"

namespace {

// Switch settings are check-box states, but a hand-edited -1 (true) is honoured
// in the bitwise tests, as the settings dialog's values 0 and 1 are.
bool BitwiseAny(qint16 a, qint16 b) {
    return static_cast<quint16>(a & b) != 0;
}

qint16 AsFlag(bool value) {
    return value ? -1 : 0;
}

} // namespace

void ArmWizard(SnapshotWizard& wizard, const Settings& options, const QString& folder) {
    if (!BitwiseAny(~options.Snapshots_HideIfPicExists, ~AsFlag(wizard.PicExists())))
        return;
    wizard.SetAutoUseFirst(options.Snapshots_AutoUse1st != 0);
    wizard.SetAutoRenameAll(options.Snapshots_AutoRenameAll != 0);
    wizard.SetFilePath(folder);
    LogEvent(QStringLiteral("    Snapshot Wizard Activated"));
}

void OfferNewImages(SnapshotWizard& wizard, const Settings& options, SnapshotWizardView& view) {
    wizard.SortForNewImages();
    if (wizard.ImageCount() > 0) {
        if (BitwiseAny(options.Snapshots_HideIfPicExists, AsFlag(wizard.PicExists()))) {
            LogEvent(QStringLiteral("    Snapshot Exists, Wizard Hidden"));
        } else {
            LogEvent(QStringLiteral("    Snapshot Wizard Displayed"));
            view.ShowModal(wizard);
        }
    } else {
        LogEvent(QStringLiteral("    Snapshot Wizard Deacticated: No new images found."));
    }
    if (wizard.FirstPicUsed())
        LogEvent(QStringLiteral("    Snapshot Wizard: Automatically Used First New Image"));
}
