// SPDX-License-Identifier: MIT
#include "CLI/Fleet/FleetList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Kind = PrinterWord::Kind;

std::vector<std::string> textsOf(const std::vector<FleetMember>& members)
{
    std::vector<std::string> texts;
    for (const auto& member : members)
        texts.push_back(member.word.text);
    return texts;
}

void addQueue(TargetPrinters& made, const char* identifier, const char* uri,
              PrinterReason reason = PrinterReason::candidate)
{
    PrinterFinding finding;
    finding.printer = PrinterInfo::initWithPMPrinter({identifier, identifier, {}, uri, "Acme 1"});
    finding.reason = reason;
    made.findings.push_back(finding);
}

} // namespace

TEST(FleetList, TakesEachHostOnceHoweverItIsWritten)
{
    const auto list = fleetList({{Kind::address, "192.0.2.7"},
                                 {Kind::uri, "lpd://192.0.2.7/queue"},
                                 {Kind::address, "192.0.2.8"},
                                 {Kind::uri, "net:192.0.2.7"},
                                 {Kind::address, "Hall.example"},
                                 {Kind::address, "hall.EXAMPLE."},
                                 {Kind::uri, "lpd://192.0.2.8:515/"}},
                                nullptr);
    EXPECT_THAT(textsOf(list.members), ElementsAre("192.0.2.7", "192.0.2.8", "Hall.example"));
    EXPECT_THAT(list.sameDevice,
                ElementsAre("lpd://192.0.2.7/queue", "net:192.0.2.7", "hall.EXAMPLE.",
                            "lpd://192.0.2.8:515/"));
}

TEST(FleetList, TakesEachSerialNumberOnce)
{
    const auto list = fleetList({{Kind::uri, "usb://Acme/P1?serial=12"},
                                 {Kind::uri, "usb://Acme/P%201?serial=12&interface=1"},
                                 {Kind::uri, "usb://Acme/P1?serial=123"}},
                                nullptr);
    EXPECT_THAT(textsOf(list.members),
                ElementsAre("usb://Acme/P1?serial=12", "usb://Acme/P1?serial=123"));
    EXPECT_EQ(list.sameDevice.size(), 1U);
}

TEST(FleetList, FindsTheDeviceOfAQueue)
{
    TargetPrinters made;
    addQueue(made, "office", "lpd://192.0.2.7/q");
    addQueue(made, "hall", "usb://Acme/P1?serial=12");
    const auto list = fleetList({{Kind::address, "192.0.2.7"},
                                 {Kind::queue, "Office"},
                                 {Kind::queue, "hall"},
                                 {Kind::uri, "usb://Acme/P1?serial=12"}},
                                &made);
    EXPECT_THAT(textsOf(list.members), ElementsAre("192.0.2.7", "hall"));
    ASSERT_TRUE(list.members[1].queue);
    EXPECT_EQ(list.members[1].queue->deviceUri, "usb://Acme/P1?serial=12");
    EXPECT_EQ(list.members[1].queue->identifier, "hall");
}

TEST(FleetList, LeavesAQueueThatIsNotFoundToItsOwnProcess)
{
    TargetPrinters made;
    addQueue(made, "other", "lpd://192.0.2.7/q", PrinterReason::otherDriver);
    const auto list =
        fleetList({{Kind::queue, "gone"}, {Kind::queue, "GONE"}, {Kind::queue, "other"}}, &made);
    EXPECT_THAT(textsOf(list.members), ElementsAre("gone", "other"));
    EXPECT_FALSE(list.members[0].queue || list.members[1].queue);
}

TEST(FleetList, EveryCandidateIsAWord)
{
    TargetPrinters made;
    addQueue(made, "office", "lpd://192.0.2.7/q");
    addQueue(made, "other", "lpd://192.0.2.8/q", PrinterReason::otherDriver);
    PrinterFinding usb;
    usb.printer = PrinterInfo::initWithPrinterName("USB Printer", "P1", "usb://Acme/P1?serial=1");
    made.findings.push_back(usb);
    EXPECT_THAT(everyCandidate(made),
                ElementsAre(PrinterWord{Kind::queue, "office"},
                            PrinterWord{Kind::uri, "usb://Acme/P1?serial=1"}));
    EXPECT_THAT(everyCandidate({}), IsEmpty());
}
