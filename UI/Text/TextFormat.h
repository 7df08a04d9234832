// SPDX-License-Identifier: MIT
// Formats a localized text with at most one argument. It reads only these two, whatever the text
// contains: a surplus directive, a stray percent sign or an unknown directive is shown unchanged.
//
// Directives: %d %i %u %s %@ %1, all alike: each shows the argument, whether a number or a text; %%
//             shows one percent sign. No flags, no widths, so "100 % done" stays.
// Owns:       nothing.
// Threads:    any. Reads only its arguments; digits are ASCII in every locale.
// Invariant:  UTF-8 in, UTF-8 out. The argument is shown unchanged, never parsed as a format.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

std::string formatText(std::string_view format);
std::string formatText(std::string_view format, std::string_view argument);
std::string formatText(std::string_view format, std::uint32_t argument);
