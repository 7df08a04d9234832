// Hearing what a printer says of the firmware that it was sent: answers that come late, before they
// are due, or not at all.
#include "VYM/ProtocolReply.h"
#include "VYM/vymMac.h"

#include <algorithm>

namespace {

constexpr unsigned long kLookMs = 500; // between two looks at whether bytes still leave
constexpr int kMostArrived = 4096; // replies that are there at once; a printer that never stops

bool isFileAnswer(std::span<const unsigned char> reply)
{
    return packets::isReplyTo(packets::kSendFile, reply) && packets::statusOf(reply).has_value();
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

// Only receives, for at most so long; other exchanges keep their time-out.
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

// What is there before a request cannot be its answer. A refusal of firmware counts all the same;
// anything else is dropped.
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

// Where more replies of the same command are there already, the last of them is the one that
// counts.
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

// Waits on for an answer where what was sent has not all left yet: for as long as the printer takes
// some of it, and not longer than the time-out without that. kBadReply: no answer came.
int vymProtocol::hearAnswer(Reply& reply)
{
    auto state = link();
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
    // Where answers to pieces are due as well, it is the connection that failed, not an answer.
    return link().closed && m_answers.due() > 1 ? result::kConnectionLost : result::kBadReply;
}

// The first answer after a last block may be that to an earlier piece, and the refusal of the last
// block still under way. Where the printer cannot be queried for its status, nothing else would
// tell: so what is due is heard until all of it is there, or the printer has been silent for longer
// than it has ever been.
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
        if (!isFileAnswer(reply.bytes()))
            return m_answers.isLagging() || state.unsent != 0 ? proveLife() : result::kSuccess;
        if (const int taken = takeAnswer(reply, state.unsent != 0); taken != result::kSuccess)
            return taken;
    }
    return result::kSuccess;
}

// Answers that lag and then stop: the printer has nothing more to say, or it is gone with what it
// had not read yet. It is sent the request that comes before every firmware; as answers come in
// order, the one to this shows that every packet before it was handled.
int vymProtocol::proveLife()
{
    auto request = packets::getFile("TargetInfo.txt");
    FileAssembly file;
    const int code = receiveFile(asBytes(request), file);
    if (code == result::kSuccess)
        m_answers.settle();
    return code;
}
