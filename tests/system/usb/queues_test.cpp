// SPDX-License-Identifier: MIT
// Print queues and USB devices together: a real print server and the devices of its queues.
#include "tests/support/PrivateCups.h"
#include "tests/system/usb/UsbDesk.h"

#include <gmock/gmock.h>

namespace {

using namespace usbDesk;

constexpr const char* kDriver = "A printer"; // of the package's driver

std::vector<std::string> with(const PackageFolder& package, std::vector<std::string> words)
{
    words.insert(words.end(), {"--json", "--package", package.path()});
    return words;
}

TEST(Queues, StandForTheirDeviceAndADeviceWithoutOneIsListedBesideThem)
{
    const PackageFolder package({{"MAIN", "AB010200", 5000}});
    const BusPrinter printers({"--count", "2", "--usb-serial", "S"});
    ASSERT_TRUE(driverServes(2));
    PrivateCups cups;
    cups.add({"office", printers.uri(), kDriver});
    cups.add({"again", printers.uri(), kDriver});
    cups.add({"gone", printers.uri() + "-9", kDriver});
    CliRun run(with(package, {"printers", "--all"}), CliRun::Pauses::full, cups.environment());
    EXPECT_EQ(run.exitCode(), 0);
    std::vector<std::string> told;
    const auto result = run.result();
    for (const auto& one : result["printers"]) {
        const auto name = one["identifier"].is_string() ? one["identifier"].get<std::string>() : "";
        told.push_back(name + ' ' + one["reason"].get<std::string>());
    }
    EXPECT_THAT(told,
                testing::UnorderedElementsAre("again candidate", "gone no-answer",
                                              "office duplicate", " candidate", " duplicate"))
        << run.process().out();
}

TEST(Queues, LeadAnUpdateToTheirDevice)
{
    const PackageFolder package({{"MAIN", "AB010200", 5000}});
    const BusPrinter printer({"--firmware", "MAIN=AB010100"});
    PrivateCups cups;
    cups.add({"office", printer.uri(), kDriver});
    CliRun run(with(package, {"update", "--yes", "--printer", "office"}), CliRun::Pauses::full,
               cups.environment());
    EXPECT_EQ(run.exitCode(), 0) << run.process().out() << run.process().errors();
    expectStored(printer, package);
    EXPECT_TRUE(driverServes(1));
}

} // namespace
