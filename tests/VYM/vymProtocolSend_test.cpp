// SPDX-License-Identifier: MIT
// Sending a firmware: pieces, last blocks, and everything that ends it early.
#include "tests/support/ProtocolFixture.h"

namespace {

using printer::number;

class vymProtocolSend : public ProtocolFixture {
protected:
    // A package with an image of that size, a printer in download mode with pieces of 100 bytes.
    void prepare(std::size_t imageSize, const char* pattern = "SPECIALCMDPATTERN NO",
                 const std::string& info = targetInfo())
    {
        package({"TGMNAME MODEL-A", "UPDATETIME 30", pattern}, imageSize);
        open();
        tell(info);
    }
    void answerPieces(const std::string& reply)
    {
        m_script.answerWith([reply](const std::string&) { return reply; });
    }
    [[nodiscard]] std::string joined() const
    {
        std::string all;
        for (const auto& packet : filePackets())
            all += packet.substr(60);
        return all;
    }
    static unsigned kind(const std::string& packet) { return view(packet).kind(); }
};

TEST_F(vymProtocolSend, SendsEveryByteInPiecesAndThenTheLastBlockWithTheRunningSum)
{
    prepare(250);
    answerPieces(printer::piece());
    EXPECT_EQ(update(), 1);
    const auto packets = filePackets();
    ASSERT_EQ(packets.size(), 4U);
    EXPECT_EQ(joined(), m_image);
    for (std::uint32_t i = 0; i < 3; ++i) {
        EXPECT_EQ(kind(packets[i]), 0U);
        EXPECT_EQ(view(packets[i]).start(), i * 100);
        EXPECT_EQ(view(packets[i]).end(), 250U);
        EXPECT_EQ(packets[i].substr(10, 7), std::string("MAINFW\0", 7));
        EXPECT_EQ(view(packets[i]).sum(), printer::byteSum(packets[i].substr(60)));
    }
    EXPECT_EQ(packets[3].size(), 60U);
    EXPECT_EQ(kind(packets[3]), 129U);
    EXPECT_EQ(view(packets[3]).start(), 250U);
    EXPECT_EQ(view(packets[3]).end(), 250U);
    EXPECT_EQ(view(packets[3]).sum(), printer::byteSum(m_image));
    EXPECT_TRUE(m_protocol->FirmwareBytesWentOut());
}

TEST_F(vymProtocolSend, EndsAnExactMultipleWithAFullPieceAndThenTheLastBlock)
{
    prepare(200);
    answerPieces(printer::piece());
    EXPECT_EQ(update(), 1);
    ASSERT_EQ(filePackets().size(), 3U);
    EXPECT_EQ(filePackets()[1].size(), 160U);
    EXPECT_EQ(filePackets()[2].size(), 60U);
    EXPECT_EQ(joined(), m_image);
}

TEST_F(vymProtocolSend, SendsTheLastPieceAsTheLastBlockWhereThePackageWantsIt)
{
    prepare(250, "SPECIALCMDPATTERN YES");
    answerPieces(printer::piece());
    EXPECT_EQ(update(), 1);
    const auto packets = filePackets();
    ASSERT_EQ(packets.size(), 3U);
    EXPECT_EQ(kind(packets[1]), 0U);
    EXPECT_EQ(kind(packets[2]), 129U);
    EXPECT_EQ(view(packets[2]).dataLength(), 50U);
    EXPECT_EQ(joined(), m_image);
}

TEST_F(vymProtocolSend, SaysInTheLastBlockWhetherThePrinterWillBePolled)
{
    for (const char* pattern : {"SPECIALCMDPATTERN NO", "SPECIALCMDPATTERN YES"}) {
        prepare(100, pattern, targetInfo("160", "SUPPORT_COMMAND 5101"));
        answerPieces(printer::piece());
        EXPECT_EQ(update(), 1);
        EXPECT_EQ(kind(filePackets().back()), 128U) << pattern;
        EXPECT_EQ(m_info.m_checkStateSupported, 0);
    }
}

TEST_F(vymProtocolSend, SendsOnlyTheLastBlockOfAnEmptyFile)
{
    for (const char* pattern : {"SPECIALCMDPATTERN NO", "SPECIALCMDPATTERN YES"}) {
        SCOPED_TRACE(pattern);
        const auto before = filePackets().size();
        prepare(0, pattern);
        answerPieces(printer::piece());
        EXPECT_EQ(update(), 1);
        ASSERT_EQ(filePackets().size(), before + 1);
        EXPECT_EQ(filePackets().back().substr(42, 18), number(129, 2) + std::string(16, '\0'));
    }
}

TEST_F(vymProtocolSend, PausesTwoSecondsBeforeTheCheckAndBeforeTheData)
{
    prepare(10);
    answerPieces(printer::piece());
    EXPECT_EQ(update(), 1);
    EXPECT_EQ(m_time.pauses(), (std::vector<unsigned long>{2000, 2000}));
    EXPECT_EQ(m_script.timeouts().back(), 30000U);
}

TEST_F(vymProtocolSend, PublishesStateNameAndCounts)
{
    prepare(250);
    answerPieces(printer::piece());
    EXPECT_EQ(update(), 1);
    EXPECT_EQ(m_info.m_updateState, state_sending);
    EXPECT_STREQ(m_info.m_firmwareName, "MAINFW");
    EXPECT_EQ(m_info.m_bytesDone, 250U);
    EXPECT_EQ(m_info.m_bytesTotal, 250U);
    EXPECT_EQ(m_info.m_result, 1);
    EXPECT_EQ(m_info.m_checkStateSupported, 1);
}

TEST_F(vymProtocolSend, PublishesADecisionAgainst)
{
    prepare(250);
    EXPECT_EQ(update("AB010100"), -11);
    EXPECT_EQ(m_info.m_updateState, state_checked);
    EXPECT_EQ(m_info.m_result, -11);
    EXPECT_STREQ(m_info.m_firmwareName, "MAINFW");
    EXPECT_TRUE(filePackets().empty());
    EXPECT_FALSE(m_protocol->FirmwareBytesWentOut());
}

TEST_F(vymProtocolSend, SendsNothingForAVersionOfAnotherSeriesAndCallsItNoError)
{
    prepare(250);
    EXPECT_EQ(update("XY010200"), 1);
    EXPECT_TRUE(filePackets().empty());
    EXPECT_FALSE(m_protocol->FirmwareBytesWentOut());
    EXPECT_EQ(m_protocol->DecisionReason(), VersionReason::otherSeries);
}

TEST_F(vymProtocolSend, GoesOnWhenAPieceIsNotAnswered)
{
    prepare(250);
    m_script.queueReply("").queueReply("").queueReply("").queueReply(printer::piece());
    EXPECT_EQ(update(), 1);
    EXPECT_EQ(joined(), m_image);
}

TEST_F(vymProtocolSend, NeedsAnAnswerToTheLastBlock)
{
    for (const char* pattern : {"SPECIALCMDPATTERN NO", "SPECIALCMDPATTERN YES"}) {
        prepare(50, pattern);
        answerPieces("");
        EXPECT_EQ(update(), -5) << pattern;
        EXPECT_EQ(m_info.m_result, -5);
    }
}

TEST_F(vymProtocolSend, MakesAnAnswerToAPieceACode)
{
    const struct {
        const char* why;
        std::string reply;
        int code;
    } table[] = {
        {"0x0803", printer::piece(0x803), -1},
        {"0x0804", printer::piece(0x804), -2},
        {"0", printer::piece(0), -5},
        {"0x1001", printer::piece(0x1001), -5},
        {"unknown", printer::piece(0x7777), -5},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.why);
        prepare(250);
        answerPieces(row.reply);
        const auto before = filePackets().size();
        EXPECT_EQ(update(), row.code);
        EXPECT_EQ(filePackets().size(), before + 1);
        EXPECT_EQ(m_info.m_result, row.code);
        EXPECT_EQ(m_info.m_bytesDone, 0U);
        EXPECT_TRUE(m_protocol->FirmwareBytesWentOut());
    }
}

