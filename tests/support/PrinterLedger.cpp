// SPDX-License-Identifier: MIT
#include "tests/support/PrinterLedger.h"

#include "tests/support/Printer.h"

namespace {

constexpr std::size_t kHeader = 8;
constexpr std::size_t kFileHead = 60;
constexpr std::size_t kNameAt = 10;
constexpr std::size_t kNameSize = 32;

std::uint32_t numberAt(std::string_view bytes, std::size_t at, std::size_t width)
{
    std::uint32_t value = 0;
    for (const char byte : bytes.substr(at, width))
        value = value << 8 | static_cast<unsigned char>(byte);
    return value;
}

} // namespace

std::optional<std::string> PacketAssembler::next()
{
    if (m_bytes.size() < kHeader)
        return std::nullopt;
    const auto length = kHeader + numberAt(m_bytes, 4, 4);
    if (m_bytes.size() < length)
        return std::nullopt;
    auto packet = m_bytes.substr(0, length);
    m_bytes.erase(0, length);
    return packet;
}

unsigned commandOf(std::string_view packet)
{
    return packet.size() < kHeader ? 0 : numberAt(packet, 2, 2);
}

std::optional<FilePacketView> FilePacketView::of(std::string_view packet)
{
    if (commandOf(packet) != wire::kSendFile || packet.size() < kFileHead)
        return std::nullopt;
    const auto name = packet.substr(kNameAt, kNameSize);
    return FilePacketView{std::string(name.substr(0, name.find('\0'))),
                          numberAt(packet, 42, 2),
                          numberAt(packet, 44, 4),
                          numberAt(packet, 48, 4),
                          static_cast<std::uint16_t>(numberAt(packet, 52, 2)),
                          packet.substr(kFileHead)};
}

void PrinterLedger::took(std::string_view packet)
{
    const auto command = commandOf(packet);
    m_entered = m_entered || command == wire::kEnter;
    m_left = m_left || command == wire::kLeave;
    if (command == wire::kSendFile)
        m_firmwareBytes += packet.size();
    const auto piece = FilePacketView::of(packet);
    if (!piece)
        return;
    m_lastName = piece->name;
    auto& facts = m_firmware[piece->name];
    ++facts.packets;
    facts.inOrder = facts.inOrder && !facts.lastTaken && piece->start == facts.bytes.size();
    facts.bytes.append(piece->data);
    // A last block without data carries the sum of the whole image.
    const auto summed =
        piece->last() && piece->data.empty() ? std::string_view(facts.bytes) : piece->data;
    facts.sumsRight = facts.sumsRight && printer::byteSum(std::string(summed)) == piece->sum;
    facts.lastTaken = facts.lastTaken || piece->last();
}

void PrinterLedger::leftOver(std::string_view rest)
{
    if (rest.size() >= 4 && numberAt(rest, 2, 2) == wire::kSendFile)
        m_firmwareBytes += rest.size();
}

void PrinterLedger::answeredFile(const std::string& name, bool last, std::uint16_t status)
{
    auto& facts = m_firmware[name];
    ++facts.answers;
    if (last)
        facts.lastAnswer = status;
    if (status != wire::kFinished && status != wire::kWriting && !facts.refusal)
        facts.refusal = status;
}

void PrinterLedger::answeredQuery(std::uint16_t status)
{
    const auto found = m_firmware.find(m_lastName);
    if (found == m_firmware.end() || !found->second.lastTaken)
        return;
    found->second.finished = found->second.finished || status == wire::kFinished;
    found->second.statusRefused =
        found->second.statusRefused || (status != wire::kFinished && status != wire::kWriting);
}

const FirmwareFacts* PrinterLedger::firmware(const std::string& name) const
{
    const auto found = m_firmware.find(name);
    return found != m_firmware.end() ? &found->second : nullptr;
}
