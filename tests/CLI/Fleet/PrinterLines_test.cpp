// SPDX-License-Identifier: MIT
#include "CLI/Fleet/PrinterLines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

using Kind = PrinterWord::Kind;

} // namespace

TEST(PrinterLines, TakeAddressesNamesOfHostsAndPortStrings)
{
    const auto read = printerLines("192.0.2.7\nprinter.example\r\n"
                                   "usb://A/P?serial=1\n  lpd://h/q  \nnet:h2\n"
                                   "--printer Second floor\n--address 192.0.2.8\n--uri net:h3");
    EXPECT_EQ(read.problem, "");
    EXPECT_THAT(
        read.printers,
        ElementsAre(
            PrinterWord{Kind::address, "192.0.2.7"}, PrinterWord{Kind::address, "printer.example"},
            PrinterWord{Kind::uri, "usb://A/P?serial=1"}, PrinterWord{Kind::uri, "lpd://h/q"},
            PrinterWord{Kind::uri, "net:h2"}, PrinterWord{Kind::queue, "Second floor"},
            PrinterWord{Kind::address, "192.0.2.8"}, PrinterWord{Kind::uri, "net:h3"}));
}

TEST(PrinterLines, SkipCommentsAndEmptyLines)
{
    const auto read = printerLines("\xEF\xBB\xBF# site A\n\n192.0.2.7 # the hall\n\t\n#\n"
                                   "usb://A/P#2?serial=1\n");
    EXPECT_EQ(read.problem, "");
    EXPECT_THAT(read.printers,
                ElementsAre(PrinterWord{Kind::address, "192.0.2.7"},
                            PrinterWord{Kind::uri, "usb://A/P#2?serial=1"}));
    EXPECT_THAT(printerLines("").printers, IsEmpty());
    EXPECT_THAT(printerLines("\n\n").printers, IsEmpty());
}

TEST(PrinterLines, NameTheFirstBadLineByItsNumber)
{
    const struct {
        const char* text;
        const char* problem;
    } rows[] = {
        {"# list\n192.0.2.7\n1.2.3\n", "Line 3 of the list: '1.2.3'"},
        {"not a printer!", "Line 1 of the list: 'not a printer!'"},
        {"usb://A/P", "Line 1 of the list: 'usb://A/P' has no serial="},
        {"a\nb\nlpd:///q\nalso bad!", "Line 3 of the list: 'lpd:///q' names no host"},
        {"--jobs 3", "Line 1 of the list: '--jobs 3'"},
        {"--printer", "Line 1 of the list: '--printer'"},
        {"\x1b[2J", "Line 1 of the list: '\\x1b[2J'"},
    };
    for (const auto& row : rows)
        EXPECT_THAT(printerLines(row.text).problem, StartsWith(row.problem)) << row.text;
    EXPECT_THAT(printerLines(std::string("a\0b", 3)).problem, HasSubstr("Line 1"));
}
