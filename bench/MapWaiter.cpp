// Times a program from exec to its window mapped on an X display.
//
//   lumbra-bench-mapwait TITLE PROGRAM [ARGUMENTS...]
//
// Starts PROGRAM without a shell and waits for the first mapped top-level window
// named exactly TITLE (WM_NAME or _NET_WM_NAME); other windows, such as a progress
// window shown during a load, do not count. Then it asks the program to end with
// SIGTERM, waits for it, and prints "MILLISECONDS PEAK_KIB".
//
// Top-level windows are taken to be children of the root window, as they are with
// no window manager (Xvfb); a window manager's frame would hide them.
#include "ChildProcess.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <csignal>
#include <cstdio>
#include <poll.h>
#include <set>
#include <string>
#include <sys/wait.h>

namespace {

constexpr double TimeoutSeconds = 60;

// A window may be gone by the time it is asked about; that is no error here.
int IgnoreError(Display*, XErrorEvent*) {
    return 0;
}

std::string TextProperty(Display* display, Window window, Atom property) {
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long remaining = 0;
    unsigned char* data = nullptr;
    std::string text;
    if (XGetWindowProperty(display, window, property, 0, 256, False, AnyPropertyType, &type,
                           &format, &count, &remaining, &data) == Success &&
        data != nullptr) {
        if (format == 8)
            text.assign(reinterpret_cast<const char*>(data), count);
        XFree(data);
    }
    return text;
}

class TitleWatch {
public:
    TitleWatch(Display* display, std::string title)
        : m_display(display), m_title(std::move(title)),
          m_netName(XInternAtom(display, "_NET_WM_NAME", False)) {}

    // True once a mapped top-level window bears the title.
    bool Handle(const XEvent& event) {
        switch (event.type) {
        case MapNotify:
            if (event.xmap.event != DefaultRootWindow(m_display))
                return false;
            // A window mapped before its name is set is watched for the name.
            XSelectInput(m_display, event.xmap.window, PropertyChangeMask);
            m_mapped.insert(event.xmap.window);
            return HasTitle(event.xmap.window);
        case UnmapNotify:
            m_mapped.erase(event.xunmap.window);
            return false;
        case PropertyNotify:
            return (event.xproperty.atom == XA_WM_NAME || event.xproperty.atom == m_netName) &&
                   m_mapped.count(event.xproperty.window) > 0 && HasTitle(event.xproperty.window);
        default:
            return false;
        }
    }

private:
    bool HasTitle(Window window) const {
        return TextProperty(m_display, window, m_netName) == m_title ||
               TextProperty(m_display, window, XA_WM_NAME) == m_title;
    }

    Display* m_display;
    std::string m_title;
    Atom m_netName;
    std::set<Window> m_mapped;
};

// Seconds from exec to the titled window, or a negative number when the program
// ended first or the wait timed out.
double WaitForWindow(Display* display, TitleWatch& watch, const ChildProcess& child) {
    pollfd connection{ConnectionNumber(display), POLLIN, 0};
    while (SecondsSinceStart(child) < TimeoutSeconds) {
        while (XPending(display) > 0) {
            XEvent event;
            XNextEvent(display, &event);
            if (watch.Handle(event))
                return SecondsSinceStart(child);
        }
        siginfo_t ended{};
        if (waitid(P_PID, child.Pid, &ended, WEXITED | WNOHANG | WNOWAIT) == 0 &&
            ended.si_pid == child.Pid)
            return -1;
        poll(&connection, 1, 100);
    }
    return -1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: lumbra-bench-mapwait TITLE PROGRAM [ARGUMENTS...]\n");
        return 2;
    }
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        std::fprintf(stderr, "lumbra-bench-mapwait: cannot open the display\n");
        return 1;
    }
    XSetErrorHandler(IgnoreError);
    TitleWatch watch(display, argv[1]);
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    XSync(display, False); // the watch is in place before the program starts

    ChildProcess child = StartChild(argv + 2);
    if (child.Pid < 0) {
        std::perror("lumbra-bench-mapwait");
        return 1;
    }
    const double elapsed = WaitForWindow(display, watch, child);
    kill(child.Pid, elapsed < 0 ? SIGKILL : SIGTERM);
    long peakKib = 0;
    const int status = WaitChild(child, peakKib);
    XCloseDisplay(display);
    if (elapsed < 0) {
        std::fprintf(stderr, "lumbra-bench-mapwait: no window \"%s\" from %s\n", argv[1], argv[2]);
        return 1;
    }
    if (status != 0 && status != 128 + SIGTERM) {
        std::fprintf(stderr, "lumbra-bench-mapwait: %s ended with status %d\n", argv[2], status);
        return 1;
    }
    std::printf("%.3f %ld\n", elapsed * 1e3, peakKib);
    return 0;
}
