// SPDX-License-Identifier: MIT
#include "UI/Support/MarkedNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> valuesOf(std::string_view text)
{
    std::vector<std::string> values;
    for (const auto& name : markedNames(text)) {
        if (values.empty() || values.back() != name.value)
            values.push_back(name.value);
    }
    return values;
}

} // namespace

TEST(MarkedNames, FindsTheHostOfAPortString)
{
    EXPECT_THAT(valuesOf("lpd://office.example/q"), ElementsAre("office.example"));
    EXPECT_THAT(valuesOf("address: net:office, then"), ElementsAre("office"));
    EXPECT_THAT(valuesOf("{\"uri\":\"ipp:\\/\\/office:631\\/ipp\"}"), ElementsAre("office"));
    EXPECT_THAT(valuesOf("ipp://anna@office/x"), ElementsAre("office"));
    EXPECT_THAT(valuesOf("lpd://[fe80::1]/q"), ElementsAre("fe80::1"));
    EXPECT_THAT(valuesOf("dnssd://Laser%20%2F%205._ipp._tcp.local/?uuid=77-x"),
                ElementsAre("laser / 5._ipp._tcp.local", "77-x"));
}

TEST(MarkedNames, TakesNoMakerAndNoLoopbackForAHost)
{
    EXPECT_THAT(valuesOf("usb://Acme/Model"), IsEmpty());
    EXPECT_THAT(valuesOf("http://localhost:631/"), IsEmpty());
    EXPECT_THAT(valuesOf("the internet: nothing"), IsEmpty());
}

TEST(MarkedNames, FindsASerialNumberUpToItsEnd)
{
    EXPECT_THAT(valuesOf("usb://Acme/M?serial=S%2677&interface=1"), ElementsAre("s&77"));
    EXPECT_THAT(valuesOf("'usb://Acme/M?serial=S77'."), ElementsAre("s77"));
}

TEST(MarkedNames, FindsAddressesWhereverTheyStand)
{
    EXPECT_THAT(valuesOf("192.0.2.7 port 9."), ElementsAre("192.0.2.7"));
    EXPECT_THAT(valuesOf("(192.0.2.7)."), ElementsAre("192.0.2.7"));
    EXPECT_THAT(valuesOf("fe80::1 and ::1"), ElementsAre("fe80::1", "::1"));
    EXPECT_THAT(valuesOf("00:11:22:aa:bb:cc"), ElementsAre("00:11:22:aa:bb:cc"));
    EXPECT_THAT(valuesOf("00-11-22-AA-BB-CC"), ElementsAre("00-11-22-aa-bb-cc"));
}

TEST(MarkedNames, LeavesVersionsTimesAndWordsAlone)
{
    for (const auto* text : {"1.2.10", "2026-11-22 01:02:03", "libusb-1.0.so.0.3.0", "1.0.26.11798",
                             "bad face: added", "MAIN=VP010100", "300.0 of 300.0"}) {
        SCOPED_TRACE(text);
        EXPECT_THAT(valuesOf(text), IsEmpty());
    }
}

TEST(MarkedNames, TakesTimeInProportionToTheText)
{
    std::string text;
    while (text.size() < 200000)
        text += "serial=a-net:";
    EXPECT_FALSE(markedNames(text).empty()); // ends
}
