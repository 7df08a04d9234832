// The desk of the tests on a USB bus; they run inside the virtual machine, as root. Printers are
// processes behind virtual controllers, and the kernel's own printer driver is there as on any
// computer.
#pragma once
#include "tests/system/Desk.h"

namespace usbDesk {

using desk::CliRun;
using desk::expectStored;
using desk::Firmware;
using desk::kPiece;
using desk::listsOlder;
using desk::PackageFolder;
using desk::threeFirmware;

constexpr std::chrono::seconds kSoon{20};

// A printer of MODEL-A, plugged in and taken by the kernel's driver.
class BusPrinter {
public:
    explicit BusPrinter(std::vector<std::string> options = {});
    ~BusPrinter(); // it can always be asked to end, whatever was done to it
    BusPrinter(const BusPrinter&) = delete;
    BusPrinter& operator=(const BusPrinter&) = delete;
    [[nodiscard]] std::string uri() const { return m_uri; }
    // What it stored under that name; nothing when it stored no such firmware.
    [[nodiscard]] std::optional<std::string> stored(const std::string& name) const;
    [[nodiscard]] std::string transcript() const;
    [[nodiscard]] const Process& process() const { return m_process; }

private:
    TempFolder m_store;
    std::string m_uri;
    Process m_process;
};

// Whether the kernel's printer driver gets exactly that many interfaces within a moment.
bool driverServes(std::size_t interfaces);
// Whether the bus carries exactly that many printers within a moment.
bool busCarries(std::size_t printers);
// A printer forgets an updater that was cut off after a while of silence: this is longer.
void letThePrinterForget();

std::vector<std::string> updateOf(const BusPrinter& printer, const PackageFolder& package);
// As an ordinary user, who owns nothing on this machine.
std::vector<std::string> asNobody(const std::vector<std::string>& command);

// What the rule of the device manager does that this machine has not: the printer is everybody's.
void allowEverybody();

// The printer's interface in the hands of another process than the command line: this one.
class HeldInterface {
public:
    HeldInterface();
    ~HeldInterface();
    HeldInterface(const HeldInterface&) = delete;
    HeldInterface& operator=(const HeldInterface&) = delete;
    [[nodiscard]] bool held() const { return m_held; }

private:
    int m_file = -1;
    bool m_held = false;
};

} // namespace usbDesk
