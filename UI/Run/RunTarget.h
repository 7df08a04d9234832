// The chosen printer as the update worker takes it: the port string in the form that connections
// understand, and the queue's identifier, each in a buffer that the worker may keep pointing to.
//
// Owns:    its texts, by value; a worker that was given them must have ended before it goes.
// Threads: one at a time.
#pragma once
#include "UI/PrinterInfo.h"

#include <array>
#include <string>

// What connections take as a port string, its NUL included.
constexpr std::size_t kPortNameSize = 256;
// Print systems allow 127 bytes for a queue's identifier; twice that and the NUL.
constexpr std::size_t kPrinterNameSize = 256;

// The port string of a printer that a queue leads to. Beginning with "net:", every "net:" in it
// becomes "lpd://"; then, with "lpd://" in it, it ends in "/".
std::string connectableUri(std::string uri);

enum class TargetFit : std::uint8_t { fits, noAddress, addressTooLong, identifierTooLong };

class RunTarget {
public:
    // With an identifier, the printer's URI becomes the connectable one; without, as for an
    // address or a USB printer without a queue, it is taken as it is. Anything but fits leaves
    // both the printer and this untouched: a text that was cut would be another printer's.
    TargetFit take(PrinterInfo& printer);

    [[nodiscard]] char* address() { return m_address.data(); }
    // Null for a printer without a queue.
    [[nodiscard]] char* identifier() { return m_hasIdentifier ? m_identifier.data() : nullptr; }

private:
    std::array<char, kPortNameSize> m_address{};
    std::array<char, kPrinterNameSize> m_identifier{};
    bool m_hasIdentifier = false;
};
