// SPDX-License-Identifier: MIT
// Writes one conversation to a file, packet by packet, in its order on the link.
//
// Owns:      the file's stream and the bytes of incomplete packets.
// Threads:   one, the server's.
// Invariant: a line is written when its packet is complete; the rest of an incomplete one at the
//            end.
// Interprets only the length of packets.
#pragma once
#include "Tools/vymprinter/RequestBuffer.h"
#include "Tools/vymprinter/SessionText.h"

#include <fstream>
#include <optional>
#include <string>

namespace vymprinter {

class SessionRecorder {
public:
    explicit SessionRecorder(const std::string& path);
    ~SessionRecorder();
    SessionRecorder(const SessionRecorder&) = delete;
    SessionRecorder& operator=(const SessionRecorder&) = delete;

    // Whether the file could be written so far.
    [[nodiscard]] bool good() const { return m_file.good(); }
    // True for the first connection only: a file holds one conversation.
    [[nodiscard]] bool claim();
    void note(bool fromUpdater, ByteView bytes, Millis now);

private:
    struct Side {
        RequestBuffer waiting{kLargestPacket};
        Millis since{0}; // the arrival of the incomplete packet's first byte
    };
    void writeWhole(bool fromUpdater, Side& side);
    void writeFront(bool fromUpdater, Side& side);

    std::ofstream m_file;
    Side m_updater;
    Side m_printer;
    bool m_claimed = false;
    std::optional<Millis> m_start;
};

} // namespace vymprinter
