// A localized text used as a format, with one argument or none. Whatever the text is, nothing but
// the text and the argument is ever read: a directive too many, a stray percent sign or a foreign
// directive is shown as it stands.
//
// Directives: %d %i %u %s %@ %1, all alike: each shows the argument, whether that is a number or a
//             text; %% shows one percent sign. Neither flags nor widths, so "100 % done" stays.
// Owns:       nothing.
// Threads:    any. Reads nothing but its arguments; digits are ASCII whatever the locale says.
// Invariant:  UTF-8 in, UTF-8 out. The argument is shown as it is and not read as a format.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

std::string formatText(std::string_view format);
std::string formatText(std::string_view format, std::string_view argument);
std::string formatText(std::string_view format, std::uint32_t argument);
