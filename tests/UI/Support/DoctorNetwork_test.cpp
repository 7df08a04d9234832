// SPDX-License-Identifier: MIT
#include "UI/Support/Doctor.h"

#include <gtest/gtest.h>

namespace {

std::vector<Finding> findingsOf(const std::string& host, std::optional<int> port)
{
    std::vector<Finding> findings;
    doctor::Patient patient;
    patient.host = host;
    doctor::checkNetwork(patient, port, findings);
    return findings;
}

} // namespace

TEST(DoctorNetwork, SkipsBothChecksWithoutAPrinter)
{
    const auto findings = findingsOf("", 48350);
    ASSERT_EQ(findings.size(), 2U);
    EXPECT_EQ(findings[0].status, FindingStatus::skipped);
    EXPECT_EQ(findings[1].status, FindingStatus::skipped);
}

TEST(DoctorNetwork, SaysThatAPortIsClosedAndWhatHelps)
{
    const auto findings = findingsOf("127.0.0.1", 1);
    EXPECT_EQ(findings[0].status, FindingStatus::ok);
    EXPECT_EQ(findings[1].status, FindingStatus::problem);
    EXPECT_FALSE(findings[1].mend.empty());
}

TEST(DoctorNetwork, SkipsThePortThatNoPackageNames)
{
    EXPECT_EQ(findingsOf("127.0.0.1", std::nullopt)[1].status, FindingStatus::skipped);
}
