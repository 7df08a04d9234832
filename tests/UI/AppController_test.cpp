#include "UI/AppController.h"
#include "tests/UI/Wizard.h"

#include <gtest/gtest.h>

TEST(AppController, RunsUntilTheCancelQuestionIsAnsweredWithYes)
{
    Wizard wizard;
    wizard.description({"PLATFORMVERSION MACOS=0"});
    AppController application(wizard.setup);
    EXPECT_EQ(application.problem(), "");
    wizard.alerts.queueAnswer(alert::kAlternate);
    wizard.alerts.queueAnswer(alert::kDefault);
    QTimer twice;
    QObject::connect(&twice, &QTimer::timeout, [&wizard] {
        EXPECT_TRUE(wizard.window().isVisible());
        wizard.press("_openingCancelBtn");
    });
    twice.start(1);
    EXPECT_EQ(application.run(), 0);
    EXPECT_EQ(wizard.alerts.asked().size(), 2U);
}

TEST(AppController, DoesNotRunOnASystemThatThePackageIsNotFor)
{
    Wizard wizard;
    wizard.noPackage();
    AppController application(wizard.setup);
    EXPECT_EQ(application.problem(), "");
    EXPECT_EQ(application.run(), 0);
    EXPECT_EQ(wizard.alerts.asked().size(), 1U);
}

TEST(AppController, SaysWhyThereIsNoWindow)
{
    Wizard wizard;
    wizard.setup.formFile = QStringLiteral("/nowhere");
    const AppController application(wizard.setup);
    EXPECT_NE(application.problem(), "");
}

TEST(AppController, LooksForTheInterfaceFileBesideTheProgramWhereNoneIsInstalled)
{
    EXPECT_EQ(AppController::formFile(),
              QCoreApplication::applicationDirPath() + QStringLiteral("/MainWindow.ui"));
}
