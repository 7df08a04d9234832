// Entering and leaving download mode, the status query, and what the packet operations answer
// under the interface's names.
#include "tests/support/ProtocolFixture.h"

#include <cstring>

namespace {

using vymProtocolModes = ProtocolFixture;

TEST_F(vymProtocolModes, EntersWhenThePrinterSaysSoAndStaysOpen)
{
    package({"ENTERTIME 7"});
    m_script.queueReply(printer::enter());
    EXPECT_EQ(enter(), 1);
    EXPECT_EQ(m_script.sent().front().size(), 44U);
    EXPECT_EQ(m_script.timeouts(), std::vector<unsigned long>{7000});
    EXPECT_EQ(m_script.openConnections(), 1U);
}

TEST_F(vymProtocolModes, MakesARefusalACodeAndLeavesTheConnectionOpen)
{
    const struct {
        const char* why;
        std::string reply;
        int code;
    } table[] = {
        {"busy", printer::enter(0x1001), -3},
        {"fax", printer::enter(0x1002), -4},
        {"status 0", printer::enter(0), -5},
        {"status 129 is no yes here", printer::enter(0x81), -5},
        {"0x0803", printer::enter(0x803), -5},
        {"0x0804", printer::enter(0x804), -5},
        {"another status", printer::enter(0x7777), -5},
        {"no reply", "", -5},
        {"another command", printer::exit(), -5},
        {"a header alone", printer::reply(0x5101, ""), -5},
        {"a length that lies", printer::enter() + 'x', -5},
        {"five bytes", "12345", -5},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.why);
        package({"ENTERTIME 1"});
        m_script.queueReply(row.reply);
        EXPECT_EQ(enter(), row.code);
        EXPECT_EQ(m_script.openConnections(), 1U);
        m_protocol->CloseDevice();
    }
}

TEST_F(vymProtocolModes, GivesHalfASecondToEnterWhenThePackageNamesNoTime)
{
    for (const char* row : {"ENTERTIME 0", "ENTERTIME -3", "OTHER 1"}) {
        SCOPED_TRACE(row);
        package({row});
        m_script.queueReply(printer::enter());
        EXPECT_EQ(enter(), 1);
        EXPECT_EQ(m_script.timeouts().back(), 500U);
    }
}

TEST_F(vymProtocolModes, CutsATimeThatDoesNotFit32Bits)
{
    package({"ENTERTIME 99999999999"});
    m_script.queueReply(printer::enter());
    EXPECT_EQ(enter(), 1);
    EXPECT_EQ(m_script.timeouts().back(), 0xFFFFFFFFU);
}

TEST_F(vymProtocolModes, NeedsATimeThatCanBeRead)
{
    package({"ENTERTIME"});
    EXPECT_EQ(enter(), -9);
    package({"ENTERTIME 3"});
    m_script.refuseTimeout(3000);
    EXPECT_EQ(enter(), -5);
}

TEST_F(vymProtocolModes, MapsAConnectionThatCannotBeOpened)
{
    const struct {
        long transport;
        int code;
    } table[] = {{conn::kCannotOpen, -6}, {conn::kInvalidArgument, -9}, {conn::kOutOfMemory, -9}};
    for (const auto& row : table) {
        m_script.failConnect(row.transport);
        EXPECT_EQ(enter(), row.code) << row.transport;
        EXPECT_EQ(m_script.openConnections(), 0U);
    }
}

TEST_F(vymProtocolModes, LeavesWithAnyReplyAndCloses)
{
    for (const std::string& reply : {printer::exit(), std::string(), printer::piece(0x7777)}) {
        package({"EXITTIME 9"});
        open();
        m_script.queueReply(reply);
        EXPECT_EQ(m_protocol->ExitDownLoadMode(), 1);
        EXPECT_EQ(m_script.timeouts().back(), 9000U);
        EXPECT_EQ(m_script.openConnections(), 0U);
    }
}

TEST_F(vymProtocolModes, LeavesTheConnectionOpenWhenThePrinterCannotBeToldToLeave)
{
    package({"EXITTIME 0"});
    open();
    m_script.failNextSend(0, conn::kSendFailed);
    EXPECT_EQ(m_protocol->ExitDownLoadMode(), -6);
    EXPECT_EQ(m_script.timeouts().back(), 500U);
    EXPECT_EQ(m_script.openConnections(), 1U);
}

