#include "app/AppState.h"
#include "app/AppTitle.h"
#include "app/Startup.h"
#include "config/StoreWriterLock.h"
#include "launch/Launcher.h"
#include "launch/TerminationRequests.h"
#include "ui/QtPrompts.h"
#include "ui/StartLumbra.h"
#include "ui/frmMain.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(AppTitle);
    QApplication::setApplicationVersion(QStringLiteral(LUMBRA_VERSION));
    // The program lives as long as the main window, whatever else is open.
    QApplication::setQuitOnLastWindowClosed(false);

    AppState state;
    QtPrompts prompts;
    StoreWriterLock storeWriter(state.Store, StoreWriterLock::Holder::Window);
    if (!ClaimStoreForWindow(storeWriter, prompts))
        return 1;
    PendingLauncher launcher;
    const std::unique_ptr<frmMain> window =
        StartLumbra(state, prompts, launcher, QApplication::arguments().mid(1));
    prompts.SetParent(window.get());
    QObject::connect(window.get(), &frmMain::Closed, &app, &QApplication::quit);
    QObject::connect(&app, &QGuiApplication::commitDataRequest, window.get(),
                     [&window] { window->CloseFor(frmMain::AppWindows); });
    WatchTerminationRequests([&window] { window->CloseFor(frmMain::FormTaskManager); });
    window->show();
    return QApplication::exec();
}
