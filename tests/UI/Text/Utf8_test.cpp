// SPDX-License-Identifier: MIT
#include "UI/Text/Utf8.h"

#include <gtest/gtest.h>

TEST(Utf8, GivesTheFirstCharacterAndItsLength)
{
    const struct {
        std::string_view text;
        char32_t code;
        std::size_t length;
    } rows[] = {
        {"az", U'a', 1},
        {"\xC2\x80z", 0x80, 2},
        {"\xE5\x8D\xB0z", 0x5370, 3},
        {"\xF4\x8F\xBF\xBF", 0x10FFFF, 4},
    };
    for (const auto& row : rows) {
        const auto character = firstCharacter(row.text);
        EXPECT_EQ(character.code, row.code);
        EXPECT_EQ(character.length, row.length);
    }
}

TEST(Utf8, GivesTheByteItselfWhereNoCharacterBegins)
{
    for (const std::string_view text :
         {"\x80z", "\xC1\x81", "\xE5\x8D", "\xE0\x80\x9B", "\xED\xA0\x80", "\xF4\x90\x80\x80",
          "\xF5\x80\x80\x80", "\xFF"}) {
        const auto character = firstCharacter(text);
        EXPECT_EQ(character.code, static_cast<unsigned char>(text.front()));
        EXPECT_EQ(character.length, 0U);
    }
}
