// SPDX-License-Identifier: MIT
#include "UI/Support/PrinterFacts.h"
#include "tests/UI/Support/SurveyedBus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

PrinterFinding finding(const char* name, const char* uri,
                       PrinterReason reason = PrinterReason::candidate)
{
    PrinterFinding found;
    found.printer = PrinterInfo::initWithPMPrinter({name, name, {}, uri, "Model 100"});
    found.connectionType = kConnectionNet;
    found.reason = reason;
    return found;
}

std::vector<std::string> warningsOf(std::vector<PrinterFinding> findings)
{
    TargetPrinters made;
    made.findings = std::move(findings);
    std::vector<std::string> warnings;
    for (const auto& each : printerFacts(made, true).list)
        warnings.push_back(each.warning);
    return warnings;
}

} // namespace

TEST(PrinterFacts, WarnOfTheSecondQueueToAHost)
{
    const auto warnings =
        warningsOf({finding("A", "lpd://10.0.0.5/a"), finding("B", "lpd://10.0.0.5:515/b"),
                    finding("C", "net:10.0.0.5"), finding("D", "lpd://10.0.0.50/a")});
    EXPECT_EQ(warnings[0], "");
    EXPECT_EQ(warnings[1], "it leads to the same host as A");
    EXPECT_EQ(warnings[2], "it leads to the same host as A");
    EXPECT_EQ(warnings[3], "");
}

TEST(PrinterFacts, WarnOfAddressesThatConnectionsDoNotTake)
{
    const auto tooLong = "lpd://" + std::string(260, 'a');
    const auto warnings =
        warningsOf({finding("A", "lpd://[2001:db8::1]/q"), finding("B", "net:2001:db8::1"),
                    finding("C", tooLong.c_str())});
    EXPECT_THAT(warnings[0], StartsWith("its address is an IPv6 one"));
    EXPECT_THAT(warnings[1], StartsWith("its address is an IPv6 one"));
    EXPECT_THAT(warnings[2], StartsWith("its address is too long"));
}

TEST(PrinterFacts, WarnOfNothingThatIsNoCandidate)
{
    const auto warnings =
        warningsOf({finding("A", "lpd://[::1]/", PrinterReason::otherModel),
                    finding("B", "usb://A/P?serial=1"), finding("C", "usb://A/P?serial=2")});
    EXPECT_EQ(warnings, (std::vector<std::string>{"", "", ""}));
}

TEST(PrinterFacts, SayWhatHelpsWithAQueueOfAnotherConnection)
{
    const auto listed =
        listedPrinter(finding("A", "socket://10.0.0.9", PrinterReason::otherConnection));
    EXPECT_THAT(reasonText(listed), HasSubstr("give its IPv4 address with --address"));
}

TEST(PrinterFacts, ListCandidatesOrAll)
{
    TargetPrinters made;
    made.findings = {finding("A", "lpd://10.0.0.5/"),
                     finding("B", "lpd://10.0.0.6/", PrinterReason::otherModel)};
    made.candidates = {made.findings[0].printer};
    EXPECT_EQ(printerFacts(made, false).list.size(), 1U);
    const auto all = printerFacts(made, true);
    EXPECT_EQ(all.list.size(), 2U);
    EXPECT_EQ(all.found, 2U);
    EXPECT_EQ(all.candidates, 1U);
}

TEST(PrinterFacts, WarnOfTheProgramsThatHaveAUsbPrinterOpen)
{
    SurveyedBus bus;
    bus.put("proc/41/comm", "usb\n");
    bus.link("proc/41/fd/7", "/dev/bus/usb/001/012");
    TargetPrinters made;
    made.findings = {finding("A", "usb://Acme/P1?serial=S77"),
                     finding("B", "usb://Acme/P1?serial=S78"), finding("C", "lpd://10.0.0.5/S77"),
                     finding("D", "usb://Acme/P1?serial=S77", PrinterReason::duplicate),
                     finding("E", "usb://Acme/P1?serial=S77", PrinterReason::noAnswer)};
    auto facts = printerFacts(made, true);
    facts.list[2].warning = "another one";
    warnOfHolders(facts, "1209", bus.root());
    EXPECT_EQ(facts.list[0].warning, "it is in use by usb (process 41)");
    EXPECT_EQ(facts.list[1].warning, "") << "another printer";
    EXPECT_EQ(facts.list[2].warning, "another one");
    EXPECT_EQ(facts.list[3].warning, "") << "not the reason";
    EXPECT_EQ(facts.list[4].warning, "it is in use by usb (process 41)");
}
