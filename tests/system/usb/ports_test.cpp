// SPDX-License-Identifier: MIT
// Finds and opens printers on a bus, as root and as an ordinary user.
#include "tests/support/Await.h"
#include "tests/system/usb/UsbDesk.h"

#include <fcntl.h>
#include <set>
#include <unistd.h>

namespace {

using namespace usbDesk;
using desk::Json;
namespace fs = std::filesystem;

const std::vector<Firmware> kFirmware = {{"MAIN", "AB010200", 5000}};

std::vector<std::string> listOf(const PackageFolder& package)
{
    return {"printers", "--all", "--json", "--package", package.path()};
}

std::set<std::string> addressesIn(const Json& result)
{
    std::set<std::string> found;
    for (const auto& printer : result["printers"])
        found.insert(printer["address"].is_string() ? printer["address"].get<std::string>() : "");
    return found;
}

std::set<std::string> listed(const PackageFolder& package)
{
    CliRun run(listOf(package), CliRun::Pauses::full);
    run.exitCode();
    return addressesIn(run.result());
}

TEST(Printers, AreAnEmptyListOnAnEmptyBus)
{
    const PackageFolder package(kFirmware);
    EXPECT_EQ(listed(package), std::set<std::string>{});
}

TEST(Printers, AreOneByItsDeviceIdAndSerialNumber)
{
    const PackageFolder package(kFirmware);
    const BusPrinter printer({"--usb-serial", "A 1/2"});
    EXPECT_EQ(listed(package), std::set<std::string>{"usb://Virtual/MODEL-A?serial=A 1/2"});
}

// The kernel's driver of the only printer, as a print job has it open.
class PrintJob {
public:
    PrintJob()
    {
        becomesTrue(
            [this] {
                m_file = ::open("/dev/usb/lp0", O_WRONLY | O_CLOEXEC);
                return m_file >= 0;
            },
            kSoon);
    }
    ~PrintJob()
    {
        if (m_file >= 0)
            ::close(m_file);
    }
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;
    [[nodiscard]] bool isPrinting() const { return m_file >= 0 && ::write(m_file, "", 0) == 0; }

private:
    int m_file = -1;
};

TEST(Printers, AreListedWithoutEndingAPrintJob)
{
    const PackageFolder package(kFirmware);
    const BusPrinter printer;
    ASSERT_TRUE(driverServes(1));
    const PrintJob job;
    ASSERT_TRUE(job.isPrinting());
    EXPECT_EQ(listed(package).size(), 1U);
    EXPECT_TRUE(driverServes(1)) << "the driver was detached";
    EXPECT_TRUE(job.isPrinting());
}

// As the command line names this process.
std::string ownName()
{
    auto name = readFile("/proc/self/comm");
    name.erase(name.find_last_not_of('\n') + 1);
    return name + " (process " + std::to_string(getpid()) + ")";
}

Json warningOf(const PackageFolder& package)
{
    CliRun run(listOf(package), CliRun::Pauses::full);
    run.exitCode();
    return run.result()["printers"][0]["warning"];
}

TEST(Printers, AreListedWithTheProgramThatPrints)
{
    const PackageFolder package(kFirmware);
    const BusPrinter printer;
    ASSERT_TRUE(driverServes(1));
    EXPECT_TRUE(warningOf(package).is_null()) << "nothing has it open";
    const PrintJob job;
    ASSERT_TRUE(job.isPrinting());
    EXPECT_EQ(warningOf(package), "it is in use by " + ownName());
    CliRun run({"printers", "--all", "--package", package.path()}, CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(), 69) << "there is no print server: " << run.process().errors();
    EXPECT_NE(run.process().out().find("it is in use by " + ownName()), std::string::npos)
        << run.process().out();
}

TEST(Printers, AreListedWithTheProgramThatHoldsTheInterface)
{
    const PackageFolder package(kFirmware);
    const BusPrinter printer;
    ASSERT_TRUE(driverServes(1));
    const HeldInterface other;
    ASSERT_TRUE(other.held());
    EXPECT_EQ(warningOf(package), "it is in use by " + ownName());
}

TEST(Printers, AreNotUpdatedUnderAPrintJob)
{
    const PackageFolder package(kFirmware);
    const BusPrinter printer;
    ASSERT_TRUE(driverServes(1));
    const PrintJob job;
    ASSERT_TRUE(job.isPrinting());
    CliRun run(updateOf(printer, package), CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(), 16) << run.process().out();
    const auto result = run.result();
    EXPECT_EQ(result["firmware_bytes_sent"], false);
    EXPECT_NE(std::string(result["message"]).find("is in use by " + ownName()), std::string::npos)
        << result["message"];
    EXPECT_TRUE(job.isPrinting());
}

TEST(Printers, AreThreeOfOneModel)
{
    const PackageFolder package(kFirmware);
    const BusPrinter printers({"--count", "3", "--usb-serial", "S"});
    ASSERT_TRUE(driverServes(3));
    EXPECT_EQ(
        listed(package),
        (std::set<std::string>{"usb://Virtual/MODEL-A?serial=S", "usb://Virtual/MODEL-A?serial=S-2",
                               "usb://Virtual/MODEL-A?serial=S-3"}));
}

TEST(Printers, AreNamedWithPercentEscapesAndFoundByThatName)
{
    const PackageFolder package(kFirmware);
    const BusPrinter printer({"--usb-maker", "Vy m&k%", "--usb-product", "MODEL-A (100/2)",
                              "--firmware", "MAIN=AB010100"});
    const auto found = listed(package);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(*found.begin(), "usb://Vy%20m&k%25/MODEL-A%20%28100%2F2%29?serial=VP0001");
    CliRun run({"update", "--uri", *found.begin(), "--package", package.path(), "--yes", "--json"},
               CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(), 0) << run.process().out();
    EXPECT_TRUE(printer.stored("MAIN.FW") == package.bytesOf(0));
}

TEST(Printers, OfOneModelAreDistinguishedBySerialNumber)
{
    const PackageFolder package(kFirmware);
    const BusPrinter printers({"--count", "2", "--firmware", "MAIN=AB010100"});
    ASSERT_TRUE(driverServes(2));
    CliRun run({"update", "--uri", "usb://Virtual/MODEL-A?serial=VP0001-2", "--package",
                package.path(), "--yes", "--json"},
               CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(), 0) << run.process().out();
    EXPECT_NE(printers.process().errors().find("dummy_udc.1: connection 1"), std::string::npos);
    EXPECT_EQ(printers.process().errors().find("dummy_udc.0: connection 1"), std::string::npos);
}

// A printer's names, and whether an update by its port string reaches it.
struct Identity {
    const char* why;
    std::vector<std::string> options;
    int exitCode;
};

void PrintTo(const Identity& identity, std::ostream* out)
{
    *out << identity.why;
}

class PrinterIdentity : public ::testing::TestWithParam<Identity> { };

TEST_P(PrinterIdentity, DecidesWhetherItIsUpdated)
{
    const auto& row = GetParam();
    const PackageFolder package(kFirmware);
    auto options = row.options;
    options.insert(options.end(), {"--firmware", "MAIN=AB010100"});
    const BusPrinter printer(options);
    CliRun run({"update", "--uri", "usb://Virtual/MODEL-A?serial=VP0001", "--package",
                package.path(), "--yes", "--json"},
               CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(), row.exitCode) << run.process().out() << run.process().errors();
    EXPECT_TRUE(driverServes(1));
}

const Identity kIdentities[] = {
    {"as usual", {}, 0},
    {"another serial number", {"--usb-serial", "VP0002"}, 16},
    {"an empty serial number", {"--usb-serial", ""}, 16},
    {"no texts at all", {"--usb-no-texts"}, 16},
    {"another maker's number", {"--usb-id", "1234:0001"}, 16},
    {"the maker's number, bytes swapped", {"--usb-id", "0912:0001"}, 0},
    {"another model", {"--device-id", "MFG:Virtual;MDL:MODEL-B;"}, 16},
    {"a device ID without a model", {"--device-id", "MFG:Virtual;CMD:VYM;"}, 16},
    {"a model key in small letters", {"--device-id", "MFG:Virtual;mdl:MODEL-A;"}, 16},
    {"a device ID that begins with the model", {"--device-id", "MDL:MODEL-A;MFG:Virtual;"}, 0},
    {"a device ID that claims to be empty", {"--device-id-length", "0"}, 0},
    {"a device ID that claims to be huge", {"--device-id-length", "65535"}, 0},
    {"an empty device ID", {"--device-id", ""}, 16},
    {"a device ID that is refused", {"--fault", "id-halt"}, 16},
    {"a device ID that never comes", {"--fault", "id-silent@device-id:2"}, 16},
};

INSTANTIATE_TEST_SUITE_P(ByItsWords, PrinterIdentity, ::testing::ValuesIn(kIdentities));

TEST(OrdinaryUser, LearnsThatAPrinterIsConnectedButMayNotBeOpened)
{
    const PackageFolder package(kFirmware);
    fs::permissions(package.path(), fs::perms::others_read | fs::perms::others_exec,
                    fs::perm_options::add);
    const BusPrinter printer({"--firmware", "MAIN=AB010100"});
    auto list = listOf(package);
    list.insert(list.begin(), VYMKIT_CLI);
    Process listing(asNobody(list));
    listing.wait();
    EXPECT_NE(listing.out().find("\"not-permitted\""), std::string::npos) << listing.out();
    auto update = updateOf(printer, package);
    update.insert(update.begin(), VYMKIT_CLI);
    Process run(asNobody(update));
    EXPECT_EQ(run.wait(), 16) << run.out() << run.errors();
    EXPECT_NE(run.out().find("may not open the USB printer"), std::string::npos) << run.out();
    EXPECT_TRUE(driverServes(1));
}

TEST(OrdinaryUser, UpdatesAPrinterThatEverybodyMayOpen)
{
    const PackageFolder package(kFirmware);
    fs::permissions(package.path(), fs::perms::others_read | fs::perms::others_exec,
                    fs::perm_options::add);
    const BusPrinter printer({"--firmware", "MAIN=AB010100"});
    allowEverybody();
    auto update = updateOf(printer, package);
    update.insert(update.begin(), VYMKIT_CLI);
    Process run(asNobody(update));
    EXPECT_EQ(run.wait(), 0) << run.out() << run.errors();
    EXPECT_TRUE(printer.stored("MAIN.FW") == package.bytesOf(0));
    EXPECT_TRUE(driverServes(1));
}

TEST(BusyPrinter, IsGivenUpAfterFiveSecondsAndFoundWhenFreeAgain)
{
    const PackageFolder package(kFirmware);
    const BusPrinter printer({"--firmware", "MAIN=AB010100"});
    {
        const HeldInterface other;
        ASSERT_TRUE(other.held());
        const auto start = std::chrono::steady_clock::now();
        CliRun run(updateOf(printer, package), CliRun::Pauses::full);
        EXPECT_EQ(run.exitCode(), 16) << run.process().out() << run.process().errors();
        const auto time = std::chrono::steady_clock::now() - start;
        EXPECT_GE(time, std::chrono::seconds(4));
        EXPECT_LT(time, std::chrono::seconds(10));
    }
    EXPECT_TRUE(driverServes(1));
    CliRun run(updateOf(printer, package), CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(), 0) << run.process().out() << run.process().errors();
}

} // namespace
