// SPDX-License-Identifier: MIT
#include "DevConn/UsbPortName.h"

#include <gtest/gtest.h>

TEST(UsbPortName, EscapesCharactersThatNoUrlMayContain)
{
    const struct {
        const char* why;
        const char* text;
        const char* escaped;
    } rows[] = {
        {"letters, digits", "Acme 2000", "Acme%202000"},
        {"marks stay", "-_.!~*'();/?:@&=+$,", "-_.!~*'();/?:@&=+$,"},
        {"others do not", "\"#%<>[\\]^`{|}", "%22%23%25%3C%3E%5B%5C%5D%5E%60%7B%7C%7D"},
        {"control bytes", "\x01\n\x7F", "%01%0A%7F"},
        {"UTF-8", "\xC3\xA9", "%C3%A9"},
        {"nothing", "", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(usbPortName::percentEscaped(row.text, ""), row.escaped) << row.why;
    EXPECT_EQ(usbPortName::percentEscaped("A/B (C)", "/()"), "A%2FB%20%28C%29");
}

TEST(UsbPortName, EscapesAProductsSlashAndBracketsButNotAVendors)
{
    EXPECT_EQ(usbPortName::make("A/S (x)", "P/1 (x)", "S 1"),
              "usb://A/S%20(x)/P%2F1%20%28x%29?serial=S 1");
    EXPECT_EQ(usbPortName::make("", "", ""), "usb:///?serial=");
}

TEST(UsbPortName, ReadsATextUpToItsFirstNul)
{
    EXPECT_EQ(usbPortName::bounded("Acme"), "Acme");
    EXPECT_EQ(usbPortName::bounded(std::string("Ac\0me", 5)), "Ac");
    EXPECT_EQ(usbPortName::bounded(std::string(255, 'x')).size(), 255U);
    EXPECT_EQ(usbPortName::bounded(std::string(5000, 'x')).size(), 255U);
}

TEST(UsbPortName, IsReadForItsSerial)
{
    const std::string longProduct(254, 'p');
    const struct {
        const char* why;
        std::string port;
        const char* serial; // null: not a port string
    } rows[] = {
        {"as it is made", "usb://Acme/P1?serial=S1", "S1"},
        {"no serial in it", "usb://Acme/P1?serial=", ""},
        {"a scheme in the middle", "my usb://Acme/P1?serial=S1", "S1"},
        {"a slash for a vendor", "usb:////P1?serial=S1", "S1"},
        {"an empty vendor takes the slash for its first character", "usb:///?serial=S1", nullptr},
        {"no slash after the vendor", "usb://Acme?serial=S1", nullptr},
        {"no question mark", "usb://Acme/P1serial=S1", nullptr},
        {"no serial", "usb://Acme/P1?", nullptr},
        {"no scheme", "usb:/Acme/P1?serial=S1", nullptr},
        {"upper case", "USB://Acme/P1?serial=S1", nullptr},
        {"only a scheme", "usb://", nullptr},
        {"nothing", "", nullptr},
        {"everything after the key", "usb://Acme/P1?serial=S1&x=/?", "S1&x=/?"},
        {"the first key, wherever it is", "serial=7usb://A/P?serial=S1", "7usb://A/P?serial=S1"},
        {"a product as long as it may be", "usb://A/" + longProduct + "?serial=S1", "S1"},
        {"a product longer than that", "usb://A/p" + longProduct + "?serial=S1", nullptr},
    };
    for (const auto& row : rows) {
        std::string serial;
        EXPECT_EQ(usbPortName::serialOf(row.port, serial), row.serial != nullptr) << row.why;
        EXPECT_EQ(serial, row.serial != nullptr ? row.serial : "") << row.why;
    }
}

TEST(UsbPortName, KeepsNoMoreOfASerialThanADeviceMayHave)
{
    std::string serial;
    EXPECT_TRUE(usbPortName::serialOf("usb://A/P?serial=" + std::string(4000, '7'), serial));
    EXPECT_EQ(serial, std::string(255, '7'));
}
