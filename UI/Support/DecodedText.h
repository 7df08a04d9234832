// SPDX-License-Identifier: MIT
// A text without its encodings, for comparison: percent-encoded and escaped characters, even
// encoded twice, as themselves; ASCII letters in lower case.
//
// Owns:      its text, by value.
// Threads:   any. Pure functions.
// Invariant: begins has one element more than text has bytes; it never decreases.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct DecodedText {
    std::string text;
    std::vector<std::size_t> begins; // where each byte begins in the original; at the end its size
};

DecodedText decodedText(std::string_view original);

// Whether a byte of a decoded text belongs to a word: letters beyond ASCII count as well.
constexpr bool isOfWord(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x80 || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z');
}
