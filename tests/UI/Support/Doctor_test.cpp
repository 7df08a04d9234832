// SPDX-License-Identifier: MIT
#include "UI/Support/Doctor.h"
#include "tests/support/Package.h"
#include "tests/support/ScriptedPrintServer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

OpenedPackage package(std::optional<PackageSignature> signature = {})
{
    PackageFacts facts{};
    facts.model = "Vymprint 200";
    facts.updateSeconds = 60;
    facts.portNumber = 1;
    facts.signature = std::move(signature);
    return {facts, {}, PackageState::usable};
}

Finding signatureOf(const OpenedPackage& opened)
{
    std::vector<Finding> findings;
    doctor::checkPackage(opened, findings);
    EXPECT_EQ(findings.at(1).check, "signature");
    return findings.at(1);
}

doctor::Request request(PrintServer* server = nullptr)
{
    doctor::Request request;
    request.printServer = server;
    request.program = "test";
    return request;
}

Finding findingOf(const std::vector<Finding>& findings, const std::string& check)
{
    for (const auto& each : findings) {
        if (each.check == check)
            return each;
    }
    return {};
}

} // namespace

TEST(Doctor, HasAStableNameForEachStatus)
{
    EXPECT_STREQ(findingStatusName(doctor::ok("a", "b").status), "ok");
    EXPECT_STREQ(findingStatusName(doctor::warning("a", "b").status), "warning");
    EXPECT_STREQ(findingStatusName(doctor::problem("a", "b").status), "problem");
    EXPECT_STREQ(findingStatusName(doctor::skipped("a", "b").status), "skipped");
}

TEST(Doctor, MakesEveryCheckInItsPlaceEvenWithoutAPackage)
{
    const OpenedPackage none{std::nullopt, "There is none.", PackageState::unusable};
    std::vector<std::string> checks;
    const auto findings = doctor::examine(none, request());
    for (const auto& each : findings)
        checks.push_back(each.check);
    EXPECT_THAT(checks,
                ElementsAre("package", "signature", "system", "print-server", "queues", "usb",
                            "permission", "usb-owner", "udev-rule", "address", "port", "suspend",
                            "log-folder"));
    EXPECT_TRUE(doctor::hasProblem(findings));
    EXPECT_EQ(findings[0].message, "There is none.");
    EXPECT_EQ(findings[1].status, FindingStatus::skipped);
}

TEST(Doctor, SaysWhoSignedThePackage)
{
    const auto signedOne = signatureOf(package(PackageSignature{"maker.pub", "release 1.2"}));
    EXPECT_EQ(signedOne.status, FindingStatus::ok);
    EXPECT_THAT(signedOne.message, HasSubstr("maker.pub (release 1.2)"));
}

TEST(Doctor, SkipsTheSignatureWithoutAKey)
{
    EXPECT_EQ(signatureOf(package()).status, FindingStatus::skipped);
    EXPECT_THAT(signatureOf(package()).message, HasSubstr("/etc/vymkit/keys"));
}

TEST(Doctor, CallsAnUntrustedPackageOneProblemAndNotTwo)
{
    const OpenedPackage refused{std::nullopt, "The package is not signed: x.",
                                PackageState::notTrusted};
    std::vector<Finding> findings;
    doctor::checkPackage(refused, findings);
    EXPECT_EQ(findings[0].status, FindingStatus::skipped);
    EXPECT_EQ(findings[1].status, FindingStatus::problem);
    EXPECT_EQ(findings[1].message, "The package is not signed: x.");
    EXPECT_NE(findings[1].mend, "");
}

TEST(Doctor, FindsANamedQueueInAnyCase)
{
    ScriptedPrintServer server;
    server.queue("Office", "lpd://127.0.0.1/q");
    auto named = request(&server);
    named.printer = "OFFICE";
    const OpenedPackage none{std::nullopt, "There is none.", PackageState::unusable};
    const auto findings = doctor::examine(none, named);
    EXPECT_EQ(findingOf(findings, "address").status, FindingStatus::ok);
    named.printer = "attic";
    EXPECT_EQ(findingOf(doctor::examine(none, named), "queues").status, FindingStatus::problem);
}