TEST_F(vymProtocolModes, LeavesThoughTheTimeCannotBeSet_ButNotWithoutAReadableOne)
{
    package({"EXITTIME 4"});
    open();
    m_script.refuseTimeout(4000);
    EXPECT_EQ(m_protocol->ExitDownLoadMode(), 1);
    package({"EXITTIME"});
    open();
    EXPECT_EQ(m_protocol->ExitDownLoadMode(), -9);
}

TEST_F(vymProtocolModes, DoesNothingWithoutAConnection)
{
    package({"SPECIALCMDPATTERN NO"});
    EXPECT_EQ(m_protocol->CloseDevice(), -1);
    EXPECT_EQ(m_protocol->SetPacketSize(100), -1);
    EXPECT_EQ(m_protocol->GetFileData("TargetInfo.txt"), -1);
    EXPECT_EQ(m_protocol->SendFileData("A", 0, 0, 0, nullptr, 0), -1);
    EXPECT_EQ(update(), -1);
    EXPECT_EQ(m_protocol->CheckState(m_info), -1);
    EXPECT_EQ(m_protocol->ExitDownLoadMode(), -1);
    EXPECT_TRUE(m_script.sent().empty());
}

TEST_F(vymProtocolModes, ClosesWhatIsStillOpenOnDestruction)
{
    package({"ENTERTIME 1"});
    open();
    m_protocol.reset();
    EXPECT_EQ(m_script.openConnections(), 0U);
}

TEST_F(vymProtocolModes, PublishesHowFarThePrinterHasWritten)
{
    package({"SPECIALCMDPATTERN NO"});
    open();
    m_script.queueReply(printer::progress(129, 1000, 10));
    EXPECT_EQ(m_protocol->CheckState(m_info), 1);
    EXPECT_EQ(m_info.m_updateState, state_writing);
    EXPECT_EQ(m_info.m_bytesTotal, 1000U);
    EXPECT_EQ(m_info.m_bytesDone, 10U);
    EXPECT_EQ(m_script.sent().back().size(), 42U);
    m_script.queueReply(printer::progress(128, 1000, 1000));
    EXPECT_EQ(m_protocol->CheckState(m_info), 1);
    EXPECT_EQ(m_info.m_updateState, state_finished);
}

TEST_F(vymProtocolModes, AsksInTheShortFormWhereThePackageWantsIt)
{
    package({"SPECIALCMDPATTERN YES"});
    open();
    m_script.queueReply(printer::progress(128, 1, 1));
    EXPECT_EQ(m_protocol->CheckState(m_info), 1);
    EXPECT_EQ(m_script.sent().back().size(), 10U);
}

TEST_F(vymProtocolModes, MakesAStatusReplyACode)
{
    const struct {
        const char* why;
        std::string reply;
        int code;
    } table[] = {
        {"0x0803", printer::progress(0x803, 0, 0), -1},
        {"0x0804", printer::progress(0x804, 0, 0), -5},
        {"0", printer::progress(0, 0, 0), -5},
        {"0x1001", printer::progress(0x1001, 0, 0), -5},
        {"no reply", "", -5},
        {"another command", printer::enter(), -5},
        {"too short for a status", printer::reply(0x5103, "ab"), -5},
        {"too short for the counts", printer::statusReply(0x5103, 129), -5},
        {"0x0803 without counts", printer::statusReply(0x5103, 0x803), -1},
    };
    package({"SPECIALCMDPATTERN NO"});
    open();
    for (const auto& row : table) {
        SCOPED_TRACE(row.why);
        m_info = {};
        m_script.queueReply(row.reply);
        EXPECT_EQ(m_protocol->CheckState(m_info), row.code);
        EXPECT_EQ(m_info.m_updateState, state_initial);
    }
    package({"SPECIALCMDPATTERN MAYBE"});
    EXPECT_EQ(m_protocol->CheckState(m_info), -9);
}

