// SPDX-License-Identifier: MIT
#include "UI/Widgets/Aside.h"
#include "tests/support/Await.h"

#include <QTest>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace {

using namespace std::chrono_literals;

TEST(Aside, ReturnsWhenTheWorkIsDoneAndNotBefore)
{
    bool isDone = false;
    doAside([&isDone] {
        std::this_thread::sleep_for(20ms);
        isDone = true;
    });
    EXPECT_TRUE(isDone);
}

TEST(Aside, TheWindowsStayResponsiveMeanwhile)
{
    std::atomic<int> events = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&events] { ++events; });
    timer.start(1);
    doAside([&events] { EXPECT_TRUE(becomesTrue([&events] { return events > 0; })); });
    EXPECT_GT(events, 0);
}

TEST(Aside, WorkIsNotLeftBehindWhenTheProgramQuitsMeanwhile)
{
    bool isDone = false;
    QTimer::singleShot(0, [] { QCoreApplication::quit(); });
    doAside([&isDone] {
        std::this_thread::sleep_for(20ms);
        isDone = true;
    });
    EXPECT_TRUE(isDone);
}

} // namespace
