// SPDX-License-Identifier: MIT
// The judge of all other tests: it must catch every false claim, and no true one.
#include "tests/support/Printer.h"
#include "tests/support/TruthOracle.h"

#include <gtest/gtest.h>

namespace {

using printer::number;

constexpr std::uint16_t kFinished = 0x80;

std::string filePacket(unsigned kind, std::uint32_t start, std::uint32_t end,
                       const std::string& data, unsigned sumShift = 0,
                       const std::string& name = "MAIN")
{
    std::string padded = name;
    padded.resize(32, '\0');
    const auto sum = static_cast<std::uint16_t>(printer::byteSum(data) + sumShift);
    return printer::reply(0x5002,
                          number(0, 2) + padded + number(kind, 2) + number(start, 4)
                              + number(end, 4) + number(sum, 2) + number(0, 2)
                              + number(static_cast<std::uint32_t>(data.size()), 4) + data);
}

class TruthOracleTest : public ::testing::Test {
protected:
    // A run without trouble: two pieces, the last block, its answer.
    void takeAll()
    {
        m_ledger.took(filePacket(0, 0, 6, "abc"));
        m_ledger.answeredFile("MAIN", false, kFinished);
        m_ledger.took(filePacket(0, 3, 6, "def"));
        takeLast();
        m_ledger.answeredFile("MAIN", true, kFinished);
    }
    void takeLast() { m_ledger.took(filePacket(0x80, 6, 6, "", 597)); }
    static FirmwareClaim success() { return {"MAIN", "abcdef", 1, true, false}; }
    static FirmwareClaim failure(int code) { return {"MAIN", "abcdef", code, true, false}; }
    [[nodiscard]] std::string judge(const FirmwareClaim& claim) const
    {
        std::string all;
        for (const auto& sentence : untruths({claim}, m_ledger, m_peer))
            all += sentence + '\n';
        return all;
    }