TEST_F(vymProtocolModes, MapsTransportResultsToItsCodes)
{
    for (const int lost : {-14, -13, -12, -11, -8})
        EXPECT_EQ(m_protocol->CheckDevConnErr(lost), -6) << lost;
    for (const int other : {-1, -2, -3, -4, -5, -6, -7, -9, -10, -15, -100})
        EXPECT_EQ(m_protocol->CheckDevConnErr(other), -9) << other;
    for (const int fine : {0, 1, 100})
        EXPECT_EQ(m_protocol->CheckDevConnErr(fine), 1) << fine;
}

TEST_F(vymProtocolModes, BuildsRecordsUnderTheInterfacesNames)
{
    TAG_CMDGETFILE get{};
    EXPECT_EQ(m_protocol->Make_GetFile(get, nullptr), -10);
    EXPECT_EQ(m_protocol->Make_GetFile(get, "A"), 1);
    TAG_CMDSENDFILE send{};
    EXPECT_EQ(m_protocol->Make_SendFile(send, nullptr, 0, 0, 0, nullptr, 0), -10);
    EXPECT_EQ(m_protocol->Make_SendFile(send, "A", 128, 5, 5, nullptr, 77), 1);
    EXPECT_EQ(readBigEndian16(send.m_checkSum.bytes), 77);
    TAG_CMDQUERYUPDATESTATUS query{};
    std::memset(&query, 0xAA, sizeof query);
    EXPECT_EQ(m_protocol->Make_QuerryUpdateStatus(query, nullptr), -10);
    EXPECT_EQ(readBigEndian16(query.m_header.m_code.bytes), 0x5103); // built all the same
    TAG_CMDQUERYUPDATESTATUS_SP shortQuery{};
    EXPECT_EQ(m_protocol->Make_QuerryUpdateStatus(shortQuery), 1);
    TAG_CMDENTERDOWNLOAD enterRecord{};
    EXPECT_EQ(m_protocol->Make_EnterDownLoad(enterRecord, true), 1);
    EXPECT_EQ(readBigEndian16(enterRecord.m_flag.bytes), 1);
    TAG_CMDEXITDOWNLOAD exitRecord{};
    EXPECT_EQ(m_protocol->Make_ExitDownLoad(exitRecord), 1);
}

TEST_F(vymProtocolModes, SetsAHeaderWithoutTouchingItsReservedWord)
{
    TAG_SSTHEADER header{{{9, 9}}, {}, {}};
    EXPECT_EQ(m_protocol->SetSSTHeader(header, 0x5101, 36), 1);
    const unsigned char expected[] = {9, 9, 0x51, 0x01, 0, 0, 0, 36};
    EXPECT_EQ(std::memcmp(&header, expected, sizeof expected), 0);
}

TEST_F(vymProtocolModes, SumsBytesOrSaysThatThereAreNone)
{
    const std::vector<unsigned char> bytes(300, 0xFF);
    unsigned short sum = 5;
    EXPECT_EQ(m_protocol->SetCheckSum(sum, bytes.data(), 300), 1);
    EXPECT_EQ(sum, 0x2AD4);
    EXPECT_EQ(m_protocol->SetCheckSum(sum, nullptr, 300), 0);
    EXPECT_EQ(sum, 0);
    EXPECT_EQ(m_protocol->SetCheckSum(sum, bytes.data(), 0), 0);
}

TEST_F(vymProtocolModes, ChecksAReplysHeader)
{
    const auto reply = printer::enter();
    const auto* bytes = reinterpret_cast<const unsigned char*>(reply.data());
    EXPECT_EQ(m_protocol->CheckRecvHeader(bytes, reply.size(), 0x5101), 1);
    EXPECT_EQ(m_protocol->CheckRecvHeader(bytes, reply.size(), 0x5102), 0);
    EXPECT_EQ(m_protocol->CheckRecvHeader(bytes, reply.size() - 1, 0x5101), 0);
    EXPECT_EQ(m_protocol->CheckRecvHeader(bytes, 7, 0x5101), 0);
    EXPECT_EQ(m_protocol->CheckRecvHeader(nullptr, 12, 0x5101), 0);
}

} // namespace
