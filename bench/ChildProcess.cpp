#include "ChildProcess.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

double NowSeconds() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

ChildProcess StartChild(char* const arguments[]) {
    ChildProcess child;
    void* shared =
        mmap(nullptr, sizeof(double), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED)
        return child;
    child.StartSeconds = static_cast<volatile double*>(shared);
    *child.StartSeconds = NowSeconds(); // until the child takes its own
    child.Pid = fork();
    if (child.Pid == 0) {
        const int null = open("/dev/null", O_WRONLY);
        if (null >= 0)
            dup2(null, STDOUT_FILENO);
        *child.StartSeconds = NowSeconds();
        execvp(arguments[0], arguments);
        _exit(127);
    }
    return child;
}

double SecondsSinceStart(const ChildProcess& child) {
    return NowSeconds() - *child.StartSeconds;
}

int WaitChild(ChildProcess& child, long& peakKib) {
    int status = 0;
    rusage usage{};
    if (wait4(child.Pid, &status, 0, &usage) != child.Pid)
        return -1;
    peakKib = usage.ru_maxrss;
    child.Pid = -1;
    if (WIFSIGNALED(status))
        return 128 + WTERMSIG(status);
    return WEXITSTATUS(status);
}
