// SPDX-License-Identifier: MIT
// The last words of a program that lacks the memory for a result: what happened, with the right
// code, from texts that are already there. Without them a script would get nothing at all.
//
// Owns:    nothing; its texts live as long as the process.
// Threads: any. Allocates nothing and throws nothing.
#pragma once
#include "UI/Run/UpdateRun.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

struct LastFacts {
    bool json = false;
    const char* command = "none";
    int exitCode = 0;
    std::string_view name; // the result's, stable
    std::optional<int> resultCode;
    std::optional<bool> bytesWentOut = false; // empty: not known
    double seconds = 0;
};

// Longer than any line that lastLine can make.
using LastText = std::array<char, 1024>;

// The result line in JSON, or a sentence for people, with its line end; written into room.
std::string_view lastLine(const LastFacts& facts, LastText& room);

// Whether the arguments ask for JSON, as far as they can be read without memory.
bool wantsJson(int argc, const char* const* argv);
