// SPDX-License-Identifier: MIT
// The report that the last message offers, from the button to the file.
#include "UI/Pages/ReportOffer.h"
#include "VYM/ProtocolResult.h"
#include "tests/UI/Wizard.h"
#include "tests/support/QueuedFiles.h"

#include <gtest/gtest.h>

namespace {

class Offer : public testing::Test {
protected:
    Offer()
    {
        m_wizard.setup.files = &m_files;
        m_wizard.setup.composeReport = [](const std::string& printer) {
            return "about '" + printer + "'";
        };
    }
    [[nodiscard]] std::string titleOf(std::size_t message) const
    {
        return m_wizard.alerts.asked().at(message).title;
    }

    TempFolder m_folder;
    QueuedFiles m_files;
    Wizard m_wizard;
};

} // namespace

TEST_F(Offer, IsMadeByAMessageWithDetailsAndSavesTheReport)
{
    m_wizard.open();
    m_wizard.alerts.queueAnswer(alert::kExtra);
    m_files.queueFile(m_folder / "report.txt");
    m_wizard.controller->endUpdate(result::kConnectionLost);
    ASSERT_EQ(m_wizard.alerts.asked().size(), 3U); // the result, the saving, the result again
    EXPECT_EQ(m_wizard.alerts.asked()[0].extraButton, "Report_Save");
    EXPECT_EQ(titleOf(1), "Report_Saved");
    EXPECT_EQ(titleOf(2), titleOf(0));
    EXPECT_EQ(m_files.lastSuggested, "vymkit-report.txt");
    EXPECT_EQ(readFile(m_folder / "report.txt"), "about ''");
    EXPECT_TRUE(m_wizard.controller->hasEnded());
}

TEST_F(Offer, SaysWhyTheReportCouldNotBeSavedAndOffersItAgain)
{
    m_wizard.open();
    m_wizard.alerts.queueAnswer(alert::kExtra);
    m_files.queueFile("/nowhere/report.txt");
    m_wizard.controller->endUpdate(result::kConnectionLost);
    ASSERT_EQ(m_wizard.alerts.asked().size(), 3U);
    EXPECT_EQ(titleOf(1), "Report_NotSaved");
    EXPECT_NE(m_wizard.alerts.asked()[1].message.find("No such file"), std::string::npos);
}

TEST_F(Offer, GoesBackToTheMessageWithoutAFile)
{
    m_wizard.open();
    m_wizard.alerts.queueAnswer(alert::kExtra);
    m_wizard.controller->endUpdate(result::kConnectionLost);
    ASSERT_EQ(m_wizard.alerts.asked().size(), 2U);
    EXPECT_EQ(titleOf(1), titleOf(0));
}

TEST_F(Offer, IsMadeWhereThePackageCannotBeUsed)
{
    m_wizard.setup.packageProblem = "It is damaged.";
    m_wizard.noPackage().description({"PLATFORMVERSION MACOS=9999"});
    m_wizard.alerts.queueAnswer(alert::kExtra);
    m_files.queueFile(m_folder / "report.txt");
    m_wizard.open();
    EXPECT_EQ(readFile(m_folder / "report.txt"), "about ''");
}

TEST_F(Offer, IsNotMadeWithoutDetailsOrWithoutAReport)
{
    const ReportOffer offer(&m_files, m_wizard.setup.composeReport);
    EXPECT_EQ(offer.withOffer(Alert()).extraButton, "");
    Alert message;
    message.details = "x";
    EXPECT_EQ(offer.withOffer(message).extraButton, "Report_Save");
    EXPECT_EQ(ReportOffer(nullptr, m_wizard.setup.composeReport).withOffer(message), message);
    EXPECT_EQ(ReportOffer(&m_files, {}).withOffer(message), message);
}
