// The characters of a text that claims to be UTF-8.
//
// Owns:    nothing.
// Threads: any. Reads nothing but its argument, whatever the locale says.
#pragma once
#include <cstddef>
#include <string_view>

struct Utf8Character {
    char32_t code; // the byte itself where no character begins
    std::size_t length; // bytes of its UTF-8 form; 0 where the text begins with no such form
};

// Of a text that is not empty. No overlong form, no surrogate, nothing beyond U+10FFFF.
Utf8Character firstCharacter(std::string_view text);
