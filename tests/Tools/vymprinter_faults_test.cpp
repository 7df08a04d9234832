#include "Tools/vymprinter/FaultTable.h"
#include "Tools/vymprinter/Faults.h"
#include "Tools/vymprinter/FileBlocks.h"
#include "Tools/vymprinter/ReplyShape.h"

#include <gmock/gmock.h>
#include <set>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

Fault parsed(const std::string& text)
{
    const auto result = parseFault(text);
    EXPECT_EQ(result.error, "") << text;
    return result.fault.value_or(Fault{});
}

TEST(VymprinterFaults, EveryNameParsesAndIsInTheList)
{
    const auto list = faultList();
    std::set<std::string_view> names;
    for (const auto& row : faultTable()) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        const auto fault = parsed(std::string(row.name) + (row.wantsValue ? "=7" : ""));
        EXPECT_EQ(fault.kind, row.kind) << row.name;
        EXPECT_EQ(fault.stage, row.usual) << row.name;
        EXPECT_THAT(list, HasSubstr("\n" + std::string(row.name)));
    }
}

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

TEST(VymprinterFaults, TargetInfoIsChangedRowByRow)
{
    const struct {
        const char* fault;
        const char* text;
    } rows[] = {
        {"wrong-model", "TGMNAME \"Another model\"\r\nMAXPACKET 9\r\n"},
        {"no-model", "MAXPACKET 9\r\n"},
        {"no-maxpacket", "TGMNAME M\r\n"},
        {"bad-maxpacket=-5", "MAXPACKET -5\r\nTGMNAME M\r\n"},
    };
    for (const auto& row : rows) {
        FaultPlan plan({parsed(row.fault)});
        EXPECT_EQ(faultyTargetInfo("TGMNAME M\r\nMAXPACKET 9\r\n", plan.atRequest(Stage::getFile),
                                   plan.value(FaultKind::badMaxPacket)),
                  row.text);
    }
}

const Bytes kReply = encodeSimpleReply(command::kEnter, status::kDone);

std::vector<Outgoing> shaped(const std::string& fault, const Bytes& reply = kReply)
{
    FaultSet faults;
    faults.add(parsed(fault).kind);
    return shapeReply(reply, faults, Millis(1000), 5000);
}

TEST(VymprinterReplyShape, WithoutAFaultItIsOnePartAtOnce)
{
    const auto parts = shapeReply(kReply, {}, Millis(7), 5000);
    ASSERT_EQ(parts.size(), 1U);
    EXPECT_EQ(parts[0].bytes, kReply);
    EXPECT_EQ(parts[0].due, Millis(7));
}

TEST(VymprinterReplyShape, SpoiltRepliesAreSpoiltInTheirOwnWay)
{
    EXPECT_EQ(shaped("wrong-code")[0].bytes, (Bytes{0, 0, 0x51, 0xFF, 0, 0, 0, 4, 0, 0, 0, 0x80}));
    EXPECT_EQ(shaped("short-reply")[0].bytes, (Bytes{0, 0, 0x51, 0x01, 0, 0, 0, 0}));
    EXPECT_EQ(shaped("length-lie")[0].bytes,
              (Bytes{0, 0, 0x51, 0x01, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0x80}));
    EXPECT_EQ(shaped("garbage")[0].bytes.size(), 64U);
    EXPECT_EQ(shaped("garbage")[0].bytes, shaped("garbage")[0].bytes);
}

TEST(VymprinterReplyShape, OversizedReplyHasItsAnnouncedLength)
{
    const auto bytes = shaped("oversized")[0].bytes;
    EXPECT_EQ(bytes.size(), 5000U + 65536U);
    EXPECT_EQ(get32(bytes, 4), bytes.size() - 8);
}

Bytes joined(const std::vector<Outgoing>& parts)
{
    Bytes all;
    for (const auto& part : parts)
        all.insert(all.end(), part.bytes.begin(), part.bytes.end());
    return all;
}

TEST(VymprinterReplyShape, CutRepliesAreCompleteAndLate)
{
    const Bytes block = encodeFileBlock({0, 0, 4000, 0, Bytes(4000, 1)});
    const auto reply = shaped("split-reply", block);
    ASSERT_EQ(reply.size(), 2U);
    EXPECT_EQ(reply[0].bytes.size(), 4U);
    EXPECT_EQ(reply[1].due - reply[0].due, Millis(30));
    EXPECT_EQ(joined(reply), block);

    const auto body = shaped("split-body", block);
    EXPECT_EQ(body[0].bytes.size(), 8U);
    EXPECT_EQ(body[1].due - body[0].due, Millis(3));
    EXPECT_GT(body.size(), 20U);
    EXPECT_LT(body.back().due - body[0].due, Millis(50));
    EXPECT_EQ(joined(body), block);

    const auto drip = shaped("drip");
    ASSERT_EQ(drip.size(), kReply.size());
    EXPECT_EQ(drip[3].due, Millis(1300));
    EXPECT_EQ(joined(drip), kReply);
}

TEST(VymprinterReplyShape, QueueLetsNothingOvertake)
{
    ReplyQueue queue;
    queue.push({Millis(50), {1, 2}, LinkEnd::none});
    queue.push({Millis(10), {3}, LinkEnd::none});
    queue.sent(1);
    EXPECT_EQ(queue.unsent().size(), 1U);
    queue.sent(1);
    EXPECT_EQ(queue.front().due, Millis(50));
    queue.sent(1);
    EXPECT_TRUE(queue.empty());
}

} // namespace
