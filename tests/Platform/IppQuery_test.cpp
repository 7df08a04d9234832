// SPDX-License-Identifier: MIT
#include "Platform/IppQuery.h"
#include "tests/Platform/IppMessage.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

namespace {

constexpr int kQueues = 0x4002; // CUPS-Get-Printers stands where an answer has its status

std::string queryOf(const std::string& user)
{
    return IppMessage(kQueues)
        .group(1)
        .attribute(0x47, "attributes-charset", "utf-8")
        .attribute(0x48, "attributes-natural-language", "en")
        .attribute(0x23, "printer-type", "\0\0\0\0"s)
        .attribute(0x23, "printer-type-mask", "\0\0\0\1"s)
        .attribute(0x42, "requesting-user-name", user)
        .attribute(0x44, "requested-attributes", "printer-name")
        .attribute(0x44, "", "printer-info")
        .attribute(0x44, "", "printer-location")
        .attribute(0x44, "", "device-uri")
        .attribute(0x44, "", "printer-make-and-model")
        .end();
}

} // namespace

TEST(IppQuery, WantsFiveTextsOfEachQueueAndNoClasses)
{
    EXPECT_EQ(ippQuery("anna"), queryOf("anna"));
}

TEST(IppQuery, BearsTheFirst255BytesOfALongName)
{
    EXPECT_EQ(ippQuery(std::string(70000, 'n')), queryOf(std::string(255, 'n')));
    EXPECT_EQ(ippQuery(""), queryOf(""));
}
