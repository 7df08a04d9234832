// Which page follows which, and the questions in between.
#include "tests/UI/Wizard.h"
#include "tests/support/ScriptedWorker.h"

#include <gtest/gtest.h>

namespace {

std::vector<std::string> titles(const Wizard& wizard)
{
    std::vector<std::string> all;
    for (const auto& each : wizard.alerts.asked())
        all.push_back(each.title);
    return all;
}

using Titles = std::vector<std::string>;

class MainWindowControllerPages : public ::testing::Test {
protected:
    void toConfirmation()
    {
        wizard.printers({{"A", "net:192.0.2.1"}}).open().toPrinters();
        wizard.press("_selDev1NextBtn");
        ASSERT_EQ(wizard.page(), "ConfirmationScreen");
    }
    ScriptedWorker worker;
    Wizard wizard;
};

} // namespace

TEST_F(MainWindowControllerPages, FollowEachOtherAndGoBack)
{
    wizard.printers({{"A", "net:192.0.2.1"}}).open();
    const struct {
        const char* button;
        const char* page;
        int step;
    } presses[] = {
        {"_openingNextBtn", "PreferencePage", 1},     {"_prefBackBtn", "OpeningPage", 0},
        {"_openingNextBtn", "PreferencePage", 1},     {"_prefNextBtn", "SelectDevice1", 2},
        {"_selDev1BackBtn", "PreferencePage", 1},     {"_prefNextBtn", "SelectDevice1", 2},
        {"_selDev1NextBtn", "ConfirmationScreen", 3}, {"_prepBackBtn", "SelectDevice1", 2},
    };
    for (const auto& each : presses) {
        SCOPED_TRACE(each.button);
        wizard.press(each.button);
        EXPECT_EQ(wizard.page(), each.page);
        EXPECT_EQ(wizard.find<StepBar>("_stepBar").currentStep(), each.step);
        if (wizard.page() == "SelectDevice1")
            wizard.waitForPrinters();
    }
}

TEST_F(MainWindowControllerPages, GoOnWithTheReturnKey)
{
    wizard.printers({{"A", "net:192.0.2.1"}}).open();
    for (const auto* page : {"PreferencePage", "SelectDevice1", "ConfirmationScreen"}) {
        wizard.key(Qt::Key_Return);
        EXPECT_EQ(wizard.page(), page);
        wizard.waitForPrinters();
    }
    wizard.key(Qt::Key_Return); // starts nothing by itself
    EXPECT_EQ(titles(wizard), Titles{"Confirmation_Normal_Title"});
    EXPECT_TRUE(wizard.window().isVisible());
}

TEST_F(MainWindowControllerPages, AskBeforeTheyAreCancelledAndStayOtherwise)
{
    wizard.printers({{"A", "net:192.0.2.1"}}).open();
    const std::pair<const char*, const char*> buttons[] = {
        {"_openingCancelBtn", "_openingNextBtn"},
        {"_prefCancelBtn", "_prefNextBtn"},
        {"_selDev1CancelBtn", "_selDev1NextBtn"},
        {"_prepCancelBtn", nullptr},
    };
    Alert question;
    question.title = "Cancel_MesTitle";
    question.message = "Cancel_Message";
    question.style = AlertStyle::critical;
    question.defaultButton = "YES";
    question.alternateButton = "NO";
    question.returnKey = AlertReturn::pressesAlternate;
    for (const auto& [cancel, next] : buttons) {
        SCOPED_TRACE(cancel);
        const auto page = wizard.page();
        for (const int answer : {alert::kAlternate, alert::kOther}) {
            wizard.alerts.queueAnswer(answer);
            wizard.press(cancel);
            EXPECT_EQ(wizard.alerts.asked().back(), question);
            EXPECT_EQ(wizard.page(), page);
            EXPECT_FALSE(wizard.controller->hasEnded());
        }
        if (next != nullptr)
            wizard.press(next);
        wizard.waitForPrinters();
    }
    EXPECT_EQ(wizard.alerts.asked().size(), 8U);
}

TEST_F(MainWindowControllerPages, EndWithTheAnswerYes)
{
    wizard.open();
    int ends = 0;
    QObject::connect(wizard.controller.get(), &MainWindowController::ended, [&ends] { ++ends; });
    wizard.alerts.queueAnswer(alert::kDefault);
    wizard.press("_openingCancelBtn");
    EXPECT_TRUE(wizard.controller->hasEnded());
    EXPECT_EQ(ends, 1);
}

