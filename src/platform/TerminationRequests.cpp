#include "platform/TerminationRequests.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int g_signalPipe[2] = {-1, -1};

// Only async-signal-safe work here: the event loop does the rest.
void OnSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = write(g_signalPipe[0], &byte, 1);
}

} // namespace

void WatchTerminationRequests(std::function<void()> onRequest) {
    if (g_signalPipe[0] >= 0 ||
        socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, g_signalPipe) != 0)
        return;
    auto* notifier =
        new QSocketNotifier(g_signalPipe[1], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier,
                     [onRequest = std::move(onRequest)] {
                         char byte = 0;
                         [[maybe_unused]] const ssize_t got = read(g_signalPipe[1], &byte, 1);
                         onRequest();
                     });
    struct sigaction action {};
    action.sa_handler = OnSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGHUP, &action, nullptr);
}

#else

void WatchTerminationRequests(std::function<void()>) {}

#endif
