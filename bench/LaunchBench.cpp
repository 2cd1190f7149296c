// The time from a launch request to the start of a found emulator, beside a bare
// fork and exec of the same command: lumbra-bench-launch [RUNS]. The "emulator" is
// this program again, which writes the monotonic clock at its start and ends; the
// launch is the detached one (no wizard), so the figure is Lumbra's own work: the
// catalogue and the stored record read, the command expanded, the program started.
#include "base/Prompts.h"
#include "catalogue/AppState.h"
#include "catalogue/FolderScan.h"
#include "emulators/FoundEmulators.h"
#include "launch/LaunchEmu.h"
#include "platform/RealShell.h"
#include "snapshots/SnapshotWizard.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

qint64 NowNs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return qint64(now.tv_sec) * 1000000000 + now.tv_nsec;
}

class SilentPrompts final : public PromptsWithoutDialogs {
public:
    PromptAnswer Message(const QString&, PromptButtons, PromptIcon, const QString&) override {
        return PromptAnswer::Ok;
    }
    std::optional<QString> Input(const QString&, const QString&, const QString&) override {
        return std::nullopt;
    }
};

class NoWizard final : public SnapshotWizardView {
public:
    void ShowModal(SnapshotWizard&) override {}
};

// Waits for the child's start stamp and returns it; the file goes.
qint64 StartStamp(const QString& file) {
    while (!QFile::exists(file))
        QThread::usleep(50);
    QFile stamp(file);
    qint64 value = 0;
    for (;;) {
        if (stamp.open(QIODevice::ReadOnly)) {
            const QByteArray text = stamp.readAll();
            stamp.close();
            if (text.endsWith('\n')) {
                value = text.trimmed().toLongLong();
                break;
            }
        }
        QThread::usleep(50);
    }
    QFile::remove(file);
    return value;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv) {
    if (argc >= 3 && QByteArray(argv[1]) == "stamp") {
        const qint64 now = NowNs();
        FILE* file = std::fopen(argv[2], "w");
        if (!file)
            return 1;
        std::fprintf(file, "%lld\n", static_cast<long long>(now));
        return std::fclose(file) == 0 ? 0 : 1;
    }
    QCoreApplication app(argc, argv);
    const int runs = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 21;
    QTemporaryDir temp;
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
        QDir().mkpath(temp.filePath(QString::fromLatin1(variable)));
        qputenv(variable, temp.filePath(QString::fromLatin1(variable)).toLocal8Bit());
    }
    const QString self = QCoreApplication::applicationFilePath();
    const QString stamp = temp.filePath(QStringLiteral("stamp"));
    QDir().mkpath(temp.filePath(QStringLiteral("games")));
    QFile game(temp.filePath(QStringLiteral("games/game.smc")));
    if (!game.open(QIODevice::WriteOnly) || !game.write(QByteArray(0x8000, '\0')))
        return 1;
    game.close();

    AppState state;
    DefineEmulators(state.Emulators, state.Store);
    state.Options = DefaultSettings();
    state.Options.Snapshots_UseWizard = 0;
    state.Options.UnzipFolder = temp.filePath(QStringLiteral("unzip/"));
    GameList_ImportFileList(state, temp.filePath(QStringLiteral("games")));
    WriteFoundEmulator(state.Store, {.Name = QStringLiteral("Mednafen"),
                                     .Entry = QStringLiteral("Mednafen"),
                                     .Program = self,
                                     .Command = QStringLiteral("{program} stamp ") + stamp +
                                                QStringLiteral(" {game}")});
    state.Store.Sync();
    state.Games.Records[0].Emulator = QStringLiteral("Mednafen");
    SilentPrompts prompts;
    RealShell shell(prompts, {});
    NoWizard wizard;
    EmulatorLauncher launcher(state, prompts, shell, wizard);

    std::vector<double> launch;
    std::vector<double> floor;
    const QByteArray stampPath = QFile::encodeName(stamp);
    const QByteArray selfPath = QFile::encodeName(self);
    const QByteArray gamePath = QFile::encodeName(temp.filePath(QStringLiteral("games/game.smc")));
    for (int run = 0; run <= runs; ++run) { // the first run warms up
        const qint64 launched = NowNs();
        launcher.Launch(0);
        const qint64 started = StartStamp(stamp);
        QCoreApplication::processEvents();

        const qint64 forked = NowNs();
        const pid_t child = fork();
        if (child == 0) {
            execl(selfPath.constData(), selfPath.constData(), "stamp", stampPath.constData(),
                  gamePath.constData(), static_cast<char*>(nullptr));
            _exit(127);
        }
        const qint64 execed = StartStamp(stamp);
        waitpid(child, nullptr, 0);
        if (run > 0) {
            launch.push_back((started - launched) / 1e6);
            floor.push_back((execed - forked) / 1e6);
        }
    }
    const double lumbra = Median(launch);
    const double bare = Median(floor);
    std::printf("launch of a found emulator: %.2f ms   bare fork+exec: %.2f ms   ratio %.1f "
                "(medians of %d)\n",
                lumbra, bare, lumbra / bare, runs);
    return 0;
}
