// SPDX-License-Identifier: MIT
// Waits for what a window does, however busy the computer is.
#pragma once
#include <QCoreApplication>
#include <QTest>

constexpr int kLongestWait = 60000; // milliseconds; far more than any of these waits takes

// Handles events until the condition is true; false if that takes too long.
template <typename Condition> bool comesTrue(Condition condition)
{
    return QTest::qWaitFor(condition, kLongestWait);
}

inline bool becomesActive(QWidget& window)
{
    return QTest::qWaitForWindowActive(&window, kLongestWait);
}

// Handles the events that are there and those that follow from them: a layout is done later, in
// several steps. Counts steps and not time, which may pass without one of them.
inline void settle()
{
    constexpr int kSteps = 20;
    for (int i = 0; i < kSteps; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
