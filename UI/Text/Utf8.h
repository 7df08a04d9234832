// SPDX-License-Identifier: MIT
// The characters of a text that claims to be UTF-8.
//
// Owns:    nothing.
// Threads: any. Reads only its argument; ignores the locale.
#pragma once
#include <cstddef>
#include <string_view>

struct Utf8Character {
    char32_t code; // the byte itself if no character begins here
    std::size_t length; // bytes of its UTF-8 form; 0 if there is no valid form
};

// The text must not be empty. Overlong forms, surrogates and values beyond U+10FFFF are invalid.
Utf8Character firstCharacter(std::string_view text);
