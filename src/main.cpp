#include "app/Startup.h"
#include "base/AppTitle.h"
#include "catalogue/AppState.h"
#include "config/StoreWriterLock.h"
#include "launch/LaunchEmu.h"
#include "platform/DocumentOpener.h"
#include "platform/RealShell.h"
#include "platform/TerminationRequests.h"
#include "ui/QtPrompts.h"
#include "ui/SnapshotWizardDialogView.h"
#include "ui/StartLumbra.h"
#include "ui/frmMain.h"

#include <QApplication>
#include <QDesktopServices>
#include <QIcon>
#include <QUrl>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(AppTitle);
    QApplication::setApplicationVersion(QStringLiteral(LUMBRA_VERSION));
    // The installed icon and menu entry (data/), so that desktops match the window to them.
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral(LUMBRA_APP_ID),
                                                 QIcon(QStringLiteral(":/icons/lumbra-256.png"))));
    QApplication::setDesktopFileName(QStringLiteral(LUMBRA_APP_ID));
    // The program lives as long as the main window, whatever else is open.
    QApplication::setQuitOnLastWindowClosed(false);

    // Watched from the start: a request that comes during the load closes the window
    // (and saves) as soon as the window is there.
    frmMain* mainWindow = nullptr;
    bool closeRequested = false;
    WatchTerminationRequests([&mainWindow, &closeRequested] {
        if (mainWindow)
            mainWindow->CloseFor(frmMain::FormTaskManager);
        else
            closeRequested = true;
    });

    AppState state;
    QtPrompts prompts;
    StoreWriterLock storeWriter(state.Store, StoreWriterLock::Holder::Window);
    if (!ClaimStoreForWindow(storeWriter, prompts))
        return 1;
    RealShell shell(prompts, [](const QString& document) {
        return HasProgramToOpen(document) &&
               QDesktopServices::openUrl(QUrl::fromLocalFile(document));
    });
    SnapshotWizardDialogView wizardView;
    EmulatorLauncher launcher(state, prompts, shell, wizardView);
    const std::unique_ptr<frmMain> window =
        StartLumbra(state, prompts, shell, launcher, QApplication::arguments().mid(1));
    prompts.SetParent(window.get());
    QObject::connect(window.get(), &frmMain::Closed, &app, &QApplication::quit);
    QObject::connect(&app, &QGuiApplication::commitDataRequest, window.get(),
                     [&window] { window->CloseFor(frmMain::AppWindows); });
    window->show();
    mainWindow = window.get();
    if (closeRequested) // once the event loop runs, so that its end can be asked for
        QMetaObject::invokeMethod(
            window.get(), [&window] { window->CloseFor(frmMain::FormTaskManager); },
            Qt::QueuedConnection);
    const int status = QApplication::exec();
    launcher.ReleaseDetachedPlay();
    return status;
}
