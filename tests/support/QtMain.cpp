// SPDX-License-Identifier: MIT
// The main of test programs that use the window toolkit; they need no screen.
#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // ctest sets it; the build lists cases without it
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
