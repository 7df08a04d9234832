// A version text of the operating system as the BCD number that package descriptions compare:
// two digits of major, one of minor, one of patch, each field cut at its greatest digit.
//
// Threads: any. Reads nothing but its argument.
#pragma once
#include <string_view>

// 0x1058 for "10.5.8", 0x1200 for "12", 0x2440 for "24.04"; 0 when text begins with no digit.
unsigned long systemVersionFromText(std::string_view text);
// The value of VERSION_ID in the text of an os-release file, without quotes; empty when absent.
std::string_view versionIdOf(std::string_view osRelease);