TEST_F(vymProtocolSend, CountsAMalformedAnswerAsMissing)
{
    for (const std::string& reply : {printer::enter(), printer::reply(0x5002, ""),
                                     std::string("garbage bytes"), printer::piece(0x803) + "x"}) {
        prepare(50);
        m_script.queueReply(reply).queueReply(printer::piece());
        EXPECT_EQ(update(), 1);
    }
}

TEST_F(vymProtocolSend, EndsWhenTheConnectionIsLost)
{
    prepare(250);
    answerPieces(printer::piece());
    m_script.failNextSend(2, conn::kSendFailed); // after the target information and one piece
    EXPECT_EQ(update(), -6);
    EXPECT_EQ(m_info.m_result, -6);
    EXPECT_EQ(m_info.m_bytesDone, 100U);
}

TEST_F(vymProtocolSend, RefusesAnImageThatThePackageDoesNotHold)
{
    prepare(50);
    EXPECT_EQ(update("AB010200", "other.bin"), -8);
    EXPECT_EQ(m_info.m_updateState, state_checked);
    EXPECT_TRUE(filePackets().empty());
    Package cut;
    cut.description({"TGMNAME MODEL-A", "UPDATETIME 30"}).entry("main.bin", 0, 5000).open();
    tell(targetInfo());
    EXPECT_EQ(update(), -8);
    EXPECT_TRUE(filePackets().empty());
}

