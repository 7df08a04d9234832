// SPDX-License-Identifier: MIT
// Writes a small file that appears under its name completely or not at all.
//
// Threads: any. An existing file of that name is replaced; anything else of that name (a folder, a
//          device) is refused.
#pragma once
#include <string>
#include <string_view>

// Returns why it could not be written, in words; empty if it was.
std::string writeWholeFile(const std::string& path, std::string_view text);
