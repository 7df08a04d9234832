// SPDX-License-Identifier: MIT
// Records what really reached a model printer and what that answered: the facts that the product's
// claims are compared with. Decodes the wire itself, so that a mistake of the engine cannot cancel
// out.
//
// Owns:      its notes.
// Threads:   one at a time.
// Invariant: a firmware's bytes come from whole packets that the printer has read; unread bytes in
//            a buffer never count.
#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

// The numbers of the wire, shared by the model and its judge.
namespace wire {

constexpr unsigned kGetFile = 0x5001;
constexpr unsigned kSendFile = 0x5002;
constexpr unsigned kEnter = 0x5101;
constexpr unsigned kLeave = 0x5102;
constexpr unsigned kQuery = 0x5103;
constexpr std::uint16_t kFinished = 0x80;
constexpr std::uint16_t kWriting = 0x81;
constexpr std::uint16_t kDeviceRefused = 0x0803;
constexpr std::uint16_t kDataRefused = 0x0804;

} // namespace wire

// Cuts the stream of one connection into packets.
class PacketAssembler {
public:
    void add(std::string_view bytes) { m_bytes.append(bytes); }
    // The next whole packet; empty if there is none yet.
    [[nodiscard]] std::optional<std::string> next();
    // The bytes of a packet that is still incomplete.
    [[nodiscard]] std::string_view rest() const { return m_bytes; }

private:
    std::string m_bytes;
};

struct FirmwareFacts {
    std::string bytes; // of the image, in order of arrival
    unsigned packets = 0;
    bool inOrder = true; // each piece began where the previous one ended
    bool sumsRight = true; // of every piece, and of the whole image if one was given
    bool lastTaken = false; // a last block arrived
    unsigned answers = 0; // to its packets
    std::optional<std::uint16_t> lastAnswer; // the printer's own answer to it
    std::optional<std::uint16_t> refusal; // the first refusing answer
    bool statusRefused = false; // a status query after the last block was answered with an error
    bool finished = false; // a status query after the last block was answered with "finished"
};

class PrinterLedger {
public:
    // The printer has read one whole packet.
    void took(std::string_view packet);
    // Bytes of a packet that remained incomplete.
    void leftOver(std::string_view rest);
    // An answer left the printer: to a packet of the file command, to a status query.
    void answeredFile(const std::string& name, bool last, std::uint16_t status);
    void answeredQuery(std::uint16_t status);

    [[nodiscard]] const FirmwareFacts* firmware(const std::string& name) const;
    // Of all packets of the file command, whole or not, heads included.
    [[nodiscard]] std::uint64_t firmwareBytes() const { return m_firmwareBytes; }
    [[nodiscard]] bool entered() const { return m_entered; }
    [[nodiscard]] bool left() const { return m_left; }

private:
    std::map<std::string, FirmwareFacts> m_firmware;
    std::string m_lastName; // whose packet came last
    std::uint64_t m_firmwareBytes = 0;
    bool m_entered = false;
    bool m_left = false;
};

// A packet of the file command, read independently of the engine.
struct FilePacketView {
    std::string name;
    unsigned kind = 0;
    std::uint32_t start = 0;
    std::uint32_t end = 0;
    std::uint16_t sum = 0;
    std::string_view data;

    [[nodiscard]] bool last() const { return kind == 0x80 || kind == 0x81; }
    // Empty for every other packet and for one that is too short.
    static std::optional<FilePacketView> of(std::string_view packet);
};

unsigned commandOf(std::string_view packet); // 0 if shorter than a header
