// SPDX-License-Identifier: MIT
// Sending one firmware entry of the package.
#include "VYM/DebugText.h"
#include "VYM/ImageReader.h"
#include "VYM/ProtocolReply.h"
#include "VYM/vymBindInfo.h"
#include "VYM/vymMac.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <exception>

namespace {

constexpr std::uint64_t kWhole = 100; // per cent

// The limit of a whole transfer, besides the time-out of a packet: far more than any printer needs,
// but a printer that takes a byte per second is not waited for for days.
constexpr std::uint64_t kLongestTransferMs = 600000;
constexpr std::uint64_t kMsPerByte = 4; // 256 bytes a second

unsigned long dataLengthOf(const TAG_CMDSENDFILE& head)
{
    return readBigEndian32(head.m_dataLength.bytes);
}

} // namespace

struct vymProtocol::Image {
    const char* fileName; // in the container
    const char* name; // the printer's name for it
    unsigned short lastKind = packets::kLastUnpolled;
    bool lastCarriesData = false;
    unsigned long pieceSize = 0;
    unsigned short sum = 0; // of all pieces sent
    ImageReader pieces{};
};

int vymProtocol::SendFileData(const char* name, unsigned short kind, unsigned long start,
                              unsigned long end, unsigned char* data, unsigned long length)
{
    if (const int state = connected(); state != result::kSuccess)
        return state;
    if (kind != packets::kData && kind != packets::kHeadOnly && !packets::isLast(kind))
        return result::kBadReply;
    TAG_CMDSENDFILE head{};
    if (const int made = Make_SendFile(head, name, kind, start, end, data, length);
        made != result::kSuccess)
        return made;
    const unsigned long following =
        data != nullptr && kind != packets::kHeadOnly ? dataLengthOf(head) : 0;
    try {
        m_sendBuffer.resize(packets::kFileHeadSize + following);
    } catch (const std::exception&) {
        return result::kSystem;
    }
    std::memcpy(m_sendBuffer.data(), &head, packets::kFileHeadSize);
    std::copy_n(data, following, m_sendBuffer.data() + packets::kFileHeadSize);
    return sendFilePacket(m_sendBuffer);
}

// Printers need not answer a data piece; they must answer every other file packet.
int vymProtocol::sendFilePacket(std::span<unsigned char> packet)
{
    const packets::FilePacket sent(packet);
    assert(sent.isFile() && packet.size() >= packets::kFileHeadSize);
    Reply reply(*this);
    if (!sent.isData()) {
        if (const int ended = sendLastBlock(packet, reply); ended != result::kSuccess)
            return ended;
    } else {
        const auto percent = std::uint64_t{sent.start()} * kWhole / std::max(sent.end(), 1U);
        m_answers.sent(tickMilliseconds(), static_cast<unsigned>(std::min(percent, kWhole - 1)));
        if (const int code = exchangeOnce(packet, reply); code != result::kSuccess)
            return code;
        if (!packets::isReplyTo(packets::kSendFile, reply.bytes())
            || !packets::statusOf(reply.bytes()))
            return result::kSuccess;
    }
    return takeAnswer(reply, !sent.isData() && link().unsent != 0);
}

int vymProtocol::sendLastBlock(std::span<unsigned char> packet, Reply& reply)
{
    if (const int heard = hearArrived(); heard != result::kSuccess)
        return heard;
    const bool wasBehind = link().held != 0;
    m_answers.sent(tickMilliseconds(), kWhole);
    const int code = exchangeOnce(packet, reply);
    return code == result::kSuccess ? hearAnswer(reply, wasBehind) : code;
}

int vymProtocol::UpdateFirmware(const char* model, const char* firmName, const char* updateVersion,
                                const char* fileName, const char* subFileName,
                                const char* compatibleVersion, tag_devinfo& info)
{
    m_reason = VersionReason::undecided;
    m_bytesWentOut = false;
    if (const int state = connected(); state != result::kSuccess)
        return state;
    if (model == nullptr || firmName == nullptr || fileName == nullptr || subFileName == nullptr)
        return result::kMissingArgument;
    yesno_type special = yesno_none;
    if (!g_VymInfo.getSpecialCmdPattern(special))
        return result::kSystem;
    pauseMilliseconds(kSettleMs);
    int code = 0;
    const bool send = CheckVersion(model, firmName, updateVersion, compatibleVersion, code);
    publishDecision(info, code, subFileName);
    if (!send || code != result::kSuccess)
        return code;
    Image image{fileName, subFileName};
    image.lastKind = IsSupportCheckState() ? packets::kLastPolled : packets::kLastUnpolled;
    image.lastCarriesData = special == yesno_yes;
    if (const int ready = prepareSending(image); ready != result::kSuccess)
        return ready;
    if (vymBindInfo::Instance() == nullptr)
        return result::kSuccess;
    const int opened = image.pieces.open(fileName, image.pieceSize);
    if (opened != result::kSuccess)
        return opened;
    const int sent = sendImage(image, info);
    return sent == result::kSuccess && !IsSupportCheckState() ? ConcludeFirmware() : sent;
}

