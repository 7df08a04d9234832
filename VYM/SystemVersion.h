// SPDX-License-Identifier: MIT
// Converts a version text of the operating system to the BCD number that package descriptions
// compare: two digits of major, one of minor, one of patch, each limited to its largest value.
//
// Threads: any. Reads only its argument.
#pragma once
#include <string_view>

// 0x1058 for "10.5.8", 0x1200 for "12", 0x2440 for "24.04"; 0 if text does not begin with a digit.
unsigned long systemVersionFromText(std::string_view text);
// The value of VERSION_ID in the text of an os-release file, without quotes; empty if absent.
std::string_view versionIdOf(std::string_view osRelease);
