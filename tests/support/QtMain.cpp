// The main of test programs that use the window toolkit. A screen is never needed.
#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // the build lists the cases without asking ctest
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
