// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/UsbOptions.h"
#include "tests/Tools/vymprinter/program.h"

#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

TEST(VymprinterUsbOptions, WrongOnesEndWithSixtyFourAndSayWhy)
{
    const struct {
        std::vector<std::string> arguments;
        const char* says;
    } rows[] = {
        {{"--usb", "any", "--usb-id", "1209"}, "1209:0001"},
        {{"--usb", "any", "--usb-id", "1209:00001x"}, "1209:0001"},
        {{"--usb", "any", "--usb-take", "700"}, "multiple of 512"},
        {{"--usb", "any", "--usb-take", "32768"}, "16384"},
        {{"--usb", "any", "--usb-serial", std::string(127, 'x')}, "126"},
        {{"--usb", "any", "--device-id-length", "65536"}, "--device-id-length"},
    };
    for (const auto& row : rows) {
        Program program(row.arguments);
        EXPECT_THAT(program.rest(), HasSubstr(row.says));
        EXPECT_EQ(program.exitCode(), 64) << row.arguments[2];
    }
}

} // namespace