    PrinterLedger m_ledger;
    PeerTraits m_peer;
};

TEST_F(TruthOracleTest, LetsATrueSuccessPass)
{
    takeAll();
    EXPECT_EQ(judge(success()), "");
}

TEST_F(TruthOracleTest, CatchesSuccessWithoutEveryByte)
{
    m_ledger.took(filePacket(0, 0, 6, "abc"));
    takeLast();
    m_ledger.answeredFile("MAIN", true, kFinished);
    EXPECT_NE(judge(success()).find("lacks bytes"), std::string::npos);
}

TEST_F(TruthOracleTest, CatchesSuccessOnAnEarlierPiecesAnswer)
{
    m_ledger.took(filePacket(0, 0, 6, "abc"));
    m_ledger.took(filePacket(0, 3, 6, "def"));
    m_ledger.answeredFile("MAIN", false, kFinished);
    takeLast();
    EXPECT_NE(judge(success()).find("own answer"), std::string::npos);
}

TEST_F(TruthOracleTest, ExcusesOneAnswerBeforeSilenceOnly)
{
    m_peer.fellSilent = true;
    m_ledger.took(filePacket(0, 0, 6, "abc"));
    m_ledger.answeredFile("MAIN", false, kFinished);
    EXPECT_EQ(judge(success()), "") << "so looks a printer that answers its last block alone";
    m_ledger.took(filePacket(0, 3, 6, "def"));
    m_ledger.answeredFile("MAIN", false, kFinished);
    EXPECT_NE(judge(success()), "");
}

TEST_F(TruthOracleTest, CatchesSuccessWithoutALastBlock)
{
    m_ledger.took(filePacket(0, 0, 6, "abcdef"));
    EXPECT_NE(judge(success()).find("never took the last block"), std::string::npos);
}

TEST_F(TruthOracleTest, CatchesASuccessThatWasARefusal)
{
    m_ledger.took(filePacket(0x80, 0, 6, "abcdef"));
    m_ledger.answeredFile("MAIN", true, 0x0804);
    EXPECT_NE(judge(success()).find("own answer"), std::string::npos);
    EXPECT_NE(judge(failure(-5)).find("0x0804"), std::string::npos);
    EXPECT_EQ(judge(failure(-2)), "");
}

TEST_F(TruthOracleTest, WantsTheCodeOfADeviceErrorUnlessTheRunWasInterrupted)
{
    m_ledger.took(filePacket(0, 0, 6, "abc"));
    m_ledger.answeredFile("MAIN", false, 0x0803);
    EXPECT_NE(judge(failure(-2)).find("0x0803"), std::string::npos);
    EXPECT_EQ(judge(failure(-1)), "");
    m_peer.interrupted = true;
    EXPECT_EQ(judge(failure(-9)), "");
}

TEST_F(TruthOracleTest, CatchesARefusalThatWasNeverGiven)
{
    takeAll();
    EXPECT_NE(judge(failure(-2)).find("never gave"), std::string::npos);
    EXPECT_EQ(judge(failure(-6)), "");
    m_ledger.answeredQuery(0x0803); // a status can refuse, too
    EXPECT_EQ(judge(failure(-1)), "");
}

TEST_F(TruthOracleTest, CatchesNothingSentThoughAPacketArrived)
{
    takeAll();
    auto claim = failure(-6);
    claim.sent = false;
    EXPECT_NE(judge(claim).find("has taken packets"), std::string::npos);
}

TEST_F(TruthOracleTest, CatchesNothingSentThoughHalfAPacketArrived)
{
    m_ledger.leftOver(filePacket(0, 0, 6, "abc").substr(0, 20));
    auto claim = failure(-6);
    claim.sent = false;
    EXPECT_NE(judge(claim).find("bytes of a file packet"), std::string::npos);
    EXPECT_EQ(judge(failure(-6)), "");
}

TEST_F(TruthOracleTest, CatchesConfirmedWithoutTheReportOfThePrinter)
{
    m_ledger.answeredQuery(kFinished); // before the last block: about another file
    takeAll();
    auto claim = success();
    claim.confirmed = true;
    EXPECT_NE(judge(claim).find("end of its writing"), std::string::npos);
    m_ledger.answeredQuery(0x81);
    EXPECT_NE(judge(claim), "");
    m_ledger.answeredQuery(kFinished);
    EXPECT_EQ(judge(claim), "");
}

TEST_F(TruthOracleTest, CatchesForeignBytesWrongPlacesAndWrongSums)
{
    m_ledger.took(filePacket(0, 0, 6, "abX"));
    EXPECT_NE(judge(failure(-6)).find("not those of the image"), std::string::npos);
    m_ledger = {};
    m_ledger.took(filePacket(0, 3, 6, "abc"));
    EXPECT_NE(judge(failure(-6)).find("not at its place"), std::string::npos);
    m_ledger = {};
    m_ledger.took(filePacket(0, 0, 6, "abc", 1));
    EXPECT_NE(judge(failure(-6)).find("checksum"), std::string::npos);
}

TEST_F(TruthOracleTest, CatchesASoundPrinterThatWasGivenUp)
{
    takeAll();
    EXPECT_EQ(judge(failure(-5)), "");
    m_peer.mustSucceed = true;
    EXPECT_NE(judge(failure(-5)).find("given up (-5)"), std::string::npos);
    m_ledger = {};
    EXPECT_EQ(judge({"MAIN", "abcdef", -11, false, false}), "");
}

TEST_F(TruthOracleTest, DoesNotHoldALiarToItsWordButStillLooksAtItsBytes)
{
    m_ledger.took(filePacket(0, 0, 6, "abX"));
    m_peer.honest = false;
    EXPECT_EQ(judge(success()).find("success"), std::string::npos);
    EXPECT_NE(judge(success()).find("not those of the image"), std::string::npos);
}

TEST(PacketAssemblerTest, GivesWholePacketsHoweverTheyCome)
{
    const auto packet = filePacket(0, 0, 3, "abc");
    PacketAssembler line;
    for (const char byte : packet + packet) {
        EXPECT_LT(line.rest().size(), packet.size());
        line.add({&byte, 1});
        if (const auto whole = line.next()) {
            EXPECT_EQ(*whole, packet);
        }
    }
    EXPECT_EQ(line.rest(), "");
}

} // namespace
