// SPDX-License-Identifier: MIT
#include "Platform/SignatureCheck.h"

#include <gtest/gtest.h>
#include <string>

namespace {

template <class Bytes> Bytes fromHex(const std::string& text)
{
    Bytes bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(std::stoi(text.substr(2 * i, 2), nullptr, 16));
    return bytes;
}

std::span<const unsigned char> bytesOf(std::string_view text)
{
    return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
}

// The third example of RFC 8032: two bytes, signed.
const auto kKey =
    fromHex<signature::Key>("fc51cd8e6218a1a38da47ed00230f0580816ed13ba3303ac5deb911548908025");
const auto kSignature = fromHex<signature::Signature>(
    "6291d657deec24024827e69c3abe01a30ce548a284743a445e3680d7db5ac3ac"
    "18ff9b538d16f290ae67f760984dc6594a7c15e9716ed28dc027beceea1ec40a");
constexpr std::string_view kMessage = "\xaf\x82";

} // namespace

TEST(Signature, IsValidForItsMessageAndKeyOnly)
{
    ASSERT_TRUE(signature::isAvailable());
    EXPECT_TRUE(signature::isValid(kSignature, bytesOf(kMessage), kKey));
    EXPECT_FALSE(signature::isValid(kSignature, bytesOf("\xaf\x83"), kKey));
    EXPECT_FALSE(signature::isValid(kSignature, bytesOf(""), kKey));
    for (std::size_t i = 0; i < kSignature.size(); ++i) {
        auto changed = kSignature;
        changed[i] ^= 1;
        EXPECT_FALSE(signature::isValid(changed, bytesOf(kMessage), kKey)) << i;
    }
    auto otherKey = kKey;
    otherKey[0] ^= 1;
    EXPECT_FALSE(signature::isValid(kSignature, bytesOf(kMessage), otherKey));
    EXPECT_FALSE(signature::isValid({}, bytesOf(kMessage), kKey));
    EXPECT_FALSE(signature::isValid({}, bytesOf(kMessage), {})) << "a key of zeros signs nothing";
}

TEST(RunningSum, IsTheStandardsForTheBytesInWhateverParts)
{
    const auto expected =
        fromHex<signature::Sum>("ba80a53f981c4d0d6a2797b69f12f6e94c212f14685ac4b74b12bb6fdbffa2d1"
                                "7d87c5392aab792dc252d5de4533cc9518d38aa8dbf1925ab92386edd4009923");
    for (const std::size_t first : {0U, 1U, 2U, 3U}) {
        signature::RunningSum sum;
        sum.add(bytesOf(std::string_view("abc").substr(0, first)));
        sum.add(bytesOf(std::string_view("abc").substr(first)));
        signature::Sum found{};
        EXPECT_TRUE(sum.finish(found));
        EXPECT_EQ(found, expected) << first;
    }
}
