#include "app/AppState.h"
#include "app/AppTitle.h"
#include "app/EventLog.h"
#include "app/Startup.h"
#include "launch/Launcher.h"
#include "ui/QtPrompts.h"
#include "ui/frmEventLog.h"
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
    PendingLauncher launcher;

    frmEventLog::Install();
    state.PictureTypes = FillPictureTypes();
    if (IsDebugSwitch(QApplication::arguments().mid(1))) {
        EventLog::SetDebugMode(true);
        EventLog::OpenView();
    }
    LoadConfiguration(state);

    frmMain window(state, prompts, launcher);
    prompts.SetParent(&window);
    QObject::connect(&window, &frmMain::Closed, &app, &QApplication::quit);
    QObject::connect(&app, &QGuiApplication::commitDataRequest, &window,
                     [&window] { window.CloseFor(frmMain::AppWindows); });
    window.Form_Load();
    window.show();
    return QApplication::exec();
}
