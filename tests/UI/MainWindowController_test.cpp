// SPDX-License-Identifier: MIT
// Start-up with and without a usable package, the order of the pages, and the questions between
// them.
#include "UI/vym_etc.h"
#include "tests/UI/Wizard.h"
#include "tests/support/ScriptedWorker.h"

#include <gmock/gmock.h>
#include <iomanip>
#include <sstream>

namespace {

std::string hex(unsigned long number)
{
    std::ostringstream text;
    text << std::hex << number;
    return text.str();
}

std::string boundsRow(unsigned long lowest, unsigned long highest)
{
    return "PLATFORMVERSION MACOS=" + hex(lowest) + ' ' + hex(highest);
}

void expectUnsupported(const Wizard& wizard, const std::string& details)
{
    ASSERT_NE(wizard.controller, nullptr);
    EXPECT_TRUE(wizard.controller->hasEnded());
    EXPECT_FALSE(wizard.window().isVisible());
    Alert told;
    told.title = "VYM_UnSupportOS_Title";
    told.message = "VYM_UnSupportOS_Mes";
    told.details = details;
    told.style = AlertStyle::critical;
    told.defaultButton = "OK";
    EXPECT_EQ(wizard.alerts.asked(), std::vector{told});
}

std::vector<std::string> titles(const Wizard& wizard)
{
    std::vector<std::string> all;
    for (const auto& each : wizard.alerts.asked())
        all.push_back(each.title);
    return all;
}

using Titles = std::vector<std::string>;

class PagesOfTheWizard : public ::testing::Test {
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

TEST(MainWindowController, ChecksTheSystemAgainstTheBoundsOfThePackage)
{
    const auto system = get_system_version();
    const struct {
        const char* why;
        std::string row;
        bool isSupported;
    } rows[] = {
        {"every system", "PLATFORMVERSION MACOS=0", true},
        {"exactly this one", boundsRow(system, system), true},
        {"newer ones only", boundsRow(system + 1, system + 2), false},
        {"newer ones without end", "PLATFORMVERSION MACOS=" + hex(system + 1), false},
        {"older ones only", boundsRow(0, system - 1), false},
        {"no bounds", "PORTNO 1", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        Wizard wizard;
        wizard.description({row.row}).open();
        EXPECT_EQ(wizard.controller->hasEnded(), !row.isSupported);
        if (!row.isSupported)
            expectUnsupported(wizard, "");
    }
}

TEST(MainWindowController, SaysWhatIsWrongWithAPackageThatSuitsNoSystem)
{
    const TempFolder state;
    qputenv("XDG_STATE_HOME", state.path().c_str());
    Wizard wizard;
    wizard.setup.packageProblem = "The folder holds none.";
    wizard.noPackage().open();
    expectUnsupported(wizard, "VYM_UnSupportOS_Package");
    const std::filesystem::directory_iterator log(state.path() / "vymkit");
    ASSERT_NE(log, std::filesystem::directory_iterator());
    EXPECT_THAT(readFile(log->path()), testing::StartsWith("program: vymkit 1.2.3\n"));
    EXPECT_THAT(readFile(log->path()), testing::HasSubstr("\npackage: /"));
    EXPECT_THAT(readFile(log->path()), testing::EndsWith("problem: The folder holds none.\n"));
}

TEST(MainWindowController, LeavesNoLogOfAGoodPackageThatIsNotForThisSystem)
{
    const TempFolder state;
    qputenv("XDG_STATE_HOME", state.path().c_str());
    Wizard wizard;
    wizard.description({"PORTNO 1"}).open();
    expectUnsupported(wizard, "");
    EXPECT_TRUE(std::filesystem::is_empty(state.path()));
}

TEST_F(PagesOfTheWizard, OpenOnASystemThatCountsItsVersionsBelowTen)
{
    worker.systemVersion = 0x0940;
    wizard.description({"PLATFORMVERSION MACOS=2204", "PORTNO 1"}).open();
    EXPECT_EQ(wizard.page(), "OpeningPage");
}

TEST_F(PagesOfTheWizard, NeverOpenForAPackageThatWasRefused)
{
    const TempFolder state;
    qputenv("XDG_STATE_HOME", state.path().c_str());
    worker.systemVersion = 0x0940;
    wizard.setup.packageProblem = "It is not signed.";
    wizard.noPackage().open();
    expectUnsupported(wizard, "VYM_UnSupportOS_Package");
}

TEST_F(PagesOfTheWizard, FollowEachOtherAndGoBack)
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

TEST_F(PagesOfTheWizard, GoOnWithTheReturnKey)
{
    wizard.printers({{"A", "net:192.0.2.1"}}).open();
    for (const auto* page : {"PreferencePage", "SelectDevice1", "ConfirmationScreen"}) {
        wizard.key(Qt::Key_Return);
        EXPECT_EQ(wizard.page(), page);
        wizard.waitForPrinters();
    }
    wizard.key(Qt::Key_Return); // does not start the run by itself
    EXPECT_EQ(titles(wizard), Titles{"Confirmation_Normal_Title"});
    EXPECT_TRUE(wizard.window().isVisible());
}

TEST_F(PagesOfTheWizard, AskBeforeTheyAreCancelledAndStayOtherwise)
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

TEST_F(PagesOfTheWizard, EndWithTheAnswerYes)
{
    wizard.open();
    int ends = 0;
    QObject::connect(wizard.controller.get(), &MainWindowController::ended, [&ends] { ++ends; });
    wizard.alerts.queueAnswer(alert::kDefault);
    wizard.press("_openingCancelBtn");
    EXPECT_TRUE(wizard.controller->hasEnded());
    EXPECT_EQ(ends, 1);
}

TEST_F(PagesOfTheWizard, AskWhenTheEscapeKeyIsPressedOrTheWindowIsClosed)
{
    wizard.open();
    wizard.key(Qt::Key_Escape);
    EXPECT_EQ(titles(wizard), Titles{"Cancel_MesTitle"});
    EXPECT_FALSE(wizard.window().close());
    EXPECT_EQ(titles(wizard), (Titles{"Cancel_MesTitle", "Cancel_MesTitle"}));
    EXPECT_TRUE(wizard.window().isVisible());
    EXPECT_FALSE(wizard.controller->hasEnded());
}

TEST_F(PagesOfTheWizard, StartTheRunWithTheAnswerYesOnly)
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

TEST_F(PagesOfTheWizard, AskTheCancelQuestionAfterTheAnswerNo)
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

TEST_F(PagesOfTheWizard, WarnWhereAnOlderFirmwareMayBeWritten)
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

TEST_F(PagesOfTheWizard, AskNoSecondQuestionWhileOneIsOpen)
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

TEST(MainWindowController, IsDressedAgainWhenTheDesktopsFontOrColoursChange)
{
    Wizard wizard;
    wizard.open();
    const auto& title = wizard.find<QLabel>("_selectDeviceTitle");
    const auto before = title.font().pointSizeF();
    const auto former = QApplication::font();
    auto larger = former;
    larger.setPointSizeF(former.pointSizeF() * 2);
    QApplication::setFont(larger);
    QCoreApplication::processEvents();
    EXPECT_NEAR(title.font().pointSizeF(), before * 2, 0.1);
    QApplication::setFont(former);
    QCoreApplication::processEvents();
    EXPECT_NEAR(title.font().pointSizeF(), before, 0.1);
}
