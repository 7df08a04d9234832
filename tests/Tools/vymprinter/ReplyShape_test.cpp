// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/ReplyShape.h"
#include "tests/Tools/vymprinter/parsed_fault.h"

#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

const Bytes kReply = encodeSimpleReply(command::kEnter, status::kDone);

std::vector<Outgoing> shaped(const std::string& fault, const Bytes& reply = kReply)
{
    FaultSet faults;
    faults.add(parsed(fault).kind);
    return shapeReply(reply, faults, Millis(1000), 5000);
}

Bytes joined(const std::vector<Outgoing>& parts)
{
    Bytes all;
    for (const auto& part : parts)
        all.insert(all.end(), part.bytes.begin(), part.bytes.end());
    return all;
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

} // namespace
