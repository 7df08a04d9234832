// SPDX-License-Identifier: MIT
#include "UI/PrinterInfo.h"

#include <gtest/gtest.h>

namespace {

TEST(PrinterInfo, TakesEveryTextOfItsQueue)
{
    const auto info = PrinterInfo::initWithPMPrinter(
        {"Office", "office-2", "2nd floor", "lpd://192.0.2.7/", "Maker Series 200"});
    EXPECT_EQ(info->printerName(), "Office");
    EXPECT_EQ(info->printerID(), "office-2");
    EXPECT_EQ(info->printerURI(), "lpd://192.0.2.7/");
    EXPECT_EQ(info->printerModel(), "Maker Series 200");
}

TEST(PrinterInfo, OfAQueueWithoutLocationOrModelKeepsThemAbsent)
{
    const auto info = PrinterInfo::initWithPMPrinter({"Office", "office-2", {}, "usb://a/b", {}});
    EXPECT_EQ(info->printerModel(), std::nullopt);
    EXPECT_EQ(info->printerURI(), "usb://a/b");
}

TEST(PrinterInfo, MadeFromANameHasNoIdentifier)
{
    const auto info = PrinterInfo::initWithPrinterName("USB Printer", "Series 200", "usb://a/b");
    EXPECT_EQ(info->printerName(), "USB Printer");
    EXPECT_EQ(info->printerModel(), "Series 200");
    EXPECT_EQ(info->printerURI(), "usb://a/b");
    EXPECT_EQ(info->printerID(), std::nullopt);
}

TEST(PrinterInfo, StartsWithoutAnyText)
{
    const PrinterInfo info;
    EXPECT_EQ(info.printerName(), std::nullopt);
    EXPECT_EQ(info.printerID(), std::nullopt);
    EXPECT_EQ(info.printerURI(), std::nullopt);
    EXPECT_EQ(info.printerModel(), std::nullopt);
}

TEST(PrinterInfo, TakesAnotherUriForItsOwn)
{
    const auto info = PrinterInfo::initWithPrinterName("a", "b", "net:192.0.2.7");
    info->setPrinterURI("lpd://192.0.2.7/");
    EXPECT_EQ(info->printerURI(), "lpd://192.0.2.7/");
    info->setPrinterURI({});
    EXPECT_EQ(info->printerURI(), std::nullopt);
}

} // namespace
