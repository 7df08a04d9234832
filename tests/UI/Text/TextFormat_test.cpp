// SPDX-License-Identifier: MIT
#include "UI/Text/TextFormat.h"

#include <gtest/gtest.h>
#include <limits>
#include <memory>

using namespace std::string_view_literals;

TEST(TextFormat, ShowsTheArgumentWhereTheTextAsksForIt)
{
    const struct {
        const char* why;
        std::string_view format;
        std::string_view text;
    } rows[] = {
        {"nothing", ""sv, ""sv},
        {"no directive: an argument more", "Checking"sv, "Checking"sv},
        {"a number's directive", "Checking firmware %u"sv, "Checking firmware 7"sv},
        {"a signed one", "%d. Firmware"sv, "7. Firmware"sv},
        {"its other name", "%i"sv, "7"sv},
        {"a text's directive", "%s!"sv, "7!"sv},
        {"an object's directive", "ファームウェア %@ を確認"sv, "ファームウェア 7 を確認"sv},
        {"a numbered place", "Firmware %1 wird geprüft"sv, "Firmware 7 wird geprüft"sv},
        {"twice: an argument less", "%u of %u"sv, "7 of 7"sv},
        {"side by side", "%u%u"sv, "77"sv},
        {"a percent sign", "100%%"sv, "100%"sv},
        {"a percent sign before a directive", "%%%u"sv, "%7"sv},
        {"a percent sign in front of a letter", "%%u"sv, "%u"sv},
        {"a stray one at the end", "100%"sv, "100%"sv},
        {"a stray one inside", "100 % done"sv, "100 % done"sv},
        {"what would write memory", "%n%hhn"sv, "%n%hhn"sv},
        {"what would take a width", "%*d%-5d"sv, "%*d%-5d"sv},
        {"what would read far off", "%s%99999$s"sv, "7%99999$s"sv},
        {"other numbered places", "%2 %10"sv, "%2 70"sv},
        {"a NUL inside", "a\0%u\0%\0"sv,
         "a\0"
         "7\0%\0"sv},
        {"bytes that are no UTF-8", "\xff%u\x80%"sv,
         "\xff"
         "7\x80%"sv},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(formatText(row.format, 7U), row.text);
        EXPECT_EQ(formatText(row.format, "7"), row.text);
    }
}

TEST(TextFormat, KeepsDirectivesWithoutAnArgument)
{
    EXPECT_EQ(formatText("Checking firmware %u"), "Checking firmware %u");
    EXPECT_EQ(formatText("%s%n%@ 50 %, 100%%"), "%s%n%@ 50 %, 100%");
}

TEST(TextFormat, DoesNotReadTheArgumentAsAFormat)
{
    EXPECT_EQ(formatText("<%@>", "%n %@ %%"), "<%n %@ %%>");
    EXPECT_EQ(formatText("<%@>", ""), "<>");
}

TEST(TextFormat, ShowsTheLargestNumber)
{
    EXPECT_EQ(formatText("%d", std::numeric_limits<std::uint32_t>::max()), "4294967295");
}

TEST(TextFormat, ReadsNoByteBeyondTheText)
{
    const auto text = std::make_unique<char[]>(1); // the sanitizer notices reading past the end
    text[0] = '%';
    EXPECT_EQ(formatText({text.get(), 1}, 7U), "%");
}
