#include "ui/StartLumbra.h"

#include "app/FoundDefaultOffer.h"
#include "app/Startup.h"
#include "base/EventLog.h"
#include "catalogue/AppState.h"
#include "ui/frmEventLog.h"
#include "ui/frmMain.h"

std::unique_ptr<frmMain> StartLumbra(AppState& state, Prompts& prompts, SystemShell& shell,
                                     Launcher& launcher, const QStringList& arguments) {
    frmEventLog::Install();
    state.PictureTypes = FillPictureTypes();
    if (IsDebugSwitch(arguments)) {
        EventLog::SetDebugMode(true);
        EventLog::OpenView();
    }
    LoadConfiguration(state);
    OfferFoundDefaultEmulator(state, prompts);
    auto window = std::make_unique<frmMain>(state, prompts, shell, launcher);
    window->Form_Load();
    return window;
}