TEST_F(MainWindowControllerPages, AskWhereTheEscapeKeyIsPressedOrTheWindowIsClosed)
{
    wizard.open();
    wizard.key(Qt::Key_Escape);
    EXPECT_EQ(titles(wizard), Titles{"Cancel_MesTitle"});
    EXPECT_FALSE(wizard.window().close());
    EXPECT_EQ(titles(wizard), (Titles{"Cancel_MesTitle", "Cancel_MesTitle"}));
    EXPECT_TRUE(wizard.window().isVisible());
    EXPECT_FALSE(wizard.controller->hasEnded());
}

TEST_F(MainWindowControllerPages, StartTheRunWithTheAnswerYesOnly)
{
    toConfirmation();
    wizard.alerts.queueAnswer(alert::kOther);
    wizard.press("_prepStartBtn");
    EXPECT_EQ(titles(wizard), Titles{"Confirmation_Normal_Title"});
    EXPECT_TRUE(worker.calls().empty());
    wizard.alerts.queueAnswer(alert::kDefault);
    wizard.press("_prepStartBtn");
    EXPECT_FALSE(wizard.window().isVisible());
    EXPECT_FALSE(worker.calls().empty());
}

TEST_F(MainWindowControllerPages, AskTheCancelQuestionAfterTheAnswerNo)
{
    toConfirmation();
    wizard.alerts.queueAnswer(alert::kAlternate);
    wizard.alerts.queueAnswer(alert::kAlternate);
    wizard.press("_prepStartBtn");
    EXPECT_EQ(titles(wizard), (Titles{"Confirmation_Normal_Title", "Cancel_MesTitle"}));
    EXPECT_EQ(wizard.page(), "ConfirmationScreen");
    EXPECT_FALSE(wizard.controller->hasEnded());
    wizard.alerts.queueAnswer(alert::kAlternate);
    wizard.alerts.queueAnswer(alert::kDefault);
    wizard.press("_prepStartBtn");
    EXPECT_TRUE(wizard.controller->hasEnded());
    EXPECT_TRUE(worker.calls().empty());
}

TEST_F(MainWindowControllerPages, WarnWhereAnOlderFirmwareMayBeWritten)
{
    for (const auto* rule : {"YES", "NO", "BOTH"}) {
        SCOPED_TRACE(rule);
        Wizard each;
        each.description({"PLATFORMVERSION MACOS=0", std::string("ALLOWVERSIONDOWN ") + rule});
        each.printers({{"A", "net:192.0.2.1"}}).open().toPrinters();
        each.press("_selDev1NextBtn");
        each.press("_prepStartBtn");
        const bool isOlder = std::string_view(rule) == "YES";
        Alert question;
        question.title = isOlder ? "Confirmation_VerDown_Title" : "Confirmation_Normal_Title";
        question.message =
            isOlder ? "Confirmation_VerDown_Description" : "Confirmation_Normal_Description";
        question.style = AlertStyle::critical;
        question.defaultButton = "YES";
        question.alternateButton = "NO";
        question.returnKey = AlertReturn::pressesAlternate;
        EXPECT_EQ(each.alerts.asked(), std::vector{question});
    }
}

TEST_F(MainWindowControllerPages, PutNoSecondQuestionWhileOneStands)
{
    class Meddler : public Alerts {
    public:
        int run(const Alert&) override
        {
            ++asked;
            controller->cancelUpdate();
            return alert::kAlternate;
        }
        MainWindowController* controller = nullptr;
        int asked = 0;
    };
    Meddler meddler;
    wizard.setup.alerts = &meddler;
    wizard.open();
    meddler.controller = wizard.controller.get();
    wizard.press("_openingCancelBtn");
    EXPECT_EQ(meddler.asked, 1);
    EXPECT_FALSE(wizard.controller->hasEnded());
}

TEST_F(MainWindowControllerPages, ShowTheTargetOfTheRun)
{
    toConfirmation();
    EXPECT_EQ(wizard.text("_targetDevNameTxt"), "A");
    EXPECT_EQ(wizard.text("_portNameTxt"), "net:192.0.2.1");
}
