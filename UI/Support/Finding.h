// SPDX-License-Identifier: MIT
// One look of the doctor at something that an update needs.
//
// Owns:    its texts, by value; all of them fit to be shown.
// Threads: any.
#pragma once
#include <cstdint>
#include <string>

enum class FindingStatus : std::uint8_t { ok, warning, problem, skipped };
const char* findingStatusName(FindingStatus status); // stable

struct Finding {
    std::string check; // a stable name
    FindingStatus status = FindingStatus::skipped;
    std::string message;
    std::string mend; // the exact command or step; empty where there is none
};
