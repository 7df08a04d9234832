// SPDX-License-Identifier: MIT
#include "UI/Widgets/ScreenRoom.h"

#include <QScreen>
#include <gtest/gtest.h>

TEST(ScreenRoom, IsTheScreenWithoutATitleBar)
{
    const QWidget window;
    const auto room = screenRoom(window);
    const auto screen = window.screen()->availableSize();
    EXPECT_EQ(room.width(), screen.width());
    EXPECT_LT(room.height(), screen.height());
    EXPECT_GT(room.height(), screen.height() / 2);
}

TEST(ScreenRoom, KeepsAWindowOnTheScreenAndMovesItNoFurtherThanNecessary)
{
    QWidget window;
    window.resize(screenRoom(window) / 2);
    const auto screen = window.screen()->availableGeometry();
    const struct {
        const char* why;
        QPoint before;
        bool moves;
    } rows[] = {
        {"in the middle", screen.center() - window.rect().center(), false},
        {"beyond the lower right corner", screen.bottomRight(), true},
        {"beyond the upper left corner", screen.topLeft() - window.rect().center(), true},
        {"its title bar is hidden", screen.topLeft(), true},
    };
    for (const auto& row : rows) {
        window.move(row.before);
        keepOnScreen(window);
        EXPECT_TRUE(screen.contains(window.geometry())) << row.why;
        EXPECT_EQ(window.pos() != row.before, row.moves) << row.why;
    }
}

TEST(ScreenRoom, CentresAWindow)
{
    QWidget window;
    window.resize(100, 100);
    centreOnScreen(window);
    EXPECT_EQ(window.geometry().center(), window.screen()->availableGeometry().center());
}
