// SPDX-License-Identifier: MIT
// The words of a command line before it is parsed: finds what is wrong with a line, and the known
// word that an unknown one may mean.
//
// Owns:    its texts, by value.
// Threads: any. Pure functions.
#pragma once
#include "CLI/Command.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

struct LineWords {
    Command command = Command::none; // the first word that is a command, also in a wrong line
    bool wantsHelp = false; // -h or --help appears anywhere
    bool wantsJson = false;
    std::string unknown; // the first word that is neither option nor command, unchanged
    std::string emptyOption; // the first option that ends in "=", without the sign
};
LineWords lineWords(int argc, const char* const* argv);

// The options of the line with their values, without the command and the unwanted ones.
std::vector<std::string> withoutWords(int argc, const char* const* argv,
                                      std::span<const std::string_view> unwanted);

// "Did you mean ...?", or empty if no known word is similar.
std::string suggestionFor(std::string_view unknown);
