// SPDX-License-Identifier: MIT
// Entering and leaving download mode, and the status query.
#include "tests/support/ProtocolFixture.h"

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

TEST_F(vymProtocolModes, TurnsARefusalIntoACodeAndLeavesTheConnectionOpen)
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

TEST_F(vymProtocolModes, LeavesTheConnectionOpenWhenLeaveCannotBeSent)
{
    package({"EXITTIME 0"});
    open();
    m_script.failNextSend(0, conn::kSendFailed);
    EXPECT_EQ(m_protocol->ExitDownLoadMode(), -6);
    EXPECT_EQ(m_script.timeouts().back(), 500U);
    EXPECT_EQ(m_script.openConnections(), 1U);
}

TEST_F(vymProtocolModes, LeavesIfTheTimeCannotBeSetButNotIfItCannotBeRead)
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

TEST_F(vymProtocolModes, ClosesAnOpenConnectionOnDestruction)
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

TEST_F(vymProtocolModes, SendsTheShortQueryIfThePackageWantsIt)
{
    package({"SPECIALCMDPATTERN YES"});
    open();
    m_script.queueReply(printer::progress(128, 1, 1));
    EXPECT_EQ(m_protocol->CheckState(m_info), 1);
    EXPECT_EQ(m_script.sent().back().size(), 10U);
}

TEST_F(vymProtocolModes, TurnsAStatusReplyIntoACode)
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

} // namespace
