// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/UsbGadget.h"
#include "tests/Tools/vymprinter/usb_identity.h"

#include <gtest/gtest.h>

using namespace vymprinter;

namespace {

TEST(VymprinterUsbGadget, GadgetThatCannotBeMadeSaysWhyAndLeavesNothing)
{
    const UsbGadget gadget("no-such-controller", 7, identity());
    if (gadget.error().empty())
        GTEST_SKIP() << "this machine makes USB devices for us";
    EXPECT_NE(gadget.error().find("cannot make /sys/kernel/config/usb_gadget/"), std::string::npos)
        << gadget.error();
}

} // namespace
