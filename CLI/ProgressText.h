// SPDX-License-Identifier: MIT
// The words and the bar of a running update, as lines without line ends.
//
// Threads: any. Pure functions.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

// Free at the end of the live line, so that neither it nor the "^C" that a terminal echoes goes on
// to the next line.
constexpr std::size_t kFreeColumns = 3;

struct ProgressParts {
    std::string stage; // "Sending firmware 1 of 2 (MAIN)"
    std::optional<double> percent; // empty if unknown
    std::uint32_t bytesDone = 0;
    std::uint32_t bytesTotal = 0;
    double silence = 0; // seconds without a change
    double seconds = 0; // since the start
    bool stageTellsWho = false; // it names who is being waited for: "Asking the print server"
};

// "Sending firmware 1 of 2 (MAIN) [####----]  50 %  1.0 of 2.0 MiB  0:35", with a bar as wide as
// the columns allow; without a percentage, the duration of the wait. On a narrow terminal the clock
// and the percentage stay, and the stage is shortened. Never the remaining time: only
// the printer knows that.
std::string progressLine(const ProgressParts& parts, std::size_t columns);
std::string clockText(double seconds); // "0:35", "1:02:03"
std::string sizeText(std::uint64_t bytes); // "12.0 KiB"
