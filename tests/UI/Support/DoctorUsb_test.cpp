// SPDX-License-Identifier: MIT
#include "UI/Support/Doctor.h"
#include "UI/Support/UdevRule.h"
#include "tests/support/TempFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

std::vector<Finding> findingsOf(const std::vector<SurveyedPrinter>& printers, bool hasRule)
{
    const TempFolder root;
    std::filesystem::create_directories(root.path() / "etc/udev/rules.d");
    if (hasRule)
        root.write("etc/udev/rules.d/70-vymkit.rules", udevRuleLine() + "\n");
    std::vector<Finding> findings;
    doctor::checkUsb(printers, root.path().string(), findings);
    return findings;
}

SurveyedPrinter printer()
{
    return {"Vymprint 200", "S77", "/dev/bus/usb/001/012", "usblp", {}, true, true};
}

} // namespace

TEST(DoctorUsb, SkipsChecksThatNeedAPrinterIfThereIsNoPrinter)
{
    const auto findings = findingsOf({}, true);
    ASSERT_EQ(findings.size(), 4U);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(findings[i].status, FindingStatus::skipped);
    EXPECT_EQ(findings[3].status, FindingStatus::ok);
}

TEST(DoctorUsb, NamesTheRuleForAPrinterThatMayNotBeOpened)
{
    auto locked = printer();
    locked.isOpenable = false;
    const auto findings = findingsOf({locked}, false);
    EXPECT_EQ(findings[1].status, FindingStatus::problem);
    EXPECT_NE(findings[1].mend.find(udevRuleLine()), std::string::npos);
    EXPECT_EQ(findings[3].status, FindingStatus::warning);
}

TEST(DoctorUsb, SaysWhoHasThePrinterOpen)
{
    auto held = printer();
    held.holders = {"ipp-usb (process 41)"};
    const auto findings = findingsOf({held}, true);
    EXPECT_EQ(findings[2].status, FindingStatus::warning);
    EXPECT_NE(findings[2].message.find("ipp-usb"), std::string::npos);
}

TEST(DoctorUsb, SaysThatARuleHasNotReachedThePrinterYet)
{
    auto fresh = printer();
    fresh.isTagged = false;
    EXPECT_EQ(findingsOf({fresh}, true)[3].status, FindingStatus::warning);
    EXPECT_EQ(findingsOf({printer()}, true)[3].status, FindingStatus::ok);
}
