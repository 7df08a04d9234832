// SPDX-License-Identifier: MIT
// The kernel's node of a printer, and who has it open.
#include "Platform/LibusbNode.h"
#include "tests/support/TempFolder.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

TEST(LibusbNode, IsFoundInTheInterfacesFolder)
{
    const TempFolder folder;
    const auto device = folder.path() / "3-1.2";
    std::filesystem::create_directories(device / "3-1.2:1.4" / "usbmisc" / "lp7");
    EXPECT_EQ(libusb::printerNode(device, {1, 4, 0, 7, {}}), "/dev/usb/lp7");
    EXPECT_EQ(libusb::printerNode(device, {1, 5, 0, 7, {}}), "");
    EXPECT_EQ(libusb::printerNode(device, {2, 4, 0, 7, {}}), "");
    EXPECT_EQ(libusb::printerNode("", {1, 4, 0, 7, {}}), "");
}

TEST(LibusbNode, IsInUseWhileAProcessHasItOpen)
{
    const TempFolder folder;
    const std::string node = std::filesystem::canonical(folder.path()) / "lp0";
    std::ofstream(node) << "x";
    EXPECT_EQ(libusb::holderOf(node), "");
    EXPECT_FALSE(libusb::isInUse(node));
    const int file = ::open(node.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_GE(file, 0);
    EXPECT_NE(libusb::holderOf(node).find("(process " + std::to_string(::getpid()) + ")"),
              std::string::npos)
        << libusb::holderOf(node);
    EXPECT_TRUE(libusb::isInUse(node));
    ::close(file);
    EXPECT_FALSE(libusb::isInUse(node));
    EXPECT_FALSE(libusb::isInUse(""));
    EXPECT_FALSE(libusb::isInUse(node + "gone"));
}

} // namespace
