// SPDX-License-Identifier: MIT
#include "UI/Pages/EndRequests.h"
#include "UI/Widgets/MessageBoxAlerts.h"
#include "tests/UI/Wizard.h"

#include <QSessionManager>
#include <gmock/gmock.h>

// The tests raise signals in this thread: the toolkit's older threads do not block them.

namespace {

using ::testing::ElementsAre;

void endSession()
{
    emit qGuiApp->commitDataRequest(*qGuiApp->findChild<QSessionManager*>());
}

bool endsSoon(const Wizard& wizard)
{
    return comesTrue([&wizard] { return wizard.controller->hasEnded(); });
}

} // namespace

TEST(EndRequests, NamesTheSourceOfTheRequest)
{
    const EndingSignals endings;
    std::vector<std::string> asked;
    const EndRequests ending(&endings, [&asked](const std::string& what) {
        asked.push_back(what);
        return false;
    });
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const auto before = asked.size();
        raise(signal);
        EXPECT_TRUE(comesTrue([&] { return asked.size() > before; }));
    }
    endSession();
    EXPECT_THAT(asked, ElementsAre("signal 15", "signal 2", "signal 1", "the end of the session"));
}

TEST(EndRequests, NeedsNoSignals)
{
    int asked = 0;
    const EndRequests ending(nullptr, [&asked](const std::string&) {
        ++asked;
        return true;
    });
    endSession();
    EXPECT_EQ(asked, 1);
}

TEST(EndRequests, EndsTheProgramOnAPageWithoutAQuestion)
{
    const EndingSignals endings;
    Wizard wizard;
    wizard.setup.endings = &endings;
    wizard.open().toPrinters();
    raise(SIGTERM);
    EXPECT_TRUE(endsSoon(wizard));
    EXPECT_TRUE(wizard.alerts.asked().empty());
}

TEST(EndRequests, TheSessionsEndEndsItOnAPageToo)
{
    Wizard wizard;
    wizard.open();
    endSession();
    EXPECT_TRUE(wizard.controller->hasEnded());
    EXPECT_TRUE(wizard.alerts.asked().empty());
}

TEST(EndRequests, ClosesAQuestionWithoutAnAnswer)
{
    const EndingSignals endings;
    MessageBoxAlerts boxes;
    Wizard wizard;
    wizard.setup.endings = &endings;
    wizard.setup.alerts = &boxes;
    wizard.open();
    QTimer::singleShot(0, [] { raise(SIGTERM); });
    wizard.controller->startUpdateAction(); // would wait forever
    EXPECT_TRUE(wizard.controller->hasEnded());
    EXPECT_FALSE(wizard.window("_updateWindow").isVisible());
}

// An answer at the moment of the end must not start a run.
TEST(EndRequests, DoesNotTakeAnAnswerOnceTheProgramHasEnded)
{
    class LateYes : public Alerts {
    public:
        int run(const Alert&) override
        {
            endSession();
            return alert::kDefault;
        }
    } alerts;
    Wizard wizard;
    wizard.setup.alerts = &alerts;
    wizard.open();
    wizard.controller->startUpdateAction();
    EXPECT_TRUE(wizard.controller->hasEnded());
    EXPECT_FALSE(wizard.window("_updateWindow").isVisible());
}

TEST(EndRequests, EndsTheProgramDuringTheAlertAboutAnUnsupportedSystem)
{
    const EndingSignals endings;
    MessageBoxAlerts boxes;
    Wizard wizard;
    wizard.setup.endings = &endings;
    wizard.setup.alerts = &boxes;
    raise(SIGTERM); // before any code handles it
    wizard.noPackage().open();
    EXPECT_TRUE(wizard.controller->hasEnded());
}
