// SPDX-License-Identifier: MIT
// The update worker's destination: the port string or IPv4 address, and the identifier of the print
// queue that led to it, each in a buffer that the worker may keep a pointer to.
//
// Owns:    its texts, by value; a worker that uses them must end before this is destroyed.
// Threads: one at a time.
#pragma once
#include "UI/PrinterInfo.h"

#include <array>
#include <optional>
#include <string>

// The longest port string of a connection, including its NUL.
constexpr std::size_t kPortNameSize = 256;
// Print systems allow 127 bytes for a queue's identifier; this is twice that, plus the NUL.
constexpr std::size_t kPrinterNameSize = 256;

// The port string of a queue's printer. If the URI begins with "net:", replaces every "net:"
// in it with "lpd://"; if it then contains "lpd://", makes it end in "/".
std::string connectableUri(std::string uri);

enum class TargetFit : std::uint8_t { fits, noPort, portTooLong, queueTooLong };

class RunTarget {
public:
    // A printer of the list. With a queue, its URI is changed to the connectable one; without, it
    // is used unchanged. Any result but fits leaves both the printer and this untouched: a
    // truncated text could be another printer's.
    TargetFit take(PrinterInfo& printer);
    TargetFit takeAddress(const std::string& address); // an IPv4 address, unchanged
    TargetFit takePortString(const std::string& uri); // made connectable like a queue's

    [[nodiscard]] bool isEmpty() const { return m_port.front() == '\0'; }
    [[nodiscard]] char* port() { return m_port.data(); }
    [[nodiscard]] const char* port() const { return m_port.data(); }
    // Null without a queue: connections then accept as network address only four numbers.
    [[nodiscard]] char* queue() { return m_hasQueue ? m_queue.data() : nullptr; }

private:
    TargetFit keep(const std::string& port, const std::optional<std::string>& queue);

    std::array<char, kPortNameSize> m_port{};
    std::array<char, kPrinterNameSize> m_queue{};
    bool m_hasQueue = false;
};
