// Writes one conversation into a file, packet by packet, as it goes over the link.
//
// Owns:      the file's stream and the bytes of packets that are not whole yet.
// Threads:   one, the server's.
// Invariant: a line is written when its packet is whole; what is left of one is written at the end.
// Does not interpret the packets but for their length.
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
        Millis since{0}; // the first byte of the packet that waits
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
