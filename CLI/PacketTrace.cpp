// SPDX-License-Identifier: MIT
#include "CLI/PacketTrace.h"

#include "UI/Text/PlainText.h"
#include "VYM/vymPackets.h"

#include <array>
#include <cassert>
#include <cerrno>
#include <cstring>
#include <exception>

namespace {

constexpr std::size_t kStatusAt = 10; // in every reply
constexpr std::size_t kPortLimit = 300; // of a port string, in bytes: little more than the longest
constexpr std::size_t kBytesInRow = 32; // of the hexadecimal dump

std::string hex(unsigned value, int digits)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%0*x", digits, value);
    return text.data();
}

// The command of a packet or a reply; 0, which no command has, without a header.
unsigned commandOf(std::span<const unsigned char> packet)
{
    return packet.size() >= sizeof(TAG_SSTHEADER) ? packet[2] * 256U + packet[3] : 0;
}

std::string commandText(std::span<const unsigned char> packet)
{
    if (packet.size() < sizeof(TAG_SSTHEADER))
        return "no header";
    const auto code = commandOf(packet);
    switch (code) {
    case packets::kGetFile:
        return "get-file";
    case packets::kSendFile:
        return "send-file";
    case packets::kEnterDownload:
        return "enter-download";
    case packets::kExitDownload:
        return "exit-download";
    case packets::kQueryStatus:
        return "query-status";
    default:
        return "command 0x" + hex(code, 4);
    }
}

std::string sizeOf(std::span<const unsigned char> packet)
{
    return ", " + std::to_string(packet.size()) + " bytes";
}

std::string rowsOf(std::span<const unsigned char> bytes)
{
    std::string rows;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i % kBytesInRow == 0)
            rows += i == 0 ? "   " : "\n   ";
        rows += " " + hex(bytes[i], 2);
    }
    return rows.empty() ? rows : rows + "\n";
}

std::string problemText(ConnectProblem problem, int error)
{
    switch (problem) {
    case ConnectProblem::none:
        return "connected";
    case ConnectProblem::unknownHost:
        return "the host is unknown";
    default:
        return error != 0 ? std::strerror(error) : "no connection";
    }
}

} // namespace

std::string sentLine(std::span<const unsigned char> packet, long result)
{
    const auto failure = result < 0 ? ", failed with " + std::to_string(result) : "";
    return "-> " + commandText(packet) + sizeOf(packet) + failure;
}

std::string receivedLine(std::span<const unsigned char> reply)
{
    const auto status = reply.size() >= kStatusAt + 2
        ? ", status 0x" + hex(reply[kStatusAt] * 256U + reply[kStatusAt + 1], 4)
        : "";
    return "<- " + commandText(reply) + status + sizeOf(reply);
}

std::string connectLine(const char* port, unsigned short tcpPort, ConnectProblem problem, int error)
{
    return "connect " + plainText(port != nullptr ? port : "", kPortLimit)
        + (tcpPort != 0 ? " port " + std::to_string(tcpPort) : "") + ": "
        + problemText(problem, error);
}

PacketTrace::PacketTrace(Display* display, std::function<double()> seconds)
    : m_display(display), m_seconds(std::move(seconds)), m_file(nullptr, &std::fclose)
{
    assert(m_seconds);
    setLinkTrace(this);
}

PacketTrace::~PacketTrace()
{
    setLinkTrace(nullptr);
}

std::string PacketTrace::openFile(const std::string& path)
{
    const HoldLock hold(m_lock);
    m_file.reset(std::fopen(path.c_str(), "we"));
    return m_file != nullptr ? "" : std::strerror(errno);
}

std::optional<ConnectProblem> PacketTrace::lastConnect() const
{
    const HoldLock hold(m_lock);
    return m_lastConnect;
}

std::optional<bool> PacketTrace::isAnswered() const
{
    const HoldLock hold(m_lock);
    return m_isAnswered;
}

void PacketTrace::connected(const char* port, unsigned short tcpPort, ConnectProblem problem,
                            int error)
{
    {
        const HoldLock hold(m_lock);
        m_lastConnect = problem;
        m_isAnswered.reset();
        m_isLeaving = false;
    }
    try {
        line(connectLine(port, tcpPort, problem, error), {});
    } catch (const std::exception&) {
        return; // loses this line
    }
}

void PacketTrace::sent(std::span<const unsigned char> packet, long result)
{
    {
        const HoldLock hold(m_lock);
        m_isLeaving = commandOf(packet) == packets::kExitDownload;
        if (!m_isLeaving)
            m_isAnswered = false;
    }
    try {
        line(sentLine(packet, result), packet);
    } catch (const std::exception&) {
        return;
    }
}

void PacketTrace::received(std::span<const unsigned char> reply)
{
    {
        const HoldLock hold(m_lock);
        if (!m_isLeaving)
            m_isAnswered = true;
    }
    try {
        line(receivedLine(reply), reply);
    } catch (const std::exception&) {
        return;
    }
}

void PacketTrace::line(const std::string& text, std::span<const unsigned char> bytes)
{
    const HoldLock hold(m_lock);
    if (m_display == nullptr && m_file == nullptr)
        return;
    std::array<char, 32> time{};
    std::snprintf(time.data(), time.size(), "%9.3f ", m_seconds());
    if (m_display != nullptr)
        m_display->line(time.data() + text);
    if (m_file == nullptr)
        return;
    const auto rows = time.data() + text + "\n" + rowsOf(bytes);
    std::fwrite(rows.data(), 1, rows.size(), m_file.get());
    std::fflush(m_file.get()); // so that the text survives a crash or a hanging printer
}
