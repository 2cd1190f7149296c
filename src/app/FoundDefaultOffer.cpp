#include "app/FoundDefaultOffer.h"

#include "base/Prompts.h"
#include "base/StringHelpers.h"
#include "catalogue/AppState.h"
#include "emulators/EmulatorCatalogue.h"
#include "emulators/EmulatorDetection.h"
#include "emulators/EmulatorEnvironment.h"
#include "emulators/FoundEmulators.h"

namespace {

const QString OfferedKey = QStringLiteral("FoundEmulatorOffered");

bool AnyOwnEmulatorSetUp(const EmulatorTable& emulators) {
    for (const EmulatorRecord& emulator : emulators.Records) {
        if (!TrimBlanks(emulator.Folder).isEmpty())
            return true;
    }
    return false;
}

} // namespace

bool OfferFoundDefaultEmulator(AppState& state, Prompts& prompts) {
    SettingsStore& store = state.Store;
    if (!store.Read(QStringLiteral("Settings"), OfferedKey, QString()).isEmpty() ||
        AnyOwnEmulatorSetUp(state.Emulators) ||
        FindFoundEmulator(store, state.Options.DefaultEmulator))
        return false;
    // Found again now, in the catalogue's order; what the player changed is kept.
    const QList<FoundEmulator> found =
        StoreDetectedEmulators(store,
                               DetectEmulators(LoadEmulatorCatalogue(), EmulatorEnvironment()))
            .Found;
    if (found.isEmpty())
        return false;
    const QString best = found.first().Name;
    const bool yes =
        prompts.Message(best +
                            QStringLiteral(" was found on this system, and no emulator is "
                                           "set up yet.\r\n\r\nPlay your games with ") +
                            best + QStringLiteral("?"),
                        PromptButtons::YesNo, PromptIcon::Question) == PromptAnswer::Yes;
    if (yes)
        state.Options.DefaultEmulator = best;
    store.Write(QStringLiteral("Settings"), OfferedKey,
                yes ? QStringLiteral("1") : QStringLiteral("0"));
    return yes;
}
