// SPDX-License-Identifier: MIT
#include "CLI/Tables.h"
#include "CLI/Terminal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace {

constexpr auto kAnyWidth = std::string::npos;

void add(PrinterFacts& facts, const char* name, const char* address)
{
    ListedPrinter printer;
    printer.name = name;
    printer.address = address;
    printer.connection = "network";
    printer.model = "Model 100";
    facts.list.push_back(printer);
}

PrinterFacts onePrinter(const char* name)
{
    PrinterFacts facts;
    add(facts, name, "lpd://10.0.0.5/");
    return facts;
}

} // namespace

TEST(Tables, AlignTheirColumnsWhateverLettersStandInThem)
{
    auto facts = onePrinter("B\xc3\xbcro"); // four columns in five bytes
    add(facts, "Home", "net:10.0.0.6");
    const auto text = printerTable(facts, kAnyWidth);
    EXPECT_THAT(text, HasSubstr("  B\xc3\xbcro  lpd://10.0.0.5/  network"));
    EXPECT_THAT(text, HasSubstr("  Home  net:10.0.0.6     network"));
}

TEST(Tables, BecomeAListWhereTheTerminalIsTooNarrow)
{
    const auto facts = onePrinter("Office");
    EXPECT_EQ(printerTable(facts, 40),
              "  Office\n    Address: lpd://10.0.0.5/\n    Connection: network\n"
              "    Model: Model 100\n    Found as: print queue\n");
    EXPECT_THAT(printerTable(facts, 80), HasSubstr("Name    Address"));
}

TEST(Tables, ShowWarningsOnlyWhereThereAreSome)
{
    auto facts = onePrinter("Office");
    EXPECT_EQ(printerTable(facts, kAnyWidth).find("Warning"), std::string::npos);
    facts.list.front().warning = "it leads nowhere";
    EXPECT_THAT(printerTable(facts, kAnyWidth), HasSubstr("  it leads nowhere\n"));
}

TEST(Tables, AreLeftOutWhereThereIsNothingToShow)
{
    EXPECT_EQ(printerTable({}, kAnyWidth), "");
    EXPECT_EQ(firmwareTable({}, kAnyWidth), "");
    EXPECT_EQ(historyTable({}, kAnyWidth), "");
}

TEST(Tables, SayThatARunHasNotEnded)
{
    const PastRun run{1, "f", "now", "p", "", "192.0.2.7", "/a", "", false};
    EXPECT_THAT(historyTable({run}, kAnyWidth), HasSubstr("192.0.2.7  /a       not finished\n"));
}
