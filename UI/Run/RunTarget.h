// Where the update worker connects to: the port string or IPv4 address, and the identifier of the
// print queue that led to it, each in a buffer that the worker may keep pointing to.
//
// Owns:    its texts, by value; a worker that was given them must have ended before it goes.
// Threads: one at a time.
#pragma once
#include "UI/PrinterInfo.h"

#include <array>
#include <optional>
#include <string>

// What connections take as a port string, its NUL included.
constexpr std::size_t kPortNameSize = 256;
// Print systems allow 127 bytes for a queue's identifier; twice that and the NUL.
constexpr std::size_t kPrinterNameSize = 256;

// The port string of a printer that a queue leads to. Beginning with "net:", every "net:" in it
// becomes "lpd://"; then, with "lpd://" in it, it ends in "/".
std::string connectableUri(std::string uri);

enum class TargetFit : std::uint8_t { fits, noPort, portTooLong, queueTooLong };

class RunTarget {
public:
    // A printer of the list. With a queue, the printer's URI becomes the connectable one; without,
    // it is taken as it is. Anything but fits leaves both the printer and this untouched: a text
    // that was cut would be another printer's.
    TargetFit take(PrinterInfo& printer);
    TargetFit takeAddress(const std::string& address); // an IPv4 address, as it is
    TargetFit takePortString(const std::string& uri); // made connectable as a queue's is

    [[nodiscard]] bool isEmpty() const { return m_port.front() == '\0'; }
    [[nodiscard]] char* port() { return m_port.data(); }
    // Null without a queue: connections then take a network address as four numbers, and nothing
    // else.
    [[nodiscard]] char* queue() { return m_hasQueue ? m_queue.data() : nullptr; }

private:
    TargetFit keep(const std::string& port, const std::optional<std::string>& queue);

    std::array<char, kPortNameSize> m_port{};
    std::array<char, kPrinterNameSize> m_queue{};
    bool m_hasQueue = false;
};
