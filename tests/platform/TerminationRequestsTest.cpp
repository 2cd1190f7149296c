#include "platform/TerminationRequests.h"

#include <QTest>
#include <csignal>
#include <gtest/gtest.h>

TEST(TerminationRequests, ASignalToEndBecomesACallOnTheEventLoop) {
    int requests = 0;
    WatchTerminationRequests([&requests] { ++requests; });
    std::raise(SIGTERM);
    EXPECT_EQ(requests, 0); // nothing runs inside the signal handler
    EXPECT_TRUE(QTest::qWaitFor([&requests] { return requests == 1; }, 60000));
}
