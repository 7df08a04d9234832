// SPDX-License-Identifier: MIT
#include "tests/Platform/LibusbFixture.h"

namespace {

std::string textOf(UsbInterface& one, bool (UsbInterface::*read)(std::string&))
{
    std::string text;
    return (one.*read)(text) ? text : "(none)";
}

} // namespace

using LibusbHostTest = OnLibusb;

TEST_F(LibusbHostTest, ReturnsDescriptorsAndTexts)
{
    auto& one = only();
    std::uint16_t vendor = 0;
    std::uint8_t interfaceClass = 0;
    EXPECT_TRUE(one.vendorId(vendor));
    EXPECT_TRUE(one.interfaceClass(interfaceClass));
    EXPECT_EQ(vendor, 0x1209);
    EXPECT_EQ(interfaceClass, 7);
    EXPECT_TRUE(one.findParent());
    EXPECT_FALSE(one.isForbidden());
    EXPECT_EQ(textOf(one, &UsbInterface::vendorName), "Acme");
    EXPECT_EQ(textOf(one, &UsbInterface::productName), "P1");
    EXPECT_EQ(textOf(one, &UsbInterface::serialNumber), "S1");
}

TEST_F(LibusbHostTest, DistinguishesAnEmptySerialFromAMissingOne)
{
    library.texts[3] = "";
    EXPECT_EQ(textOf(only(), &UsbInterface::serialNumber), "");
    library.texts[3] = std::nullopt;
    EXPECT_EQ(textOf(only(), &UsbInterface::serialNumber), "(none)");
    library.record.iSerialNumber = 0;
    EXPECT_EQ(textOf(only(), &UsbInterface::serialNumber), "(none)");
}

TEST_F(LibusbHostTest, HasNoListWhereTheBusCannotBeRead)
{
    library.initResult = LIBUSB_ERROR_OTHER;
    EXPECT_FALSE(host.interfaces(found));
    library.initResult = 0;
    library.listResult = LIBUSB_ERROR_NO_MEM;
    EXPECT_FALSE(host.interfaces(found));
    library.listResult = 0;
    EXPECT_TRUE(host.interfaces(found));
    EXPECT_TRUE(found.empty());
}

TEST_F(LibusbHostTest, SkipsDevicesWithoutUsableDescriptors)
{
    const auto nothingFound = [this] {
        found.clear();
        EXPECT_TRUE(host.interfaces(found));
        return found.empty();
    };
    library.recordResult = LIBUSB_ERROR_IO;
    EXPECT_TRUE(nothingFound()) << "no device descriptor";
    library.recordResult = 0;
    library.configurationResult = LIBUSB_ERROR_NOT_FOUND;
    EXPECT_TRUE(nothingFound()) << "not configured";
    library.configurationResult = 0;
    library.interface = {nullptr, 3};
    EXPECT_TRUE(nothingFound()) << "settings counted that are not there";
    library.configuration.interface = nullptr;
    EXPECT_TRUE(nothingFound()) << "an interface counted that is not there";
}

TEST_F(LibusbHostTest, TakesTheFirstSettingWhereverItStands)
{
    auto second = library.settings.front();
    second.bAlternateSetting = 1;
    second.bInterfaceClass = 8;
    library.settings.insert(library.settings.begin(), second);
    std::uint8_t value = 0;
    EXPECT_TRUE(only().interfaceClass(value));
    EXPECT_EQ(value, 7);
    library.settings.pop_back();
    EXPECT_TRUE(only().interfaceClass(value));
    EXPECT_EQ(value, 8) << "there is no other";
    EXPECT_EQ(open(), UsbStatus::ok);
    EXPECT_TRUE(connection->alternateSetting(value));
    EXPECT_EQ(value, 1);
}

TEST_F(LibusbHostTest, KnowsADeviceThatMayNotBeOpened)
{
    library.openResult = LIBUSB_ERROR_ACCESS;
    auto& one = only();
    EXPECT_TRUE(one.isForbidden());
    EXPECT_EQ(textOf(one, &UsbInterface::serialNumber), "(none)") << "the system has no record";
    EXPECT_EQ(one.open(connection), UsbStatus::notPermitted);
    EXPECT_EQ(connection, nullptr);
}

TEST_F(LibusbHostTest, SaysWhyAnInterfaceCannotBeOpened)
{
    const struct {
        const char* why;
        int open, claim;
        UsbStatus status;
    } rows[] = {
        {"pulled out", LIBUSB_ERROR_NO_DEVICE, 0, UsbStatus::failed},
        {"no memory", LIBUSB_ERROR_NO_MEM, 0, UsbStatus::failed},
        {"in use by another program", 0, LIBUSB_ERROR_BUSY, UsbStatus::busy},
        {"pulled out in between", 0, LIBUSB_ERROR_NO_DEVICE, UsbStatus::failed},
        {"the driver was sent away, and then it failed", 0, LIBUSB_ERROR_OTHER, UsbStatus::failed},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        library.openResult = row.open;
        library.claimResult = row.claim;
        library.attachedAgain = 0;
        EXPECT_EQ(open(), row.status);
        EXPECT_EQ(connection, nullptr);
        EXPECT_EQ(library.handles, 0);
        EXPECT_EQ(library.attachedAgain, row.open == 0 ? 1 : 0) << "the driver is called back";
    }
}

TEST_F(LibusbHostTest, ClaimsNothingOnlyToIdentify)
{
    for (const bool driven : {true, false}) {
        library.driverActive = driven;
        library.claimResult = LIBUSB_ERROR_BUSY; // another process has it
        EXPECT_EQ(only().openToIdentify(connection), UsbStatus::ok);
        EXPECT_NE(connection, nullptr);
        connection.reset();
        EXPECT_EQ(library.attachedAgain, 0);
    }
    library.openResult = LIBUSB_ERROR_ACCESS;
    EXPECT_EQ(only().openToIdentify(connection), UsbStatus::notPermitted);
    EXPECT_EQ(connection, nullptr);
}

TEST_F(LibusbHostTest, GivesTheInterfaceBackToItsDriver)
{
    ASSERT_EQ(open(), UsbStatus::ok);
    EXPECT_EQ(library.claims, 1);
    EXPECT_TRUE(library.autoDetach);
    EXPECT_EQ(library.attachedAgain, 0);
    found.clear();
    EXPECT_EQ(library.contexts, 1) << "the connection lives on";
    connection.reset();
    EXPECT_EQ(library.attachedAgain, 1);
    EXPECT_EQ(library.contexts, 0);
}
