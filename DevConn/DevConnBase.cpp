// SPDX-License-Identifier: MIT
#include "DevConn/DevConnBase.h"

#include "DevConn/ConnResult.h"
#include "DevConn/DeviceId.h"
#include "VYM/vymUtil.h"

#include <algorithm>
#include <new>

DevConnBase::~DevConnBase()
{
    while (!m_memList.empty()) {
        FreeMem(m_memList.back());
        m_memList.pop_back();
    }
}

ConnectProblem DevConnBase::connectProblem(int& error)
{
    error = 0;
    return ConnectProblem::other;
}

long DevConnBase::SetRecvPacketSize(unsigned long size)
{
    const HoldLock hold(m_lock);
    m_recvPacketSize = size;
    return conn::kSuccess;
}

long DevConnBase::SetIdleWork(IdleWork* work)
{
    const HoldLock hold(m_lock);
    m_idleWork = work;
    return conn::kSuccess;
}

bool DevConnBase::addMemList(void* block)
{
    if (block == nullptr || !reserveMemList())
        return false;
    m_memList.push_back(block);
    return true;
}

bool DevConnBase::reserveMemList()
{
    try {
        m_memList.reserve(m_memList.size() + 1);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

long DevConnBase::DisposeData(void* block)
{
    const HoldLock hold(m_lock);
    const auto found = std::find(m_memList.begin(), m_memList.end(), block);
    if (found == m_memList.end())
        return conn::kForeignBlock;
    m_memList.erase(found);
    FreeMem(block);
    return conn::kSuccess;
}

char* DevConnBase::FindModelKey(char* deviceId)
{
    return deviceId::findModelKey(deviceId);
}

long DevConnBase::exchange(PacketStream& stream, unsigned long leastWriteMs, unsigned char* send,
                           unsigned long sendLength, unsigned char** reply,
                           unsigned long* replyLength)
{
    if ((send == nullptr && sendLength != 0) || reply == nullptr || replyLength == nullptr)
        return conn::kInvalidArgument;
    if (!m_connected)
        return conn::kNotConnected;
    *reply = nullptr;
    *replyLength = 0;
    // The place first: a reply that cannot be remembered is lost, and the printer does not send it
    // again.
    if (!reserveMemList())
        return conn::kOutOfMemory;
    ReplyBlock block;
    const auto result = exchangePacket(
        stream, {m_timeout, leastWriteMs, m_recvPacketSize, m_idleWork}, send, sendLength, block);
    if (result != conn::kSuccess || block.bytes == nullptr)
        return result;
    m_memList.push_back(block.bytes); // there is room for it
    *reply = block.bytes;
    *replyLength = block.length;
    return conn::kSuccess;
}

long DevConnBase::storeTimeout(unsigned long milliseconds)
{
    const HoldLock hold(m_lock);
    if (milliseconds == 0)
        return conn::kInvalidArgument;
    if (!m_connected)
        return conn::kNotConnected;
    m_timeout = milliseconds;
    return conn::kSuccess;
}
