// SPDX-License-Identifier: MIT
// Several texts in one line, for people.
//
// Owns:    nothing.
// Threads: any.
#pragma once
#include <string>
#include <vector>

// "a, b, c"; empty without a text.
inline std::string joined(const std::vector<std::string>& texts)
{
    std::string all;
    for (const auto& text : texts)
        all += (all.empty() ? "" : ", ") + text;
    return all;
}
