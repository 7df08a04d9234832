// SPDX-License-Identifier: MIT
#include "UI/PrinterList.h"

#include <gtest/gtest.h>

namespace {

std::shared_ptr<PrinterInfo> printer(const char* name, const char* uri)
{
    return PrinterInfo::initWithPrinterName(name, "Series 200", uri);
}

PrinterList twoPrinters()
{
    PrinterList list;
    list.setPrinterList(
        PrinterList::Records{printer("A", "net:192.0.2.1"), printer("B", "usb://m/p")});
    return list;
}

TEST(PrinterList, GivesTheRecordAtAnIndexAndNullOutsideTheList)
{
    const auto list = twoPrinters();
    EXPECT_EQ(list.printerInfoAtIndex(1)->printerName(), "B");
    EXPECT_EQ(list.printerInfoAtIndex(-1), nullptr);
    EXPECT_EQ(list.printerInfoAtIndex(2), nullptr);
}

TEST(PrinterList, ShowsNameAndPortAndLeavesAnyOtherColumnEmpty)
{
    const auto list = twoPrinters();
    EXPECT_EQ(list.numberOfRowsInTableView(), 2);
    EXPECT_EQ(list.objectValueForTableColumn("printername", 0), "A");
    EXPECT_EQ(list.objectValueForTableColumn("portname", 1), "usb://m/p");
    EXPECT_EQ(list.objectValueForTableColumn("location", 1), "");
    EXPECT_EQ(list.objectValueForTableColumn("printername", 2), std::nullopt);
    EXPECT_EQ(list.objectValueForTableColumn("printername", -1), std::nullopt);
}

TEST(PrinterList, WithoutRecordsIsEmpty)
{
    auto list = twoPrinters();
    list.setPrinterList(std::nullopt);
    EXPECT_EQ(list.numberOfRowsInTableView(), 0);
    EXPECT_TRUE(list.printerList().empty());
}

TEST(PrinterList, ReturnsASnapshotThatLaterChangesDoNotReach)
{
    auto list = twoPrinters();
    const auto before = list.printerList();
    list.setPrinterList(PrinterList::Records{printer("C", "net:192.0.2.3")});
    EXPECT_EQ(before.size(), 2U);
    EXPECT_EQ(list.printerList().size(), 1U);
}

TEST(PrinterList, AllowsNoEditing)
{
    EXPECT_FALSE(PrinterList::shouldEditTableColumn("printername", 0));
}

} // namespace
