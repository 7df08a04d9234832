// SPDX-License-Identifier: MIT
// Fetching the printer's description, and the decision that follows from it.
#include "tests/support/ProtocolFixture.h"

namespace {

class vymProtocolCheck : public ProtocolFixture {
protected:
    void SetUp() override
    {
        ProtocolFixture::SetUp();
        package({"TGMNAME MODEL-A"});
        open();
    }
    int fetch() { return m_protocol->GetFileData("TargetInfo.txt"); }
    // The decision for an update of MAIN to that version, under a rule row of the package.
    int decide(const char* rule, const char* updateVersion, const char* compatible = "")
    {
        package({rule});
        tell(targetInfo());
        int code = 77;
        m_sent = m_protocol->CheckVersion("MODEL-A", "MAIN", updateVersion, compatible, code);
        return code;
    }
    bool m_sent = false;
};

TEST_F(vymProtocolCheck, FetchesAFileOfOneBlock)
{
    tell(targetInfo());
    EXPECT_EQ(fetch(), 1);
    EXPECT_EQ(m_script.timeouts().back(), 1000U);
    std::string model;
    EXPECT_TRUE(m_protocol->getTargetModel(model));
    EXPECT_EQ(model, "MODEL-A");
}

TEST_F(vymProtocolCheck, FetchesAFileOfManyBlocksWithOneRequest)
{
    const auto text = targetInfo();
    const auto total = static_cast<std::uint32_t>(text.size());
    for (std::uint32_t at = 0; at < total; at += 10) {
        const bool last = at + 10 >= total;
        m_script.queueReply(printer::fileBlock(
            {static_cast<std::uint16_t>(last ? 128 : 0), at, total,
             static_cast<std::uint16_t>(last ? printer::byteSum(text) : 0), text.substr(at, 10)}));
    }
    EXPECT_EQ(fetch(), 1);
    const auto sent = m_script.sent();
    EXPECT_EQ(sent[1].size(), 42U);
    for (std::size_t i = 2; i < sent.size(); ++i)
        EXPECT_TRUE(sent[i].empty()) << i;
}

TEST_F(vymProtocolCheck, TurnsEveryFaultOfTheFileIntoACode)
{
    const auto text = targetInfo();
    const auto size = static_cast<std::uint32_t>(text.size());
    const auto sum = printer::byteSum(text);
    const struct {
        const char* why;
        std::string reply;
        int code;
    } table[] = {
        {"no reply", "", -5},
        {"another command", printer::enter(), -5},
        {"a refusal", printer::statusReply(0x5001, 0x803), -5},
        {"an unknown status", printer::fileBlock({0x803, 0, size, sum, text}), -5},
        {"a wrong sum", printer::fileBlock({128, 0, size, 1, text}), -2},
        {"an absurd size", printer::fileBlock({0, 0, 0xFFFFFFF0, 0, text}), -9},
        {"a first block and then nothing", printer::fileBlock({0, 0, size, 0, "abc"}), -5},
        {"a block without data", printer::fileBlock({0, 0, size, 0, ""}), -5},
        {"no packet size", printer::file(rows({"TGMNAME MODEL-A"})), -9},
        {"an empty packet size", printer::file(rows({"MAXPACKET"})), -5},
        {"a packet without room for a header", printer::file(rows({"MAXPACKET 7"})), -5},
        {"a negative packet size", printer::file(rows({"MAXPACKET -1"})), -5},
        {"an empty file", printer::file(""), -9},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.why);
        m_script.queueReply(row.reply);
        EXPECT_EQ(fetch(), row.code);
    }
    EXPECT_EQ(m_protocol->GetFileData(nullptr), -10);
    m_script.failNextSend(0, conn::kReceiveFailed);
    EXPECT_EQ(fetch(), -6);
    m_script.refuseTimeout(1000);
    EXPECT_EQ(fetch(), -5);
}

TEST_F(vymProtocolCheck, EndsAFileWhoseBlocksNeverEnd)
{
    m_script.answerWith([](const std::string&) {
        return printer::fileBlock({0, 0, 100, 0, "0123456789"});
    });
    EXPECT_EQ(fetch(), -5);
    EXPECT_LE(m_script.sent().size(), 20U);
}

TEST_F(vymProtocolCheck, GivesUpOnAFileThatTakesTooLong)
{
    m_script.answerWith([this](const std::string&) {
        m_time.advance(900);
        return printer::fileBlock({0, 0, 1000000, 0, "x"});
    });
    EXPECT_EQ(fetch(), -5);
    EXPECT_LE(m_script.sent().size(), 100U);
}

TEST_F(vymProtocolCheck, SendsUnderTheRuleOfThePackage)
{
    const struct {
        const char* rule;
        const char* update;
        bool send;
        int code;
    } table[] = {
        {"ALLOWVERSIONDOWN NO", "AB010200", true, 1},
        {"ALLOWVERSIONDOWN NO", "AB010100", false, -11},
        {"ALLOWVERSIONDOWN BOTH", "AB010100", true, 1},
        {"ALLOWVERSIONDOWN BOTH", "AB010000", false, -11},
        {"ALLOWVERSIONDOWN YES", "AB010000", true, 1},
        {"ALLOWVERSIONDOWN YES", "no form at all", true, 1},
        {"OTHER 1", "AB010100", false, -11},
        {"ALLOWVERSIONDOWN NO", "AB01xx00", false, -5},
        {"ALLOWVERSIONDOWN NO", "AC010200", false, 1},
        {"ALLOWVERSIONDOWN MAYBE", "AB010200", false, -9},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(std::string(row.rule) + " / " + row.update);
        EXPECT_EQ(decide(row.rule, row.update), row.code);
        EXPECT_EQ(m_sent, row.send);
    }
}

