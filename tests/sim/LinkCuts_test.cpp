// SPDX-License-Identifier: MIT
// One small update again and again, its line cut after every byte of it in turn, on the way out and
// on the way back. After no cut may the run hang, leave a connection open, or claim what is untrue.
#include "VYM/vymBindInfo.h"
#include "tests/sim/Run.h"
#include "tests/sim/World.h"
#include "tests/support/Package.h"

#include <gtest/gtest.h>

namespace {

using sim::Fate;
using sim::Scenario;
using sim::Trigger;
using sim::UsbManners;

constexpr std::uint64_t kStep = VYMKIT_CUT_STEP; // 1: every byte
// A few times of the package: to enter, to send, to leave, and pauses between them.
constexpr sim::Micros kLongestRun = 60 * sim::kSecond;
constexpr std::uint64_t kLeastBytes = 300; // of the shorter direction: the walk has seen them all
constexpr int kMostUntruths = 5; // one mistake is enough to see

struct Kind {
    const char* name;
    const char* description; // of the package, beside what all have
    const char* targetInfo;
    unsigned answerEvery;
};
constexpr Kind kKinds[] = {
    {"AnswersEachPiece", "", "", 1},
    {"AnswersItsLastBlock", "", "", 0},
    {"IsAskedForItsStatus", "", "SUPPORT_COMMAND 5103\r\n", 1},
    {"GetsDataInItsLastBlock", "SPECIALCMDPATTERN YES\r\n", "", 1},
};

Scenario updateOf(const Kind& kind)
{
    Scenario scenario;
    scenario.updateSeconds = 5;
    scenario.maxPacket = 110; // two pieces of 50 bytes
    scenario.description = std::string("TGMNAME \"Vymprint 200\"\r\nDEVICEIDMODELNAME P1\r\n"
                                       "PORT USB NET\r\nENTERTIME 5\r\nEXITTIME 1\r\n"
                                       "UPDATETIME 5\r\nALLOWVERSIONDOWN YES\r\n")
        + kind.description + "VERSION MAIN=2 image2 MAIN.BIN\r\nVERSION FONT=2 image1 FONT.BIN\r\n";
    scenario.entries = {{"MAIN.BIN", 2}, {"FONT.BIN", 1}};
    scenario.printer.targetInfo =
        std::string("TGMNAME \"Vymprint 200\"\r\nVERSION MAIN=1\r\nVERSION FONT=1\r\nMAXPACKET 110")
        + "\r\n" + kind.targetInfo;
    scenario.printer.infoBlock = 70;
    scenario.printer.answerEvery = kind.answerEvery;
    scenario.printer.writingAnswers = 1;
    scenario.link.segmentOut = 1; // each byte arrives for itself
    scenario.link.fragmentBack = 1;
    return scenario;
}

class EachByte : public testing::TestWithParam<Kind> {
protected:
    static void SetUpTestSuite()
    {
        for (std::size_t i = 0; i < std::size(sim::kImageSizes); ++i)
            s_package.file(sim::imageName(i), sim::imageOf(i));
        s_package.open();
        ASSERT_TRUE(vymBindInfo::Instance()->IsBindVymFile());
    }

    // Cuts after 1, 2, 3 ... bytes, until the run is over before its cut.
    template <class CutAfter> static void walk(CutAfter cutAfter)
    {
        int untruths = 0;
        std::uint64_t bytes = 1;
        for (;; bytes += kStep) {
            auto scenario = updateOf(GetParam());
            cutAfter(scenario, bytes);
            sim::g_seed = bytes; // is named where a run hangs
            const auto report = sim::run(scenario, false);
            for (const auto& sentence : report.untruths) {
                ADD_FAILURE() << "cut after " << bytes << " bytes: " << sentence;
                ++untruths;
            }
            EXPECT_LE(report.took, kLongestRun) << "cut after " << bytes << " bytes";
            EXPECT_TRUE(report.result != 1 || report.allTaken) << "cut after " << bytes << " bytes";
            if (!report.disturbed) {
                EXPECT_EQ(report.result, 1);
                break;
            }
            if (untruths >= kMostUntruths)
                return;
        }
        EXPECT_GT(bytes, kLeastBytes);
    }
    static void walkTcp(Fate fate, Trigger trigger)
    {
        walk([=](Scenario& scenario, std::uint64_t bytes) {
            scenario.link.fate = fate;
            scenario.link.trigger = trigger;
            scenario.link.triggerAt = bytes;
        });
    }
    static void walkUsb(std::uint64_t UsbManners::*direction, bool standsStill)
    {
        walk([=](Scenario& scenario, std::uint64_t bytes) {
            scenario.usb.emplace().*direction = bytes - 1; // after no byte, too
            scenario.usb->standsStill = standsStill;
        });
    }

    inline static Package s_package;
};

TEST_P(EachByte, MayBeTheLastThatTcpCarriesOutBeforeAReset)
{
    walkTcp(Fate::reset, Trigger::bytesOut);
}
TEST_P(EachByte, MayBeTheLastThatTcpCarriesOutBeforeThePrinterCloses)
{
    walkTcp(Fate::printerCloses, Trigger::bytesOut);
}
TEST_P(EachByte, MayBeTheLastThatTcpCarriesBackBeforeAReset)
{
    walkTcp(Fate::reset, Trigger::bytesBack);
}
TEST_P(EachByte, MayBeTheLastThatTcpCarriesBackBeforeThePrinterCloses)
{
    walkTcp(Fate::printerCloses, Trigger::bytesBack);
}
TEST_P(EachByte, MayBeTheLastThatUsbCarriesOutBeforeThePlugIsPulled)
{
    walkUsb(&UsbManners::bytesOut, false);
}
TEST_P(EachByte, MayBeTheLastThatUsbCarriesOutBeforeThePrinterStandsStill)
{
    walkUsb(&UsbManners::bytesOut, true);
}
TEST_P(EachByte, MayBeTheLastThatUsbCarriesBackBeforeThePlugIsPulled)
{
    walkUsb(&UsbManners::bytesBack, false);
}
TEST_P(EachByte, MayBeTheLastThatUsbCarriesBackBeforeThePrinterStandsStill)
{
    walkUsb(&UsbManners::bytesBack, true);
}

INSTANTIATE_TEST_SUITE_P(OfAPrinterThat, EachByte, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

} // namespace