void vymProtocol::publishDecision(tag_devinfo& info, int code, const char* subFileName)
{
    const HoldLock hold(m_lock);
    debugText("FirmNo:%d", static_cast<int>(info.m_firmwareNumber));
    storeField(info.m_result, static_cast<std::int32_t>(code));
    // A name too long for its field is empty in the packets, so it is empty here, too.
    std::memset(m_firmwareName, 0, sizeof m_firmwareName);
    strcpy_s(m_firmwareName, sizeof m_firmwareName, subFileName);
    storeFirmwareName(info, m_firmwareName);
    storeField(info.m_checkStateSupported, static_cast<std::uint8_t>(IsSupportCheckState()));
    storeState(info, state_checked);
}

int vymProtocol::CheckSending() const
{
    int seconds = 0;
    int maxPacket = 0;
    if (!g_VymInfo.getUpdateTime(seconds))
        return result::kSystem;
    if (seconds <= 0)
        return result::kBadReply; // no time-out could be set
    if (!m_target.getMaxPacket(maxPacket))
        return result::kSystem;
    // Head and at least one byte of firmware go into a packet.
    return maxPacket > static_cast<int>(packets::kFileHeadSize) ? result::kSuccess
                                                                : result::kBadReply;
}

int vymProtocol::prepareSending(Image& image)
{
    if (const int code = CheckSending(); code != result::kSuccess)
        return code;
    int seconds = 0;
    int maxPacket = 0;
    g_VymInfo.getUpdateTime(seconds);
    m_target.getMaxPacket(maxPacket);
    if (const int set = setTimeoutSeconds(seconds); set != result::kSuccess)
        return set;
    m_updateTimeout = m_timeout;
    image.pieceSize = static_cast<unsigned long>(std::min(maxPacket, packets::kMostPacket))
        - packets::kFileHeadSize;
    return result::kSuccess;
}

int vymProtocol::sendImage(Image& image, tag_devinfo& info)
{
    assert(image.pieceSize != 0); // prepareSending has succeeded
    const auto size = image.pieces.size();
    setUpdateState(info, state_sending, result::kSuccess, 0, size);
    pauseMilliseconds(kSettleMs);
    m_answers.beginFile();
    m_statusIsHeard = false;
    m_sendingEnds = tickMilliseconds() + m_timeout + kLongestTransferMs + size * kMsPerByte;
    m_manager->SetIdleWork(m_handle, &image.pieces);
    const int sent = sendPieces(image, info);
    m_manager->SetIdleWork(m_handle, nullptr);
    if (sent != result::kSuccess || (image.lastCarriesData && size != 0))
        return sent;
    m_bytesWentOut = true;
    const int ended = SendFileData(image.name, image.lastKind, size, size, nullptr, image.sum);
    publishSent(info, ended, size);
    return ended;
}

int vymProtocol::sendPieces(Image& image, tag_devinfo& info)
{
    auto& pieces = image.pieces;
    while (pieces.end() < pieces.size()) {
        if (!pieces.next())
            return result::kFirmwareUnreadable;
        const bool isLast = pieces.end() == pieces.size();
        const auto kind = isLast && image.lastCarriesData ? image.lastKind : packets::kData;
        int sent = sendPiece(image, kind);
        if (sent == result::kSuccess && tickMilliseconds() >= m_sendingEnds)
            sent = result::kConnectionLost;
        if (sent != result::kSuccess) {
            publishSent(info, sent, pieces.offset());
            return sent;
        }
        image.sum = static_cast<unsigned short>(image.sum + pieces.sum());
        publishSent(info, result::kSuccess, pieces.end());
    }
    return result::kSuccess;
}

int vymProtocol::sendPiece(Image& image, unsigned short kind)
{
    m_bytesWentOut = true;
    auto& pieces = image.pieces;
    const auto packet = pieces.packet();
    const auto head = packets::sendFile(
        image.name,
        {kind, static_cast<std::uint32_t>(pieces.offset()),
         static_cast<std::uint32_t>(pieces.size()), packet.data() + packets::kFileHeadSize,
         static_cast<std::uint32_t>(packet.size() - packets::kFileHeadSize), pieces.sum()});
    std::memcpy(packet.data(), &head, packets::kFileHeadSize);
    return sendFilePacket(packet);
}

void vymProtocol::publishSent(tag_devinfo& info, int code, unsigned long done)
{
    const HoldLock hold(m_lock);
    storeField(info.m_result, static_cast<std::int32_t>(code));
    storeField(info.m_bytesDone, static_cast<std::uint32_t>(done));
}
