// Times one run of a program as a whole process.
//
//   lumbra-bench-time PROGRAM [ARGUMENTS...]
//
// Starts PROGRAM without a shell (its standard output to /dev/null), waits for it
// to end, and prints "MILLISECONDS PEAK_KIB": the time from its exec to its end,
// and its max RSS. The exit status is the program's.
#include "ChildProcess.h"

#include <cstdio>

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: lumbra-bench-time PROGRAM [ARGUMENTS...]\n");
        return 2;
    }
    ChildProcess child = StartChild(argv + 1);
    if (child.Pid < 0) {
        std::perror("lumbra-bench-time");
        return 1;
    }
    long peakKib = 0;
    const int status = WaitChild(child, peakKib);
    const double elapsed = SecondsSinceStart(child);
    if (status != 0) {
        std::fprintf(stderr, "lumbra-bench-time: %s ended with status %d\n", argv[1], status);
        return status < 0 ? 1 : status;
    }
    std::printf("%.3f %ld\n", elapsed * 1e3, peakKib);
    return 0;
}
