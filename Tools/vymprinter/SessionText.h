// SPDX-License-Identifier: MIT
// A conversation as text, one line for each packet: the milliseconds since its start, ">" from the
// updater or "<" from the printer, and the bytes in hexadecimal. Blank lines and lines that begin
// with "#" are comments.
//
// Owns:    its results, by value.
// Threads: any; stateless.
#pragma once
#include "Tools/vymprinter/PrinterModel.h"
#include "Tools/vymprinter/PrinterWire.h"

namespace vymprinter {

struct SessionLine {
    Millis at{0};
    bool fromUpdater = false;
    Bytes bytes;
    std::size_t number = 0; // of the line in its text, from 1
};

struct ParsedSession {
    std::vector<SessionLine> lines;
    std::size_t wrongLine = 0; // the first malformed one; 0: all are right
};

// Including its line end.
[[nodiscard]] std::string sessionText(Millis at, bool fromUpdater, ByteView bytes);
[[nodiscard]] ParsedSession parseSession(std::string_view text);

} // namespace vymprinter