TEST_F(vymProtocolCheck, ComparesUnderAnyRuleOnceThereIsACompatibleVersion)
{
    EXPECT_EQ(decide("ALLOWVERSIONDOWN YES", "AB010000", "AB010100"), 1);
    EXPECT_TRUE(m_sent);
    EXPECT_EQ(decide("ALLOWVERSIONDOWN YES", "AB010300", "AB010101"), -12);
    EXPECT_EQ(decide("ALLOWVERSIONDOWN YES", "AB01 form", "AB010101"), -5);
    EXPECT_EQ(decide("ALLOWVERSIONDOWN NO", "AB010200", nullptr), 1);
}

TEST_F(vymProtocolCheck, IgnoresTheCaseOfModelAndFirmware)
{
    int code = 0;
    tell(targetInfo());
    EXPECT_TRUE(m_protocol->CheckVersion("model-a", "main", "AB010200", "", code));
    tell(targetInfo());
    EXPECT_FALSE(m_protocol->CheckVersion("MODEL-B", "MAIN", "AB010200", "", code));
    EXPECT_EQ(code, -7);
    EXPECT_EQ(m_protocol->DecisionReason(), VersionReason::otherModel);
    tell(targetInfo());
    EXPECT_FALSE(m_protocol->CheckVersion("MODEL-A", "BOOT", "AB010200", "", code));
    EXPECT_EQ(code, -11);
    EXPECT_EQ(m_protocol->DecisionReason(), VersionReason::notListed);
}

TEST_F(vymProtocolCheck, NeedsThePrintersModel)
{
    tell(rows({"VERSION MAIN=AB010100", "MAXPACKET 160"}));
    int code = 0;
    EXPECT_FALSE(m_protocol->CheckVersion("MODEL-A", "MAIN", "AB010200", "", code));
    EXPECT_EQ(code, -9);
}

TEST_F(vymProtocolCheck, ReportsMissingArgumentsBeforeItQueriesThePrinter)
{
    int code = 0;
    EXPECT_FALSE(m_protocol->CheckVersion(nullptr, "MAIN", "1", "", code));
    EXPECT_EQ(code, -10);
    EXPECT_FALSE(m_protocol->CheckVersion("M", nullptr, "1", "", code));
    EXPECT_EQ(code, -10);
    EXPECT_FALSE(m_protocol->CheckVersion("M", "MAIN", nullptr, "", code));
    EXPECT_EQ(code, -10);
    EXPECT_EQ(m_script.sent().size(), 1U); // entering only
    code = 55;
    EXPECT_FALSE(m_protocol->CheckFirmVer(nullptr, "", "1", code));
    EXPECT_FALSE(m_protocol->CheckFirmVer("1", "", nullptr, code));
    EXPECT_EQ(code, 55);
}

TEST_F(vymProtocolCheck, LeavesTheDecisionToTheGeneralRulesForEveryModel)
{
    int code = 5;
    modelchk_result outcome = 9;
    EXPECT_FALSE(m_protocol->CheckFirmVerForModel("1", "2", code, outcome));
    EXPECT_EQ(outcome, 0);
    EXPECT_EQ(code, 5);
    EXPECT_FALSE(m_protocol->CheckFirmVerForModel(nullptr, "2", code, outcome));
    EXPECT_EQ(outcome, 2);
    EXPECT_EQ(code, -10);
}

class ModelRule : public vymProtocol {
public:
    explicit ModelRule(modelchk_result outcome) : m_outcome(outcome) { }
    bool CheckFirmVerForModel(const char* /*update*/, const char* /*target*/, int& /*result*/,
                              modelchk_result& outcome) override
    {
        outcome = m_outcome;
        return true;
    }

private:
    modelchk_result m_outcome;
};

TEST_F(vymProtocolCheck, LetsAModelsOwnRuleDecideWhereThereIsOne)
{
    int code = 0;
    EXPECT_FALSE(ModelRule(1).CheckFirmVer("01.20", "", "01.10", code));
    EXPECT_EQ(code, -11);
    EXPECT_FALSE(ModelRule(2).CheckFirmVer("01.20", "", "01.10", code));
    EXPECT_TRUE(ModelRule(0).CheckFirmVer("01.00", "", "01.10", code));
}

TEST_F(vymProtocolCheck, SurvivesVersionsOfThousandsOfCharacters)
{
    const std::string huge(100000, '7');
    tell(rows({"TGMNAME MODEL-A", "VERSION MAIN=" + huge, "MAXPACKET 160"}));
    int code = 0;
    EXPECT_FALSE(m_protocol->CheckVersion("MODEL-A", "MAIN", huge.c_str(), huge.c_str(), code));
    EXPECT_EQ(code, -11);
}

TEST_F(vymProtocolCheck, WalksAListOfAnyLengthOnce)
{
    std::string text = rows({"TGMNAME MODEL-A", "MAXPACKET 160"});
    for (int i = 0; i < 200000; ++i)
        text += "VERSION OTHER=1\r\n";
    tell(text + "VERSION MAIN=AB010100\r\n");
    int code = 0;
    EXPECT_TRUE(m_protocol->CheckVersion("MODEL-A", "MAIN", "AB010200", "", code));
}

} // namespace
