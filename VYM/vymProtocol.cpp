// SPDX-License-Identifier: MIT
#include "VYM/vymProtocol.h"

#include "VYM/DebugText.h"
#include "VYM/ProtocolReply.h"
#include "VYM/vymMac.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr unsigned long kLeastMs = 500; // for entering and leaving if the package says 0
constexpr unsigned long kFirstPacketSize = 4096; // until the printer has reported its own
constexpr unsigned long kLongestMs = 0xFFFFFFFF; // a time-out is 32 bits wide

int enterResult(std::uint16_t status)
{
    switch (status) {
    case packets::kFinished:
        return result::kSuccess;
    case packets::kEnterBusy:
        return result::kBusy;
    case packets::kEnterFax:
        return result::kFaxInUse;
    default:
        return result::kBadReply;
    }
}

} // namespace

vymProtocol::vymProtocol() : m_manager(DevConnMgr::Instance()) { }

vymProtocol::~vymProtocol()
{
    CloseDevice();
}

int vymProtocol::connected() const
{
    if (m_manager == nullptr)
        return result::kSystem;
    return m_handle != nullptr ? result::kSuccess : result::kDeviceError;
}

int vymProtocol::OpenDevice(char* queue, char* port, unsigned short portNo)
{
    if (m_manager == nullptr)
        return result::kSystem;
    CloseDevice();
    m_answers = {};
    m_refusedAtTheEnd = result::kSuccess;
    return CheckDevConnErr(static_cast<int>(m_manager->Connect(queue, port, 0, portNo, &m_handle)));
}

int vymProtocol::CloseDevice()
{
    if (const int state = connected(); state != result::kSuccess)
        return state;
    const auto closed = m_manager->Disconnect(m_handle);
    m_handle = nullptr;
    return CheckDevConnErr(static_cast<int>(closed));
}

int vymProtocol::SetPacketSize(unsigned long bytes)
{
    if (const int state = connected(); state != result::kSuccess)
        return state;
    return CheckDevConnErr(static_cast<int>(m_manager->SetRecvPacketSize(m_handle, bytes)));
}

int vymProtocol::setTimeout(unsigned long milliseconds)
{
    if (m_manager->SetTimeout(m_handle, milliseconds) < 0)
        return result::kBadReply;
    m_timeout = milliseconds;
    return result::kSuccess;
}

// A time of the package; values that are not positive become the minimum.
int vymProtocol::setTimeoutSeconds(int seconds)
{
    if (seconds <= 0)
        return setTimeout(kLeastMs);
    return setTimeout(std::min(static_cast<unsigned long>(seconds) * 1000, kLongestMs));
}

bool vymProtocol::IsSupportCheckState() const
{
    std::vector<int> commands;
    m_target.getSupportCommand(commands);
    return std::find(commands.begin(), commands.end(), packets::kQueryStatus) != commands.end();
}

void vymProtocol::setPolingTime(unsigned long milliseconds)
{
    m_pollingTime = static_cast<std::uint32_t>(milliseconds);
}

bool vymProtocol::getTargetModel(std::string& name) const
{
    return m_target.getTgmName(name);
}

void vymProtocol::setUpdateState(tag_devinfo& info, update_state state, int code,
                                 unsigned long done, unsigned long total)
{
    const HoldLock hold(m_lock);
    storeField(info.m_result, static_cast<std::int32_t>(code));
    storeField(info.m_bytesDone, static_cast<std::uint32_t>(done));
    storeField(info.m_bytesTotal, static_cast<std::uint32_t>(total));
    storeState(info, state);
}

int vymProtocol::exchangeOnce(std::span<unsigned char> packet, Reply& reply)
{
    reply.giveBack();
    return CheckDevConnErr(
        static_cast<int>(m_manager->SendRecvData(m_handle, packet.empty() ? nullptr : packet.data(),
                                                 packet.size(), &reply.m_bytes, &reply.m_length)));
}

// An exchange whose reply is not a file packet's. Answers to pieces may arrive after the wait for
// them: skips as many as are still due, unless one of them is a refusal. Each of them shows that
// the printer is at work, and restarts the time-out for the next one.
int vymProtocol::exchange(std::span<unsigned char> packet, Reply& reply)
{
    if (!packet.empty()) {
        if (const int heard = hearArrived(); heard != result::kSuccess)
            return heard;
    }
    int code = exchangeOnce(packet, reply);
    while (code == result::kSuccess && m_answers.due() > 0
           && packets::isReplyTo(packets::kSendFile, reply.bytes())) {
        if (const int taken = takeAnswer(reply); taken != result::kSuccess)
            return taken;
        if (tickMilliseconds() >= m_sendingEnds)
            return result::kConnectionLost;
        code = exchangeOnce({}, reply);
    }
    return code;
}

