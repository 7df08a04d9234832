// SPDX-License-Identifier: MIT
#include "UI/VYM_Utilities.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

using namespace std::string_literals;
using namespace std::string_view_literals;
using Text = VYM_Utilities::Text;

namespace {

class DriverFolder {
public:
    explicit DriverFolder(std::string_view configuration)
    {
        std::filesystem::create_directory(m_folder.path() / "RLPD");
        m_folder.write("RLPD/rlpd.conf", configuration);
    }
    [[nodiscard]] Text addressOf(const Text& identifier) const
    {
        return VYM_Utilities::getPrinterAddressFromID(identifier, m_folder.path().string());
    }

private:
    TempFolder m_folder;
};

} // namespace

TEST(PrinterAddressFromID, IsTheSignatureAndTheAddress)
{
    const DriverFolder folder("<Printer office>\nDevicePath net:10.0.0.5/PDLType PS\n"
                              "<Printer desk>\nDevicePath usb://Acme/P%201?serial=77\n"
                              "<Printer \xE3\x83\x97>\nDevicePath net6:fe80::1\n");
    EXPECT_EQ(folder.addressOf("office"), "net:10.0.0.5");
    EXPECT_EQ(folder.addressOf("desk"), "usb://Acme/P%201?serial=77");
    EXPECT_EQ(folder.addressOf("\xE3\x83\x97"), "net6:fe80::1");
}

TEST(PrinterAddressFromID, IsAbsentUnlessBothPartsWereFound)
{
    const DriverFolder folder("<Printer nothing>\n"
                              "<Printer other>\nDevicePath lpd://10.0.0.5\n"
                              "<Printer unended>\nDevicePath net:10.0.0.5");
    EXPECT_EQ(folder.addressOf("nothing"), std::nullopt);
    EXPECT_EQ(folder.addressOf("other"), std::nullopt);
    EXPECT_EQ(folder.addressOf("unended"), std::nullopt);
    EXPECT_EQ(folder.addressOf("missing"), std::nullopt);
}

TEST(PrinterAddressFromID, IsAbsentForAbsentArgumentsAndFolders)
{
    const DriverFolder folder("<Printer A>\nDevicePath net:1.2.3.4\n");
    EXPECT_EQ(folder.addressOf(std::nullopt), std::nullopt);
    EXPECT_EQ(VYM_Utilities::getPrinterAddressFromID("A", std::nullopt), std::nullopt);
    EXPECT_EQ(VYM_Utilities::getPrinterAddressFromID("A", "/nowhere"), std::nullopt);
}

TEST(PrinterAddressFromID, DoesNotTakeAnIdentifierWithANulForAShorterOne)
{
    const DriverFolder folder("<Printer A>\nDevicePath net:1.2.3.4\n");
    EXPECT_EQ(folder.addressOf("A\0B"s), std::nullopt);
    EXPECT_EQ(folder.addressOf("A"), "net:1.2.3.4");
}

TEST(ConnectionType, OfAPortStringIsANumberAndTheTextThatSaidSo)
{
    int type = -1;
    std::string text = "before";
    VYM_Utilities::getConnectionTypeFromURI("lpd://10.0.0.5/q", type, &text);
    EXPECT_EQ(type, kConnectionNet);
    EXPECT_EQ(text, "lpd://");
}

TEST(ConnectionType, IsUnknownForAnAbsentOrForeignUriAndLeavesTheText)
{
    for (const Text& uri : {Text(), Text(""), Text("ipp://host")}) {
        int type = -1;
        std::string text = "before";
        VYM_Utilities::getConnectionTypeFromURI(uri, type, &text);
        EXPECT_EQ(type, kConnectionUnknown);
        EXPECT_EQ(text, "before");
    }
}

TEST(ConnectionType, IsKnownWithoutTheTextToo)
{
    int type = -1;
    VYM_Utilities::getConnectionTypeFromURI("usb://Acme/P1?serial=7", type);
    EXPECT_EQ(type, kConnectionUsb);
}

TEST(StringByteCount, CountsPrintableAsciiOnceAndEveryOtherUnitTwice)
{
    const struct {
        const char* why;
        std::string_view text;
        unsigned columns;
    } rows[] = {
        {"nothing", ""sv, 0},
        {"two letters", "ab"sv, 2},
        {"two Japanese characters", "\xE5\x8D\xB0\xE5\x88\xB7"sv, 4},
        {"a tab", "\t"sv, 2},
        {"the first and the last that count once", " ~"sv, 2},
        {"DEL, and the last control character", "\x7F\x1F"sv, 4},
        {"NUL", "a\0b"sv, 4},
        {"a two-byte letter", "\xC3\xA9"sv, 2},
        {"half-width katakana too", "\xEF\xBD\xB1"sv, 2},
        {"the last character of one unit", "\xEF\xBF\xBF"sv, 2},
        {"two units", "\xF0\x9F\x96\xA8"sv, 4},
        {"an invalid byte between letters", "a\xFFz"sv, 4},
        {"a sequence cut short", "\xE5\x8D"sv, 4},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(VYM_Utilities::stringByteCount(row.text), row.columns);
    }
}

TEST(SystemEncoding, IsUtf8)
{
    EXPECT_EQ(VYM_Utilities::systemEncoding(), StringEncoding::utf8);
}

TEST(SystemIcon, IsThereForNotesAndCautionsOnly)
{
    const auto note = VYM_Utilities::getSystemIcon(kNoteIcon, 32);
    ASSERT_TRUE(note);
    EXPECT_STREQ(note->name, "dialog-information");
    EXPECT_EQ(note->size, 32U);
    const auto caution = VYM_Utilities::getSystemIcon(kCautionIcon, 64);
    ASSERT_TRUE(caution);
    EXPECT_STREQ(caution->name, "dialog-warning");
    EXPECT_FALSE(VYM_Utilities::getSystemIcon(0x73746F70, 32)); // 'stop'
    EXPECT_FALSE(VYM_Utilities::getSystemIcon(0, 32));
}
