// SPDX-License-Identifier: MIT
// The record of a printer: a line for every packet, and the received firmware.
//
// Threads:   one, which drives everything of one printer.
// Invariant: at most one firmware is open at a time: begin, any number of appends, then commit or
//            abandon.
#pragma once
#include "Tools/vymprinter/PrinterModel.h"
#include "Tools/vymprinter/PrinterWire.h"

namespace vymprinter {

enum class Direction { in, out };

// One packet in the transcript.
struct PacketNote {
    Millis at{0};
    std::uint64_t connection = 0;
    Direction direction = Direction::in;
    std::uint16_t command = 0;
    std::string name;
    std::uint16_t kind = 0; // the block kind of a request, the status of a reply
    std::uint32_t start = 0; // or a block's offset, or the bytes written
    std::uint32_t end = 0; // or the total
    std::uint64_t count = 0; // data bytes
    std::string verdict;
};

class PrinterRecord {
public:
    virtual ~PrinterRecord() = default;

    virtual void packet(const PacketNote& note) = 0;
    // A remark for the user, in one sentence.
    virtual void remark(const std::string& sentence) = 0;

    // Return whether the firmware could be stored so far.
    [[nodiscard]] virtual bool beginFirmware(const std::string& name) = 0;
    [[nodiscard]] virtual bool appendFirmware(ByteView data) = 0;
    [[nodiscard]] virtual bool commitFirmware() = 0;
    virtual void abandonFirmware() = 0;
};

} // namespace vymprinter
