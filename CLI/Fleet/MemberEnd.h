// SPDX-License-Identifier: MIT
// How one printer of a fleet ended, read from the result line of its own process or of an earlier
// call, and the class that it counts in.
//
// Owns:    its texts, by value.
// Threads: any. Pure functions.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

enum class MemberClass : std::uint8_t {
    updated,
    updateAvailable, // of a check
    nothingToUpdate,
    failed,
    stopped,
    notStarted,
    leftAlone, // an earlier call says that a person is needed
    skipped, // it ended well in an earlier call
    sameDevice, // another name in the same call means this printer
};
inline constexpr std::size_t kMemberClasses = 9;
const char* memberClassName(MemberClass memberClass); // the key in JSON; never changes
bool isWell(MemberClass memberClass);

struct MemberEnd {
    std::string printer; // as it was asked for; empty in the line of its own process
    std::string command;
    MemberClass memberClass = MemberClass::failed;
    std::string next; // a stable name
    std::string message;
    std::optional<bool> bytesWentOut; // no value while that is not known
};

bool isResultLine(std::string_view line);
// No value for a line that is damaged or no result.
std::optional<MemberEnd> memberEnd(std::string_view line);
// The key of a printer in such a line, with its value and the comma before it.
std::string printerKey(const std::string& printer);
// The same line with the printer as its second key. line: one JSON object with a type.
std::string withPrinter(std::string_view line, const std::string& printer);
