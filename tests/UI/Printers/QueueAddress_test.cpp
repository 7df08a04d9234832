// SPDX-License-Identifier: MIT
#include "UI/Printers/QueueAddress.h"
#include "tests/support/TempFolder.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

class DriverFolders : public testing::Test {
protected:
    // Gives queue "office" of the driver in that folder this address.
    void driver(const std::string& folder, const std::string& devicePath)
    {
        fs::create_directories(root.path() / folder / "RLPD");
        root.write(folder + "/RLPD/rlpd.conf", "<Printer office>\nDevicePath " + devicePath + "\n");
    }
    [[nodiscard]] std::optional<std::string> address(const std::string& queue = "office") const
    {
        return driverAddressOf(queue, root.path().string());
    }
    TempFolder root;
};

constexpr const char* kPrinters = "Library/Printers/Morix/";
constexpr const char* kCaches = "Library/Caches/Morix/";

} // namespace

TEST(DriverUri, BeginsWithTheDriversScheme)
{
    EXPECT_TRUE(isDriverUri("tzrq://office"));
    EXPECT_TRUE(isDriverUri("tzrq2:anything"));
    EXPECT_TRUE(isDriverUri("tzrq"));
    for (const char* other : {"", "tzr", "TZRQ://office", " tzrq", "lpd://tzrq/"})
        EXPECT_FALSE(isDriverUri(other)) << other;
}

TEST_F(DriverFolders, GiveTheAddressOfAQueue)
{
    EXPECT_EQ(address(), std::nullopt);
    driver(std::string(kPrinters) + "Driver100", "net:10.0.0.5/PDLType X");
    EXPECT_EQ(address(), "net:10.0.0.5");
    EXPECT_EQ(address("home"), std::nullopt);
    EXPECT_EQ(address(""), std::nullopt);
}

TEST_F(DriverFolders, AreSearchedInTheOrderOfTheirNames)
{
    for (const char* name : {"c", "a", "b"})
        driver(kPrinters + std::string(name), "net:10.0.0." + std::to_string(name[0]));
    EXPECT_EQ(address(), "net:10.0.0.97");
    fs::remove(root.path() / kPrinters / "a/RLPD/rlpd.conf");
    EXPECT_EQ(address(), "net:10.0.0.98");
}

TEST_F(DriverFolders, OfTheCachesComeSecond)
{
    driver(std::string(kCaches) + "a", "usb://A/P?serial=1");
    EXPECT_EQ(address(), "usb://A/P?serial=1");
    driver(std::string(kPrinters) + "z", "net:10.0.0.5");
    EXPECT_EQ(address(), "net:10.0.0.5");
}

TEST_F(DriverFolders, CountOnlyWithTheDaemonsEntry)
{
    driver(std::string(kPrinters) + "b", "net:10.0.0.5");
    fs::create_directories(root.path() / kPrinters / "a/other");
    root.write(std::string(kPrinters) + "RLPD", "a file is no driver");
    EXPECT_EQ(address(), "net:10.0.0.5");
    // An entry that is no folder with a configuration is skipped for the next driver.
    root.write(std::string(kPrinters) + "a/RLPD", "a file");
    EXPECT_EQ(address(), "net:10.0.0.5");
}

TEST_F(DriverFolders, MayBeReachedThroughALink)
{
    driver("elsewhere", "net:10.0.0.5");
    fs::create_directories(root.path() / kPrinters);
    fs::create_directory_symlink(root.path() / "elsewhere", root.path() / kPrinters / "linked");
    fs::create_directory_symlink("nowhere", root.path() / kPrinters / "broken");
    EXPECT_EQ(address(), "net:10.0.0.5");
}

TEST(DriverFolderRoot, IsTheSystemUnlessTheEnvironmentSaysOtherwise)
{
    unsetenv("VYMKIT_DRIVER_ROOT");
    EXPECT_EQ(driverFolderRoot(), "");
    setenv("VYMKIT_DRIVER_ROOT", "/elsewhere", 1);
    EXPECT_EQ(driverFolderRoot(), "/elsewhere");
    unsetenv("VYMKIT_DRIVER_ROOT");
}
