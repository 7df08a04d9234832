// SPDX-License-Identifier: MIT
#include "VYM/Sha256.h"

#include <gtest/gtest.h>
#include <string>

namespace {

std::span<const unsigned char> bytesOf(std::string_view text)
{
    return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
}

std::string hexOf(std::string_view text)
{
    return Sha256::toHex(Sha256::of(bytesOf(text)));
}

} // namespace

TEST(Sha256, GivesTheStandardsOwnExamples)
{
    EXPECT_EQ(hexOf(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(hexOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(hexOf("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(hexOf("abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmnoijklmnopjklmno"
                    "pqklmnopqrlmnopqrsmnopqrstnopqrstu"),
              "cf5b16a778af8380036ce59e7b0492370b249b11e8f07a51afac45037afee9d1");
    EXPECT_EQ(hexOf(std::string(1000000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

// Lengths around the block's end, where the padding takes one block or two: sha256sum's results for
// that many letters x.
TEST(Sha256, PadsRightAroundTheEndOfABlock)
{
    const struct {
        std::size_t length;
        const char* hex;
    } rows[] = {
        {55, "d5e285683cd4efc02d021a5c62014694958901005d6f71e89e0989fac77e4072"},
        {56, "04c26261370ee7541549d16dee320c723e3fd14671e66a099afe0a377c16888e"},
        {63, "75220b47218278e656f2013bb8f0c455a25eaf01e86c64924e9d48d89776d6f2"},
        {64, "7ce100971f64e7001e8fe5a51973ecdfe1ced42befe7ee8d5fd6219506b5393c"},
        {65, "9537c5fdf120482f7d58d25e9ed583f52c02b4e304ea814db1633ad565aed7e9"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(hexOf(std::string(row.length, 'x')), row.hex) << row.length;
}

TEST(Sha256, IsIndependentOfThePartsOfTheInput)
{
    std::string text;
    for (int i = 0; i < 300; ++i)
        text += static_cast<char>(i * 7);
    const auto whole = Sha256::of(bytesOf(text));
    for (std::size_t part = 1; part <= text.size(); ++part) {
        Sha256 sum;
        for (std::size_t at = 0; at < text.size(); at += part)
            sum.add(bytesOf(std::string_view(text).substr(at, part)));
        EXPECT_EQ(sum.finish(), whole) << part;
    }
}

TEST(Sha256, IsReadFromSixtyFourHexadecimalDigitsOnly)
{
    const auto digest = Sha256::of(bytesOf("abc"));
    auto text = Sha256::toHex(digest);
    EXPECT_EQ(Sha256::fromHex(text), digest);
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    EXPECT_EQ(Sha256::fromHex(text), digest);
    EXPECT_FALSE(Sha256::fromHex("").has_value());
    EXPECT_FALSE(Sha256::fromHex(text.substr(1)).has_value());
    EXPECT_FALSE(Sha256::fromHex(text + "0").has_value());
    EXPECT_FALSE(Sha256::fromHex("g" + text.substr(1)).has_value());
    EXPECT_FALSE(Sha256::fromHex(" " + text.substr(1)).has_value());
}
