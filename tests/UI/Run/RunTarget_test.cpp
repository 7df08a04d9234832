// SPDX-License-Identifier: MIT
#include "UI/Run/RunTarget.h"

#include <gtest/gtest.h>

namespace {

std::shared_ptr<PrinterInfo> queue(const std::string& identifier, const std::string& uri)
{
    return PrinterInfo::initWithPMPrinter({"A name", identifier, {}, uri, "A model"});
}

} // namespace

TEST(ConnectableUri, IsWhatConnectionsUnderstand)
{
    const struct {
        const char* why;
        const char* given;
        const char* wanted;
    } rows[] = {
        {"an address of the driver's", "net:10.0.0.5", "lpd://10.0.0.5/"},
        {"a host", "net:office.example", "lpd://office.example/"},
        {"every one of them", "net:a/net:b", "lpd://a/lpd://b/"},
        {"two in a row", "net:net:a", "lpd://lpd://a/"},
        {"not at the beginning", "a/net:b", "a/net:b"},
        {"in capitals", "NET:a", "NET:a"},
        {"an end that is there", "lpd://a/", "lpd://a/"},
        {"an end that is not", "lpd://a/queue", "lpd://a/queue/"},
        {"after something else", "xlpd://a", "xlpd://a/"},
        {"USB", "usb://A/P?serial=1", "usb://A/P?serial=1"},
        {"nothing", "", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(connectableUri(row.given), row.wanted) << row.why;
}

TEST(RunTarget, OfAQueueHasItsIdentifierAndARewrittenAddress)
{
    const auto printer = queue("office", "net:10.0.0.5");
    RunTarget target;
    ASSERT_EQ(target.take(*printer), TargetFit::fits);
    EXPECT_STREQ(target.port(), "lpd://10.0.0.5/");
    EXPECT_STREQ(target.queue(), "office");
    EXPECT_EQ(printer->printerURI(), "lpd://10.0.0.5/");
}

TEST(RunTarget, WithoutAQueueKeepsTheAddressUnchanged)
{
    for (const char* address : {"10.0.0.5", "net:10.0.0.5", "usb://A/P?serial=1"}) {
        const auto printer = PrinterInfo::initWithPrinterName("A name", "A model", address);
        RunTarget target;
        ASSERT_EQ(target.take(*printer), TargetFit::fits);
        EXPECT_STREQ(target.port(), address);
        EXPECT_EQ(target.queue(), nullptr);
    }
}

TEST(RunTarget, TakesWhatFitsToTheLastByteAndCutsNothing)
{
    const auto longest = "usb://" + std::string(kPortNameSize - 7, 'a');
    const std::string longestName(kPrinterNameSize - 1, 'b');
    const struct {
        const char* why;
        std::string identifier, uri;
        TargetFit fit;
    } rows[] = {
        {"both full", longestName, longest, TargetFit::fits},
        {"one byte more", "b", longest + "a", TargetFit::portTooLong},
        {"an identifier of one byte more", longestName + "b", longest, TargetFit::queueTooLong},
        {"too long once it was rewritten", "b", "net:" + std::string(kPortNameSize - 7, 'a'),
         TargetFit::portTooLong},
        {"a NUL inside", "b", std::string("usb://a\0b", 9), TargetFit::portTooLong},
        {"a NUL in the identifier", std::string("b\0c", 3), "usb://a", TargetFit::queueTooLong},
        {"no address", "b", "", TargetFit::noPort},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto printer = queue(row.identifier, row.uri);
        RunTarget target;
        EXPECT_EQ(target.take(*printer), row.fit);
        const bool fits = row.fit == TargetFit::fits;
        EXPECT_STREQ(target.port(), fits ? row.uri.c_str() : "");
        EXPECT_EQ(target.queue() != nullptr, fits);
        EXPECT_EQ(printer->printerURI(), row.uri);
    }
}

TEST(RunTarget, TakesAnAddressUnchanged)
{
    for (const char* address : {"10.0.0.5", "net:10.0.0.5"}) {
        RunTarget target;
        EXPECT_TRUE(target.isEmpty());
        ASSERT_EQ(target.takeAddress(address), TargetFit::fits);
        EXPECT_FALSE(target.isEmpty());
        EXPECT_STREQ(target.port(), address);
        EXPECT_EQ(target.queue(), nullptr);
    }
}

TEST(RunTarget, TakesAPortStringAsIfAQueueHadLedToIt)
{
    RunTarget network;
    ASSERT_EQ(network.takePortString("net:10.0.0.5"), TargetFit::fits);
    EXPECT_STREQ(network.port(), "lpd://10.0.0.5/");
    EXPECT_NE(network.queue(), nullptr); // otherwise connections would refuse a URI
    RunTarget usb;
    ASSERT_EQ(usb.takePortString("usb://A/P?serial=1"), TargetFit::fits);
    EXPECT_STREQ(usb.port(), "usb://A/P?serial=1");
    EXPECT_EQ(usb.queue(), nullptr);
}

TEST(RunTarget, ForgetsTheQueueOfAFormerPrinter)
{
    RunTarget target;
    ASSERT_EQ(target.take(*queue("office", "lpd://10.0.0.5/")), TargetFit::fits);
    ASSERT_EQ(target.takeAddress("10.0.0.6"), TargetFit::fits);
    EXPECT_EQ(target.queue(), nullptr);
    EXPECT_EQ(target.takeAddress(""), TargetFit::noPort);
    EXPECT_STREQ(target.port(), "10.0.0.6");
}
