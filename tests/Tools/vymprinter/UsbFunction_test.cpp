// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/UsbFunction.h"
#include "tests/Tools/vymprinter/usb_identity.h"

#include <gtest/gtest.h>

using namespace vymprinter;

namespace {

TEST(VymprinterUsbFunction, DescriptorsAreAnInterfaceAndThreePipesAtEachSpeed)
{
    const auto bytes = functionDescriptors();
    const std::size_t head = 20;
    const std::size_t speed = 9 + 3 * 7;
    ASSERT_EQ(bytes.size(), head + 2 * speed);
    EXPECT_EQ(bytes[4], bytes.size()); // little-endian
    EXPECT_EQ(bytes[12], 4);
    EXPECT_EQ(bytes[16], 4);
    for (const std::size_t at : {head, head + speed}) {
        const Bytes interface(bytes.begin() + static_cast<std::ptrdiff_t>(at),
                              bytes.begin() + static_cast<std::ptrdiff_t>(at + 9));
        EXPECT_EQ(interface, (Bytes{9, 4, 0, 0, 3, 7, 1, 2, 0}));
        const Bytes out(bytes.begin() + static_cast<std::ptrdiff_t>(at + 9),
                        bytes.begin() + static_cast<std::ptrdiff_t>(at + 16));
        const bool full = at == head;
        EXPECT_EQ(out,
                  (Bytes{7, 5, 1, 2, full ? std::uint8_t{64} : std::uint8_t{0},
                         full ? std::uint8_t{0} : std::uint8_t{2}, 0}));
    }
}

TEST(VymprinterUsbFunction, FunctionWithoutItsFilesSaysWhichIsMissing)
{
    const UsbFunction function("/no/such/folder", identity());
    EXPECT_NE(function.error().find("/no/such/folder/ep0"), std::string::npos) << function.error();
}

} // namespace
