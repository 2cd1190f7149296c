// Catalogue benchmark: lays out 1,000 SNES images over 10 folders and times the
// rebuild that the main window's load runs (scan, lay the stored data over, tag).
//
//   lumbra-bench prepare DIR   write the images (and nothing else)
//   lumbra-bench folders DIR   store the game folders alone, scanning nothing: the
//                              store that a cold scan starts from
//   lumbra-bench rebuild DIR   rebuild once with the store as it is, store the
//                              result, and print the time and the peak memory
//
// bench/run.sh drives both, and times the rebuild with and without stored data
// beside the file-system floor (lumbra-floor-scan).
#include "app/Startup.h"
#include "base/Progress.h"
#include "catalogue/AppState.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <cstdio>
#include <sys/resource.h>

namespace {

constexpr int Folders = 10;
constexpr int GamesPerFolder = 100;
constexpr int HeaderStart = 0x81C0; // LoROM behind a 512-byte copier header

QByteArray Image(int number) {
    QByteArray image(HeaderStart + 0x40, '\0');
    const QByteArray title =
        QStringLiteral("BENCH GAME %1").arg(number % 700).toLatin1().leftJustified(21, ' ');
    image.replace(HeaderStart, 21, title);
    const quint16 checksum = static_cast<quint16>(number * 37);
    const quint16 complement = checksum ^ 0xFFFF;
    image[HeaderStart + 28] = static_cast<char>(complement & 0xFF);
    image[HeaderStart + 29] = static_cast<char>(complement >> 8);
    image[HeaderStart + 30] = static_cast<char>(checksum & 0xFF);
    image[HeaderStart + 31] = static_cast<char>(checksum >> 8);
    return image;
}

QString FolderPath(const QString& root, int folder) {
    return root + QStringLiteral("/SNES Folder %1/").arg(folder, 2, 10, QLatin1Char('0'));
}

int Prepare(const QString& root) {
    for (int folder = 0; folder < Folders; ++folder) {
        QDir().mkpath(FolderPath(root, folder));
        for (int game = 0; game < GamesPerFolder; ++game) {
            const int number = folder * GamesPerFolder + game;
            QFile file(FolderPath(root, folder) +
                       QStringLiteral("Game %1.SMC").arg(number, 4, 10, QLatin1Char('0')));
            if (!file.open(QIODevice::WriteOnly) || file.write(Image(number)) < 0)
                return 1;
        }
    }
    std::printf("prepared %d games in %d folders under %s\n", Folders * GamesPerFolder, Folders,
                qPrintable(root));
    return 0;
}

int StoreFolders(const QString& root) {
    AppState state;
    for (int folder = 0; folder < Folders; ++folder)
        state.GameFolders.AddGameFolder(FolderPath(root, folder));
    ExportGameFolders(state.Store, state.GameFolders, QStringLiteral("reg"), QString());
    return state.Store.Sections() == QStringList{QStringLiteral("Folders\\Game Folders")} ? 0 : 1;
}

int Rebuild(const QString& root) {
    AppState state;
    LoadConfiguration(state);
    for (int folder = 0; folder < Folders; ++folder)
        state.GameFolders.AddGameFolder(FolderPath(root, folder));
    ImportGroupList(state, QStringLiteral("reg"), QString());

    QElapsedTimer timer;
    timer.start();
    Progress noProgress;
    RebuildGameList(state, noProgress);
    const qint64 elapsed = timer.nsecsElapsed();

    ExportGameList(state, QStringLiteral("reg"), QString());
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%d games ready in %.1f ms; peak memory %.1f MiB\n", state.Games.Count(),
                static_cast<double>(elapsed) / 1e6, static_cast<double>(usage.ru_maxrss) / 1024.0);
    return state.Games.Count() == Folders * GamesPerFolder ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments.at(1) == QLatin1String("prepare"))
        return Prepare(arguments.at(2));
    if (arguments.size() == 3 && arguments.at(1) == QLatin1String("folders"))
        return StoreFolders(arguments.at(2));
    if (arguments.size() == 3 && arguments.at(1) == QLatin1String("rebuild"))
        return Rebuild(arguments.at(2));
    std::fprintf(stderr, "usage: lumbra-bench prepare|folders|rebuild DIR\n");
    return 2;
}
