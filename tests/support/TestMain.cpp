#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// Every suite runs against its own temporary XDG folders, so no test touches the
// player's real settings store, and headless unless a display is asked for.
int main(int argc, char** argv) {
    QTemporaryDir xdgRoot;
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
        const QString folder = xdgRoot.path() + QLatin1Char('/') + QString::fromLatin1(variable);
        QDir().mkpath(folder);
        qputenv(variable, folder.toLocal8Bit());
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
