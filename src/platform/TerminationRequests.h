#pragma once

#include <functional>

// Calls onRequest from the event loop when the system asks the program to end
// (SIGTERM or SIGHUP: a task manager, a logout), so that it closes as if the
// player had closed it and loses nothing. Does nothing where there are no signals.
void WatchTerminationRequests(std::function<void()> onRequest);
