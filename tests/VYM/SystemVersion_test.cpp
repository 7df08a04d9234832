// SPDX-License-Identifier: MIT
#include "VYM/SystemVersion.h"

#include <gtest/gtest.h>
#include <string>

TEST(SystemVersionText, BecomesBinaryCodedDecimal)
{
    const struct {
        const char* why;
        const char* text;
        unsigned long version;
    } rows[] = {
        {"all three fields", "10.5.8", 0x1058},
        {"one field", "12", 0x1200},
        {"two digits of minor are cut to the greatest digit", "24.04", 0x2440},
        {"a minor above nine", "22.10", 0x2290},
        {"a patch above nine", "10.4.11", 0x1049},
        {"one digit of major", "7.1", 0x0710},
        {"a major above two digits", "123.4", 0x9940},
        {"numbers beyond every integer", "99999999999999999999.99999999999999999999", 0x9990},
        {"a kernel release", "6.1.0-18-amd64", 0x0610},
        {"no point after the major", "12abc", 0x1200},
        {"a point and nothing", "12.", 0x1200},
        {"two points", "12..3", 0x1200},
        {"a fourth field", "1.2.3.4", 0x0123},
        {"nothing", "", 0},
        {"no digit in front", "v12", 0},
        {"a sign", "-12", 0},
        {"a blank", " 12", 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(systemVersionFromText(row.text), row.version) << row.why;
}

TEST(OsReleaseText, GivesItsVersionIdWithoutQuotes)
{
    const struct {
        const char* why;
        const char* text;
        const char* version;
    } rows[] = {
        {"plain", "NAME=x\nVERSION_ID=12\nID=y\n", "12"},
        {"double quotes", "VERSION_ID=\"24.04\"\n", "24.04"},
        {"single quotes", "VERSION_ID='3.19'", "3.19"},
        {"the closing quote is missing", "VERSION_ID=\"12", "12"},
        {"a quote alone", "VERSION_ID=\"", ""},
        {"no value", "VERSION_ID=\nX=1\n", ""},
        {"only the start of the line counts", "MY_VERSION_ID=9\nVERSION_ID=10\n", "10"},
        {"the first one wins", "VERSION_ID=1\nVERSION_ID=2\n", "1"},
        {"empty lines before it", "\n\n\nVERSION_ID=5", "5"},
        {"a key that only begins like it", "VERSION_IDS=5\n", ""},
        {"absent", "NAME=rolling\n", ""},
        {"nothing", "", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(versionIdOf(row.text), row.version) << row.why;
}

TEST(OsReleaseText, GivesAPieceOfItsVersionHoweverItIsCut)
{
    const std::string whole = "NAME=\"x\"\nVERSION_ID=\"24.04\"\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::string text(whole, 0, length);
        const std::string version(versionIdOf(text));
        EXPECT_EQ(version, std::string("24.04").substr(0, version.size())) << length;
    }
}
