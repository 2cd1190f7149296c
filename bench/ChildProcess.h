#pragma once

#include <sys/types.h>

// A program that the benchmark times, started without a shell. The child takes its
// start time just before exec, so that the figure holds no fork and no set-up.
struct ChildProcess {
    pid_t Pid = -1;
    volatile double* StartSeconds = nullptr; // shared with the child
};

// Seconds on the monotonic clock, which every process shares.
double NowSeconds();

// Starts arguments[0] (looked up on PATH) with the null-terminated arguments; its
// standard output goes to /dev/null. Pid is -1 when the fork fails.
ChildProcess StartChild(char* const arguments[]);

// Seconds from the child's exec to now.
double SecondsSinceStart(const ChildProcess& child);

// Waits for the child to end. Returns its exit status, or 128 + the signal that
// ended it, and sets its peak memory (max RSS) in KiB.
int WaitChild(ChildProcess& child, long& peakKib);