TEST_F(vymProtocolSend, EndsWhenThePackageIsCutWhileItIsBeingSent)
{
    prepare(250);
    const auto container = m_package->folder() / "VYMBINDDATA";
    m_script.answerWith([container](const std::string&) {
        std::filesystem::resize_file(container, 10); // a stick that is pulled out
        return printer::piece();
    });
    EXPECT_EQ(update(), -8);
    EXPECT_EQ(filePackets().size(), 1U);
    EXPECT_TRUE(m_protocol->FirmwareBytesWentOut());
}

TEST_F(vymProtocolSend, NeedsTheRequiredKeysOfPackageAndPrinter)
{
    const struct {
        const char* why;
        const char* row;
        std::string info;
        int code;
    } table[] = {
        {"an empty UPDATETIME", "UPDATETIME", targetInfo(), -9},
        {"UPDATETIME 0 is no time-out", "UPDATETIME 0", targetInfo(), -5},
        {"nor is none", "OTHER 1", targetInfo(), -5},
        {"nor a negative one", "UPDATETIME -2", targetInfo(), -5},
        {"-1 reads as no answer", "UPDATETIME -1", targetInfo(), -9},
        {"a packet without room for data", "UPDATETIME 1", targetInfo("60"), -5},
        {"room for less", "UPDATETIME 1", targetInfo("8"), -5},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.why);
        package({"TGMNAME MODEL-A", row.row});
        open();
        tell(row.info);
        EXPECT_EQ(update(), row.code);
    }
    EXPECT_TRUE(filePackets().empty());
    package({"SPECIALCMDPATTERN MAYBE"});
    EXPECT_EQ(update(), -9);
}

TEST_F(vymProtocolSend, KeepsItsPiecesBoundedWhateverThePrinterOffers)
{
    prepare(10, "SPECIALCMDPATTERN NO", targetInfo("2147483647"));
    answerPieces(printer::piece());
    EXPECT_EQ(update(), 1);
    EXPECT_EQ(joined(), m_image);
}

TEST_F(vymProtocolSend, SendsPiecesOfASingleByteWhereThePrinterWantsThem)
{
    prepare(20, "SPECIALCMDPATTERN NO", targetInfo("61"));
    answerPieces(printer::piece());
    EXPECT_EQ(update(), 1);
    EXPECT_EQ(filePackets().size(), 21U);
    EXPECT_EQ(joined(), m_image);
}

TEST_F(vymProtocolSend, LeavesANameThatDoesNotFitEmptyEverywhere)
{
    prepare(10);
    answerPieces(printer::piece());
    EXPECT_EQ(update("AB010200", "main.bin", std::string(32, 'n').c_str()), 1);
    EXPECT_EQ(filePackets()[0].substr(10, 32), std::string(32, '\0'));
    EXPECT_STREQ(m_info.m_firmwareName, "");
}

TEST_F(vymProtocolSend, ReportsMissingArgumentsBeforeItQueriesThePrinter)
{
    package({"SPECIALCMDPATTERN NO"});
    open();
    EXPECT_EQ(update("AB010200", nullptr), -10);
    EXPECT_EQ(update("AB010200", "main.bin", nullptr), -10);
    EXPECT_EQ(m_protocol->UpdateFirmware(nullptr, "MAIN", "1", "f", "s", "", m_info), -10);
    EXPECT_EQ(m_protocol->UpdateFirmware("M", nullptr, "1", "f", "s", "", m_info), -10);
    EXPECT_EQ(m_script.sent().size(), 1U);
}

TEST_F(vymProtocolSend, SendsOnlyKindsThatItKnows)
{
    package({"SPECIALCMDPATTERN NO"});
    open();
    unsigned char data[] = {1, 2, 3};
    EXPECT_EQ(m_protocol->SendFileData("A", 7, 0, 3, data, 3), -5);
    EXPECT_TRUE(filePackets().empty());
    EXPECT_EQ(m_protocol->SendFileData(nullptr, 0, 0, 3, data, 3), -10);
    m_script.queueReply(printer::piece());
    EXPECT_EQ(m_protocol->SendFileData("A", 511, 0, 0, data, 3), 1);
    EXPECT_EQ(filePackets().back().size(), 60U);
    m_script.queueReply(printer::piece());
    EXPECT_EQ(m_protocol->SendFileData("A", 128, 1, 3, data, 99), 1);
    EXPECT_EQ(filePackets().back().substr(60), std::string("\x01\x02"));
}

} // namespace