int vymProtocol::EnterDownLoadMode(char* queue, char* port, unsigned short portNo, bool flag)
{
    if (const int opened = OpenDevice(queue, port, portNo); opened != result::kSuccess) {
        debugText("OpenDeviceErr:%d", opened);
        return opened;
    }
    int seconds = 0;
    if (!g_VymInfo.getEnterTime(seconds))
        return result::kSystem;
    if (const int set = setTimeoutSeconds(seconds); set != result::kSuccess)
        return set;
    if (const int set = SetPacketSize(kFirstPacketSize); set != result::kSuccess)
        return set;
    auto packet = packets::enterDownload(flag);
    Reply reply(*this);
    if (const int sent = exchange(asBytes(packet), reply); sent != result::kSuccess)
        return sent;
    const auto status = packets::statusOf(reply.bytes());
    if (!packets::isReplyTo(packets::kEnterDownload, reply.bytes()) || !status)
        return result::kBadReply;
    return enterResult(*status);
}

int vymProtocol::CheckState(tag_devinfo& info)
{
    if (const int state = connected(); state != result::kSuccess)
        return state;
    yesno_type shortForm = yesno_none;
    if (!g_VymInfo.getSpecialCmdPattern(shortForm))
        return result::kSystem;
    auto longQuery = packets::queryStatus(m_firmwareName);
    auto shortQuery = packets::queryStatusShort();
    Reply reply(*this);
    const int sent =
        exchange(shortForm == yesno_yes ? asBytes(shortQuery) : asBytes(longQuery), reply);
    if (sent != result::kSuccess)
        return sent;
    if (const int newest = hearNewest(reply); newest != result::kSuccess)
        return newest;
    const auto status = packets::statusOf(reply.bytes());
    if (!packets::isReplyTo(packets::kQueryStatus, reply.bytes()) || !status)
        return result::kBadReply;
    m_statusIsHeard = true;
    if (*status == packets::kDeviceRefused)
        return result::kDeviceError;
    const auto counts = packets::countsOf(reply.bytes());
    if ((*status != packets::kWriting && *status != packets::kFinished) || !counts)
        return result::kBadReply;
    m_answers.settle();
    const HoldLock hold(m_lock);
    storeFirmwareName(info, m_firmwareName);
    setUpdateState(info, *status == packets::kWriting ? state_writing : state_finished,
                   result::kSuccess, counts->done, counts->total);
    return result::kSuccess;
}

// Reads the answer and ignores it. Answers to file packets may arrive first. After a last block
// they show that the printer is not as far as its silence made it look: it gets the time of its
// slowest answer for each further one, and only an answer to this request shows that it took
// everything.
int vymProtocol::leave(std::span<unsigned char> packet, Reply& reply)
{
    const bool isSent = m_answers.lastIsOut();
    const auto deadline = isSent ? m_sendingEnds : tickMilliseconds() + m_timeout;
    int sent = exchangeOnce(packet, reply);
    const auto isOlder = [&] {
        return sent == result::kSuccess && m_answers.due() > 0
            && packets::isReplyTo(packets::kSendFile, reply.bytes());
    };
    const bool isBehind = isSent && isOlder();
    while (isOlder() && tickMilliseconds() < deadline) {
        const int taken = takeAnswer(reply);
        m_refusedAtTheEnd = taken != result::kSuccess ? taken : m_refusedAtTheEnd;
        sent = isSent ? listen(std::max(m_timeout, m_answers.longPatience(m_updateTimeout)), reply)
                      : exchangeOnce({}, reply);
    }
    if (isBehind && m_refusedAtTheEnd == result::kSuccess
        && !packets::isReplyTo(packets::kExitDownload, reply.bytes()))
        m_refusedAtTheEnd = sent == result::kSuccess ? result::kBadReply : sent;
    return sent;
}

int vymProtocol::ExitDownLoadMode()
{
    if (const int state = connected(); state != result::kSuccess)
        return state;
    int seconds = 0;
    if (!g_VymInfo.getExitTime(seconds))
        return result::kSystem;
    setTimeoutSeconds(seconds); // leaves the printer in any case
    auto packet = packets::exitDownload();
    Reply reply(*this);
    if (const int sent = leave(asBytes(packet), reply); sent != result::kSuccess)
        return sent;
    reply.giveBack();
    return CloseDevice();
}
