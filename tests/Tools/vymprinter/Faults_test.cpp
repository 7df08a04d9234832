// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/Faults.h"
#include "tests/Tools/vymprinter/parsed_fault.h"

#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

TEST(VymprinterFaults, StageCountAndValueAreRead)
{
    const auto close = parsed("close@piece:100000");
    EXPECT_EQ(close.stage, Stage::piece);
    EXPECT_EQ(close.at, 100000U);
    EXPECT_EQ(parsed("silent@last-block").stage, Stage::lastBlock);
    EXPECT_FALSE(parsed("silent@last-block").at);
    EXPECT_EQ(parsed("close@piece:0").at, 0U);
    const auto bad = parsed("bad-maxpacket=-5@get-file:2");
    EXPECT_EQ(bad.value, "-5");
    EXPECT_EQ(bad.at, 2U);
}

TEST(VymprinterFaults, WrongSpecsAreRefusedWithWhatToWriteInstead)
{
    const struct {
        const char* spec;
        const char* says;
    } rows[] = {
        {"slient", "did you mean silent?"},
        {"status", "status-0803, status-0804, status-unknown, status-over-100"},
        {"xyzzyxyzzy", "`--fault list`"},
        {"", "there is no fault ''"},
        {"@piece", "there is no fault ''"},
        {"close@", "its stages: connect, enter"},
        {"close@exti", "its stages: connect, enter"},
        {"refuse-busy@piece", "its stages: enter"},
        {"close@exit:0", "N from 1"},
        {"close@exit:", "is not a count"},
        {"close@piece:12x", "is not a count"},
        {"close@piece:-1", "is not a count"},
        {"close@piece:99999999999999999999", "is not a count"},
        {"bad-maxpacket", "=VALUE"},
        {"bad-maxpacket=", "=VALUE"},
        {"close=3", "takes no value"},
    };
    for (const auto& row : rows) {
        const auto result = parseFault(row.spec);
        EXPECT_FALSE(result.fault) << row.spec;
        EXPECT_THAT(result.error, HasSubstr(row.says)) << row.spec;
    }
}

TEST(VymprinterFaults, OnceMeansThatRequestAndNoOther)
{
    FaultPlan plan({parsed("wrong-code@status:2")});
    EXPECT_TRUE(plan.atRequest(Stage::status).none());
    EXPECT_TRUE(plan.atRequest(Stage::exit).none());
    EXPECT_TRUE(plan.atRequest(Stage::status).has(FaultKind::wrongCode));
    EXPECT_TRUE(plan.atRequest(Stage::status).none());
}

TEST(VymprinterFaults, SilenceLastsForTheWholeConnection)
{
    FaultPlan plan({parsed("silent@piece:10")});
    EXPECT_TRUE(plan.atPiece(9).none());
    EXPECT_TRUE(plan.atPiece(10).has(FaultKind::silent));
    EXPECT_TRUE(plan.atPiece(11).has(FaultKind::silent));
    EXPECT_TRUE(plan.atRequest(Stage::exit).has(FaultKind::silent));
}

TEST(VymprinterFaults, ChangesOfTargetInfoLastButAffectNothingElse)
{
    FaultPlan plan({parsed("wrong-model")});
    EXPECT_TRUE(plan.atRequest(Stage::getFile).has(FaultKind::wrongModel));
    EXPECT_TRUE(plan.atRequest(Stage::exit).none());
    EXPECT_TRUE(plan.atRequest(Stage::getFile).has(FaultKind::wrongModel));
}

TEST(VymprinterFaults, ConnectMeansEveryConnectionUnlessOneIsNamed)
{
    EXPECT_TRUE(FaultPlan({parsed("close@connect")}).atConnect(3).has(FaultKind::close));
    EXPECT_TRUE(FaultPlan({parsed("close@connect:3")}).atConnect(3).has(FaultKind::close));
    EXPECT_TRUE(FaultPlan({parsed("close@connect:2")}).atConnect(3).none());
}

TEST(VymprinterFaults, BreaksAreTheOnlyFaultsInTheMiddleOfAPacket)
{
    const FaultPlan plan({parsed("reset@piece:5"), parsed("wrong-code@piece:1")});
    EXPECT_TRUE(plan.breakAt(4).none());
    EXPECT_EQ(plan.breakAt(5).names(), "reset");
}

} // namespace
