// SPDX-License-Identifier: MIT
// The results of the packet operations under the interface's names.
#include "tests/support/ProtocolFixture.h"

#include <cstring>

namespace {

using vymProtocolPackets = ProtocolFixture;

TEST_F(vymProtocolPackets, MapsTransportResultsToItsCodes)
{
    for (const int lost : {-14, -13, -12, -11, -8})
        EXPECT_EQ(m_protocol->CheckDevConnErr(lost), -6) << lost;
    for (const int other : {-1, -2, -3, -4, -5, -6, -7, -9, -10, -15, -100})
        EXPECT_EQ(m_protocol->CheckDevConnErr(other), -9) << other;
    for (const int fine : {0, 1, 100})
        EXPECT_EQ(m_protocol->CheckDevConnErr(fine), 1) << fine;
}

TEST_F(vymProtocolPackets, BuildsRecordsUnderTheInterfacesNames)
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
    EXPECT_EQ(readBigEndian16(query.m_header.m_code.bytes), 0x5103); // built nevertheless
    TAG_CMDQUERYUPDATESTATUS_SP shortQuery{};
    EXPECT_EQ(m_protocol->Make_QuerryUpdateStatus(shortQuery), 1);
    TAG_CMDENTERDOWNLOAD enterRecord{};
    EXPECT_EQ(m_protocol->Make_EnterDownLoad(enterRecord, true), 1);
    EXPECT_EQ(readBigEndian16(enterRecord.m_flag.bytes), 1);
    TAG_CMDEXITDOWNLOAD exitRecord{};
    EXPECT_EQ(m_protocol->Make_ExitDownLoad(exitRecord), 1);
}

TEST_F(vymProtocolPackets, SetsAHeaderWithoutTouchingItsReservedWord)
{
    TAG_SSTHEADER header{{{9, 9}}, {}, {}};
    EXPECT_EQ(m_protocol->SetSSTHeader(header, 0x5101, 36), 1);
    const unsigned char expected[] = {9, 9, 0x51, 0x01, 0, 0, 0, 36};
    EXPECT_EQ(std::memcmp(&header, expected, sizeof expected), 0);
}

TEST_F(vymProtocolPackets, SumsBytesAndReportsMissingOnes)
{
    const std::vector<unsigned char> bytes(300, 0xFF);
    unsigned short sum = 5;
    EXPECT_EQ(m_protocol->SetCheckSum(sum, bytes.data(), 300), 1);
    EXPECT_EQ(sum, 0x2AD4);
    EXPECT_EQ(m_protocol->SetCheckSum(sum, nullptr, 300), 0);
    EXPECT_EQ(sum, 0);
    EXPECT_EQ(m_protocol->SetCheckSum(sum, bytes.data(), 0), 0);
}

TEST_F(vymProtocolPackets, ChecksAReplysHeader)
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
