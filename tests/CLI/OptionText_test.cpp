// SPDX-License-Identifier: MIT
#include "CLI/OptionText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::HasSubstr;

TEST(OptionText, ANumberHasDigitsOnlyAndABound)
{
    EXPECT_EQ(parseNumber("1", 1), 1);
    EXPECT_EQ(parseNumber("65535", 65535), 65535);
    for (const char* bad : {"", "0", "-1", "+1", "1x", "65536", "99999999999"})
        EXPECT_EQ(parseNumber(bad, 65535), std::nullopt) << bad;
}

TEST(OptionText, AHostNameHasLettersAndNothingThatAddressesLack)
{
    for (const char* good : {"printer", "printer.example", "p-1_2.example.", "1a.2b"})
        EXPECT_TRUE(isHostName(good)) << good;
    for (const char* bad : {"", "1.2.3", "1.2.3.256", "a b", "-a", ".a", "a..b", "a/b", "a:9100",
                            "0x7f000001", "\x1b[2J", "usb://a"})
        EXPECT_FALSE(isHostName(bad)) << bad;
    EXPECT_FALSE(isHostName(std::string(254, 'a')));
}

TEST(OptionText, APrinterAddressIsFourPlainNumbers)
{
    for (const char* good : {"192.0.2.7", "1.2.3.4", "127.0.0.1", "255.255.255.254", "10.0.0.0"})
        EXPECT_TRUE(isPrinterAddress(good)) << good;
    for (const char* bad :
         {"", "0.0.0.0", "255.255.255.255", "1.2.3", "1.2.3.4.5", "1.2.3.256", "01.2.3.4",
          "1.2.3.0x4", " 1.2.3.4", "1.2.3.4 ", "1.2.3.4\n", "1..3.4", "1.2.3.-4", "1,2,3,4", "::1",
          "usb://1.2.3.4", "1.2.3.4:80", "3232235777", "1.2.3.1000"})
        EXPECT_FALSE(isPrinterAddress(bad)) << bad;
    EXPECT_FALSE(isPrinterAddress(std::string("1.2.3.4\0usb", 11)));
}

TEST(OptionText, APortStringIsOneThatConnectionsTake)
{
    for (const char* good :
         {"usb://A/P?serial=1", "lpd://192.0.2.7/", "lpd://office", "net:office", "net:192.0.2.7"})
        EXPECT_EQ(portStringError(good), "") << good;
    const struct {
        const char* text;
        const char* message;
    } rows[] = {
        {"", "is no port string"},
        {"192.0.2.7", "is no port string"},
        {"ipp://office", "is no port string"},
        {"net6:::1", "is no port string"},
        {"lpd://", "names no host"},
        {"lpd:///queue", "names no host"},
        {"net:", "names no host"},
        {"USB://A/P?serial=1", "is no port string"},
        {" usb://A/P?serial=1", "is no port string"},
        {"usb://A/P?Serial=1", "has no serial="},
        {"lpd://usb-office/", "would be taken for a USB printer"},
        {"net:usb", "would be taken for a USB printer"},
        {"\x1b[2J", "'\\x1b[2J'"},
    };
    for (const auto& row : rows)
        EXPECT_THAT(portStringError(row.text), HasSubstr(row.message)) << row.text;
}

TEST(OptionText, ATimeLimitIsAPositiveNumber)
{
    EXPECT_EQ(parseSeconds("1"), 1.0);
    EXPECT_EQ(parseSeconds("0.5"), 0.5);
    for (const char* bad : {"", "0", "-1", "1s", "1e3", "nan", "inf", " 1", "0x10", "99999999999"})
        EXPECT_EQ(parseSeconds(bad), std::nullopt) << bad;
}
