// SPDX-License-Identifier: MIT
// The packet operations under the interface's names; vymPackets has the packets themselves.
#include "DevConn/ConnResult.h"
#include "VYM/vymProtocol.h"

namespace {

constexpr long kLinkFailed = -11; // no transport returns it, but it also means a lost link

} // namespace

int vymProtocol::SetSSTHeader(TAG_SSTHEADER& header, unsigned short code,
                              unsigned long length) const
{
    packets::setHeader(header, code, static_cast<std::uint32_t>(length));
    return result::kSuccess;
}

int vymProtocol::SetCheckSum(unsigned short& sum, const unsigned char* data,
                             unsigned long length) const
{
    sum = 0;
    if (data == nullptr || length == 0)
        return 0;
    sum = packets::byteSum({data, length});
    return result::kSuccess;
}

int vymProtocol::CheckRecvHeader(const unsigned char* reply, unsigned long length,
                                 unsigned short expectedCode) const
{
    return reply != nullptr && packets::isReplyTo(expectedCode, {reply, length}) ? 1 : 0;
}

int vymProtocol::CheckDevConnErr(int transportResult) const
{
    if (transportResult >= 0)
        return result::kSuccess;
    switch (transportResult) {
    case conn::kDeviceIdFailed:
    case conn::kReceiveFailed:
    case conn::kSendFailed:
    case kLinkFailed:
    case conn::kCannotOpen:
        return result::kConnectionLost;
    default:
        return result::kSystem;
    }
}

int vymProtocol::Make_GetFile(TAG_CMDGETFILE& record, const char* name) const
{
    if (name == nullptr)
        return result::kMissingArgument;
    record = packets::getFile(name);
    return result::kSuccess;
}

int vymProtocol::Make_SendFile(TAG_CMDSENDFILE& record, const char* name, unsigned short kind,
                               unsigned long start, unsigned long end, const unsigned char* data,
                               unsigned long length) const
{
    if (name == nullptr)
        return result::kMissingArgument;
    record =
        packets::sendFile(name,
                          {kind, static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(end),
                           data, static_cast<std::uint32_t>(length)});
    return result::kSuccess;
}

int vymProtocol::Make_EnterDownLoad(TAG_CMDENTERDOWNLOAD& record, bool flag) const
{
    record = packets::enterDownload(flag);
    return result::kSuccess;
}

int vymProtocol::Make_ExitDownLoad(TAG_CMDEXITDOWNLOAD& record) const
{
    record = packets::exitDownload();
    return result::kSuccess;
}

int vymProtocol::Make_QuerryUpdateStatus(TAG_CMDQUERYUPDATESTATUS& record, const char* name) const
{
    record = packets::queryStatus(name);
    return name != nullptr ? result::kSuccess : result::kMissingArgument;
}

int vymProtocol::Make_QuerryUpdateStatus(TAG_CMDQUERYUPDATESTATUS_SP& record) const
{
    record = packets::queryStatusShort();
    return result::kSuccess;
}
