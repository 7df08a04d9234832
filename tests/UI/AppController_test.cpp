// SPDX-License-Identifier: MIT
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

TEST(AppController, EndsAtOnceWhileAPrintServerStillKeepsTheSearchWaiting)
{
    Wizard wizard;
    wizard.description({"PLATFORMVERSION MACOS=0"});
    std::atomic<bool> answers = false;
    wizard.setup.findPrinters = [&answers](bool, const std::atomic<bool>&, PrinterSearchObserver&) {
        while (!answers) // deaf to a cancel, as a library that waits for an answer is
            std::this_thread::yield();
        return TargetPrinters();
    };
    AppController application(wizard.setup);
    wizard.alerts.queueAnswer(alert::kDefault);
    QTimer::singleShot(1, [&wizard] {
        wizard.press("_openingNextBtn");
        wizard.press("_prefNextBtn");
        wizard.press("_selDev1CancelBtn");
    });
    EXPECT_EQ(application.run(), 0);
    EXPECT_FALSE(wizard.window().isVisible());
    EXPECT_TRUE(application.isStillSearching());
    answers = true;
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
