// SPDX-License-Identifier: MIT
// A printer's answers to the firmware packets: late, early, or missing.
#include "VYM/ProtocolReply.h"
#include "VYM/vymMac.h"

#include <algorithm>

namespace {

constexpr unsigned long kLookMs = 500; // between two checks whether bytes still leave
constexpr int kMostArrived = 4096; // ready replies; bounds a printer that never stops

bool isFileAnswer(std::span<const unsigned char> reply)
{
    return packets::isReplyTo(packets::kSendFile, reply) && packets::statusOf(reply).has_value();
}

// It has begun an answer and not ended it.
bool isCut(std::span<const unsigned char> reply)
{
    return reply.size() >= packets::kHeaderSize
        && packets::bodyLengthOf(reply.first<packets::kHeaderSize>())
        > reply.size() - packets::kHeaderSize;
}

} // namespace

int fileReplyResult(std::optional<std::uint16_t> status)
{
    if (!status)
        return result::kBadReply;
    switch (*status) {
    case packets::kFinished:
    case packets::kWriting:
        return result::kSuccess;
    case packets::kDeviceRefused:
        return result::kDeviceError;
    case packets::kDataRefused:
        return result::kDamaged;
    default:
        return result::kBadReply;
    }
}

// Only receives, for at most this time; other exchanges keep their time-out.
int vymProtocol::listen(unsigned long milliseconds, Reply& reply)
{
    m_manager->SetTimeout(m_handle, milliseconds);
    const int heard = exchangeOnce({}, reply);
    m_manager->SetTimeout(m_handle, m_timeout);
    return heard;
}

int vymProtocol::takeAnswer(const Reply& reply, bool early)
{
    m_answers.heard(tickMilliseconds(), early);
    return fileReplyResult(packets::statusOf(reply.bytes()));
}

// A reply that arrived before a request cannot be its answer. A refusal of firmware counts
// nevertheless; other replies are dropped.
int vymProtocol::hearArrived()
{
    Reply reply(*this);
    for (int i = 0; i < kMostArrived && link().arrived; ++i) {
        if (const int heard = exchangeOnce({}, reply); heard != result::kSuccess)
            return heard;
        if (reply.bytes().empty())
            break;
        if (isFileAnswer(reply.bytes())) {
            if (const int taken = takeAnswer(reply); taken != result::kSuccess)
                return taken;
        }
    }
    return result::kSuccess;
}

// If more replies of the same command are ready, only the last of them counts.
int vymProtocol::hearNewest(Reply& reply)
{
    for (int i = 0; i < kMostArrived && link().arrived; ++i) {
        Reply next(*this);
        if (const int heard = exchangeOnce({}, next); heard != result::kSuccess)
            return heard;
        if (!packets::isReplyTo(packets::kQueryStatus, next.bytes()))
            break;
        std::swap(reply.m_bytes, next.m_bytes);
        std::swap(reply.m_length, next.m_length);
    }
    return result::kSuccess;
}

// Goes on waiting for an answer if sent bytes have not all left yet: as long as the printer takes
// some of them, but no longer than the time-out if it takes none. kBadReply: no answer arrived.
// wasBehind: the printer had no room for some bytes before the first wait; they may have left at
// its very end, so the printer gets its whole time once more.
int vymProtocol::hearAnswer(Reply& reply, bool wasBehind)
{
    auto state = link();
    if (wasBehind && state.unsent == 0 && !state.closed && !isFileAnswer(reply.bytes())) {
        if (const int heard = listen(m_timeout, reply); heard != result::kSuccess)
            return heard;
        state = link();
    }
    for (auto moved = tickMilliseconds(); state.unsent != 0 && !isFileAnswer(reply.bytes());) {
        const auto before = state.unsent;
        if (tickMilliseconds() >= std::min(moved + m_timeout, m_sendingEnds))
            return result::kConnectionLost;
        if (const int heard = listen(kLookMs, reply); heard != result::kSuccess)
            return heard;
        state = link();
        if (state.unsent < before)
            moved = tickMilliseconds();
        if (state.unsent == 0 && !isFileAnswer(reply.bytes())) {
            if (const int heard = listen(m_timeout, reply); heard != result::kSuccess)
                return heard;
        }
    }
    if (isFileAnswer(reply.bytes()))
        return result::kSuccess;
    // If answers to pieces are due as well, the connection has failed, not an answer.
    return link().closed && m_answers.due() > 1 ? result::kConnectionLost : result::kBadReply;
}

// The first answer after a last block may belong to an earlier piece, while a refusal of the last
// block is still on its way. Without a status query only waiting can show that: reads due answers
// until all have arrived, or until the printer has been silent for longer than ever before.
int vymProtocol::ConcludeFirmware()
{
    if (const int state = connected(); state != result::kSuccess)
        return state;
    Reply reply(*this);
    while (!m_answers.isComplete()) {
        const bool over = tickMilliseconds() >= m_sendingEnds;
        const int heard = listen(m_answers.patience(m_timeout), reply);
        if (heard != result::kSuccess)
            return heard;
        const auto state = link();
        if (over || (state.closed && !isFileAnswer(reply.bytes())))
            return result::kConnectionLost;
        if (!isFileAnswer(reply.bytes())) {
            const bool isSilent = state.unsent == 0 && !isCut(reply.bytes());
            return isSilent && !m_answers.isLagging(m_timeout) ? result::kSuccess : proveLife();
        }
        if (const int taken = takeAnswer(reply, state.unsent != 0); taken != result::kSuccess)
            return taken;
    }
    return result::kSuccess;
}

// If answers lag and then stop, the printer has no more to send, or it has gone without reading all
// packets. Sends the request that precedes every firmware; since answers arrive in order, the
// answer to it shows that the printer handled every packet before.
int vymProtocol::proveLife()
{
    auto request = packets::getFile("TargetInfo.txt");
    FileAssembly file;
    const int code = receiveFile(asBytes(request), file);
    if (code == result::kSuccess)
        m_answers.settle();
    // The printer's file was damaged on its way, not the firmware.
    return file.isDamaged() ? result::kBadReply : code;
}

int vymProtocol::HearLateAnswers()
{
    if (connected() != result::kSuccess)
        return result::kSuccess;
    const bool wasComplete = m_answers.isComplete();
    const auto due = m_answers.due();
    const int heard = hearArrived();
    if (heard != result::kSuccess)
        return wasComplete && heard == result::kConnectionLost ? result::kSuccess : heard;
    // An answer more than there were packets: they are not what they were counted for.
    const bool asBefore = wasComplete ? m_answers.isComplete() : m_answers.due() == due;
    return asBefore ? result::kSuccess : ConcludeFirmware();
}
