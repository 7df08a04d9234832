// SPDX-License-Identifier: MIT
#include "UI/Widgets/WaitingBox.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace {

// Acts on the box once it is shown, while the work waits to be stopped.
bool stopsBy(const std::function<void(QWidget&)>& act)
{
    std::atomic<bool> stopped{false};
    QTimer::singleShot(0, [&act, &stopped] {
        auto* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->findChild<QLabel*>()->text(), "Working");
        act(*box);
        EXPECT_TRUE(stopped);
        stopped = true;
    });
    waitFor(
        {"Working", "Stop"},
        [&stopped] {
            while (!stopped)
                std::this_thread::yield();
        },
        [&stopped] { stopped = true; });
    return stopped;
}

} // namespace

TEST(WaitingBox, ReturnsWhenTheWorkIsDone)
{
    bool isDone = false;
    bool isStopped = false;
    waitFor(
        {"Working", "Stop"}, [&isDone] { isDone = true; }, [&isStopped] { isStopped = true; });
    EXPECT_TRUE(isDone);
    EXPECT_FALSE(isStopped);
}

TEST(WaitingBox, StopsTheWorkWhicheverWayTheUserLeavesIt)
{
    EXPECT_TRUE(stopsBy([](QWidget& box) { box.findChild<QPushButton*>()->click(); }));
    EXPECT_TRUE(stopsBy([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); }));
    EXPECT_TRUE(stopsBy([](QWidget& box) { box.close(); }));
}
