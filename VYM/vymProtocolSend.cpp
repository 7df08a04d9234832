// Sending one firmware entry of the package.
#include "VYM/DebugText.h"
#include "VYM/ProtocolReply.h"
#include "VYM/vymBindInfo.h"
#include "VYM/vymMac.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

constexpr unsigned long kSettleMs = 2000; // printers need it before a check and before the data
constexpr unsigned long kHeadSize = sizeof(TAG_CMDSENDFILE);
constexpr unsigned long kMostPiece = 4UL * 1024 * 1024 - kHeadSize; // see the receive packet size

bool isLast(unsigned short kind)
{
    return kind == packets::kLastUnpolled || kind == packets::kLastPolled;
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

struct vymProtocol::Image {
    const char* fileName; // in the container
    const char* name; // towards the printer
    unsigned short lastKind = packets::kLastUnpolled;
    bool lastCarriesData = false;
    unsigned long pieceSize = 0;
    unsigned long place = 0; // of its first byte in the container
    unsigned long size = 0;
    unsigned long offset = 0;
    unsigned short sum = 0; // of all pieces sent
};

int vymProtocol::SendFileData(const char* name, unsigned short kind, unsigned long start,
                              unsigned long end, unsigned char* data, unsigned long length)
{
    if (const int state = connected(); state != result::kSuccess)
        return state;
    if (kind != packets::kData && kind != packets::kHeadOnly && !isLast(kind))
        return result::kBadReply;
    TAG_CMDSENDFILE head{};
    if (const int made = Make_SendFile(head, name, kind, start, end, data, length);
        made != result::kSuccess)
        return made;
    unsigned long following = 0;
    if (data != nullptr && kind != packets::kHeadOnly)
        following = isLast(kind) ? end - start : length;
    return sendFilePacket(head, kind, data, following);
}

// Data that stands in its place in the send buffer already is not copied.
int vymProtocol::sendFilePacket(const TAG_CMDSENDFILE& head, unsigned short kind,
                                const unsigned char* data, unsigned long length)
{
    try {
        m_sendBuffer.resize(kHeadSize + length);
    } catch (const std::exception&) {
        return result::kSystem;
    }
    std::memcpy(m_sendBuffer.data(), &head, kHeadSize);
    auto* place = m_sendBuffer.data() + kHeadSize;
    if (data != place)
        std::copy_n(data, length, place);
    Reply reply(*this);
    const int sent = exchangeOnce(m_sendBuffer, reply);
    return sent == result::kSuccess ? pieceResult(reply, kind) : sent;
}

// Printers need not answer a data piece; any other file packet they have to.
int vymProtocol::pieceResult(const Reply& reply, unsigned short kind)
{
    const auto status = packets::statusOf(reply.bytes());
    if (packets::isReplyTo(packets::kSendFile, reply.bytes()) && status)
        return fileReplyResult(status);
    if (kind != packets::kData)
        return result::kBadReply;
    ++m_unanswered;
    return result::kSuccess;
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
    const int opened = openImage(image);
    return opened == result::kSuccess ? sendImage(image, info) : opened;
}

void vymProtocol::publishDecision(tag_devinfo& info, int code, const char* subFileName)
{
    const HoldLock hold(m_lock);
    debugText("FirmNo:%d", static_cast<int>(info.m_firmwareNumber));
    storeField(info.m_result, static_cast<std::int32_t>(code));
    // A name too long for its field is empty in the packets, and so it is here.
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
    return maxPacket > static_cast<int>(kHeadSize) ? result::kSuccess : result::kBadReply;
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
    image.pieceSize = std::min(static_cast<unsigned long>(maxPacket) - kHeadSize, kMostPiece);
    return result::kSuccess;
}

int vymProtocol::openImage(Image& image)
{
    const auto* container = vymBindInfo::Instance();
    try {
        m_sendBuffer.resize(kHeadSize + image.pieceSize);
    } catch (const std::exception&) {
        return result::kSystem;
    }
    // A package that is cut short is refused before a printer gets a part of it.
    const bool held = container->getBindFileSize(image.fileName, image.size)
        && container->holdsEveryByte(image.fileName)
        && container->getBindMngData(image.fileName, image.place, image.size);
    return held ? result::kSuccess : result::kFirmwareUnreadable;
}

int vymProtocol::sendImage(Image& image, tag_devinfo& info)
{
    setUpdateState(info, state_sending, result::kSuccess, 0, image.size);
    pauseMilliseconds(kSettleMs);
    if (const int sent = sendPieces(image, info); sent != result::kSuccess)
        return sent;
    if (image.lastCarriesData && image.size != 0)
        return result::kSuccess;
    m_bytesWentOut = true;
    const int ended =
        SendFileData(image.name, image.lastKind, image.size, image.size, nullptr, image.sum);
    publishSent(info, ended, image.size);
    return ended;
}

int vymProtocol::sendPieces(Image& image, tag_devinfo& info)
{
    const auto* container = vymBindInfo::Instance();
    while (image.offset < image.size) {
        const auto length = std::min(image.size - image.offset, image.pieceSize);
        if (!container->readBytes(image.place + image.offset, m_sendBuffer.data() + kHeadSize,
                                  length))
            return result::kFirmwareUnreadable;
        const bool isEnd = image.offset + length == image.size;
        const auto kind = isEnd && image.lastCarriesData ? image.lastKind : packets::kData;
        if (const int sent = sendBlock(image, kind, length, info); sent != result::kSuccess)
            return sent;
    }
    return result::kSuccess;
}

int vymProtocol::sendBlock(Image& image, unsigned short kind, unsigned long length,
                           tag_devinfo& info)
{
    m_bytesWentOut = true;
    const auto* piece = m_sendBuffer.data() + kHeadSize;
    TAG_CMDSENDFILE head{};
    int sent = Make_SendFile(head, image.name, kind, image.offset, image.size, piece, length);
    if (sent == result::kSuccess)
        sent = sendFilePacket(head, kind, piece, length);
    if (sent == result::kSuccess) {
        const auto sum = readBigEndian16(head.m_checkSum.bytes);
        image.sum = static_cast<unsigned short>(image.sum + sum);
        image.offset += length;
    }
    publishSent(info, sent, image.offset);
    return sent;
}

void vymProtocol::publishSent(tag_devinfo& info, int code, unsigned long done)
{
    const HoldLock hold(m_lock);
    storeField(info.m_result, static_cast<std::int32_t>(code));
    storeField(info.m_bytesDone, static_cast<std::uint32_t>(done));
}
