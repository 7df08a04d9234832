// The words and the bar of a running update, as lines without line ends.
//
// Threads: any. Pure functions.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

struct ProgressParts {
    std::string stage; // "Sending firmware 1 of 2 (MAIN)"
    std::optional<double> percent; // none where nobody knows how far it is
    std::uint32_t bytesDone = 0;
    std::uint32_t bytesTotal = 0;
    double silence = 0; // seconds in which nothing has changed
    double seconds = 0; // since the start
    bool stageTellsWho = false; // is waited for, as in "Asking the print server"
};

// "Sending firmware 1 of 2 (MAIN) [####----]  50 %  1.0 of 2.0 MiB  0:35", the bar as wide as
// the columns allow; without a percentage how long the wait has lasted. Never a time to go: the
// printer alone knows it.
std::string progressLine(const ProgressParts& parts, std::size_t columns);
std::string clockText(double seconds); // "0:35", "1:02:03"
std::string sizeText(std::uint64_t bytes); // "12.0 KiB"
