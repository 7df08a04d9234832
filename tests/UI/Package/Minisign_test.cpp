// SPDX-License-Identifier: MIT
#include "UI/Package/Minisign.h"

#include <gtest/gtest.h>

namespace {

// minisign 0.11 made both.
constexpr std::string_view kKeyLine = "RWSrABLVWcVxU4KJnD4V4jXaYymWk926n1LeHrVKabjMGJAkOu+9Qs7H";
const std::string kKeyFile =
    "untrusted comment: minisign public key 5371C559D51200AB\n" + std::string(kKeyLine) + "\n";
const std::string kSignature =
    "untrusted comment: signature from minisign secret key\n"
    "RUSrABLVWcVxU2WtJaDJleac5CbBMP9xdTylWnCf3y205c0RpNosxU+BSk5h1PjiYus2qzthuw2mXBmwfO1B5E2SKyvO"
    "jDZGGAY=\n"
    "trusted comment: Vymprint 200, release 1.2.10\n"
    "9EdEhIJWdWlDRB0a+Bv0FALg0jquYFuHlZQPiGvkVrXWVkXZI1xeS+yc2UHxW183eFrw5j1BnsFyuZpMWsgdBA==\n";

std::string replaced(std::string text, std::string_view what, std::string_view with)
{
    const auto at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), with);
}

std::string decoded(std::string_view text)
{
    const auto bytes = minisign::fromBase64(text);
    return bytes ? std::string(bytes->begin(), bytes->end()) : "(none)";
}

} // namespace

TEST(Base64, IsReadInItsOneFormOnly)
{
    const struct {
        const char* text;
        const char* bytes;
    } rows[] = {
        {"", ""},           {"Zg==", "f"},        {"Zm8=", "fo"},
        {"Zm9v", "foo"},    {"Zm9vYg==", "foob"}, {"Zm9", "(none)"},
        {"Zh==", "(none)"}, {"Zm9=", "(none)"},   {"Zg=a", "(none)"},
        {"====", "(none)"}, {"Zm9v\n", "(none)"}, {"Zm-v", "(none)"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(decoded(row.text), row.bytes) << row.text;
}

TEST(MinisignKey, IsTheSecondLineOfItsFileOrThatLineAlone)
{
    const auto key = minisign::parsePublicKey(kKeyFile);
    ASSERT_TRUE(key.has_value());
    EXPECT_EQ(key->id, (minisign::KeyId{0xAB, 0x00, 0x12, 0xD5, 0x59, 0xC5, 0x71, 0x53}));
    EXPECT_EQ(key->bytes.front(), 0x82);
    for (const auto& text : {std::string(kKeyLine), std::string(kKeyLine) + "\r\n"}) {
        const auto alone = minisign::parsePublicKey(text);
        ASSERT_TRUE(alone.has_value());
        EXPECT_EQ(alone->bytes, key->bytes);
    }
}

TEST(MinisignKey, IsNothingElse)
{
    for (const auto& text :
         {std::string(), std::string("\n"), std::string("no key"), kKeyFile + "more\n",
          replaced(kKeyFile, "untrusted", "trusted"), replaced(kKeyFile, "RWSr", "RUSr"),
          replaced(kKeyFile, "Qs7H", ""), kSignature})
        EXPECT_FALSE(minisign::parsePublicKey(text).has_value()) << text;
}

TEST(MinisignSignature, HasFourLines)
{
    const auto found = minisign::parseSignature(kSignature);
    ASSERT_TRUE(found.has_value());
    EXPECT_TRUE(found->isPrehashed);
    EXPECT_EQ(found->id, minisign::parsePublicKey(kKeyLine)->id);
    EXPECT_EQ(found->trustedComment, "Vymprint 200, release 1.2.10");
    EXPECT_EQ(found->bytes.front(), 0x65);
    EXPECT_EQ(found->commentBytes.front(), 0xF4);
    const auto old = minisign::parseSignature(replaced(kSignature, "RUSr", "RWSr"));
    ASSERT_TRUE(old.has_value());
    EXPECT_FALSE(old->isPrehashed);
}

TEST(MinisignSignature, IsNothingElse)
{
    for (const auto& text :
         {std::string(), std::string("\n\n\n\n"), kSignature + "more\n", kSignature + "\n",
          kSignature.substr(0, kSignature.rfind('\n', kSignature.size() - 2)),
          replaced(kSignature, "untrusted comment", "comment"),
          replaced(kSignature, "\ntrusted comment", "\nuntrusted comment"),
          replaced(kSignature, "RUSr", "RXSr"), replaced(kSignature, "jDZGGAY=", "jDZG"),
          replaced(kSignature, "WsgdBA==", ""), replaced(kSignature, "RUSr", "R SR")})
        EXPECT_FALSE(minisign::parseSignature(text).has_value()) << text;
}
