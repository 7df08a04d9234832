// SPDX-License-Identifier: MIT
// The desk of the tests on a USB bus, which run inside the virtual machine, as root. Printers are
// processes behind virtual controllers, and the kernel's own printer driver is loaded as usual.
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

// A printer of MODEL-A, plugged in and claimed by the kernel's driver.
class BusPrinter {
public:
    explicit BusPrinter(std::vector<std::string> options = {});
    ~BusPrinter(); // the process ends on request in every state
    BusPrinter(const BusPrinter&) = delete;
    BusPrinter& operator=(const BusPrinter&) = delete;
    [[nodiscard]] std::string uri() const { return m_uri; }
    // The bytes stored under that name; empty if it stored no such firmware.
    [[nodiscard]] std::optional<std::string> stored(const std::string& name) const;
    [[nodiscard]] std::string transcript() const;
    [[nodiscard]] const Process& process() const { return m_process; }

private:
    TempFolder m_store;
    std::string m_uri;
    Process m_process;
};

// Whether the kernel's printer driver soon holds exactly that many interfaces.
bool driverServes(std::size_t interfaces);
// Whether the bus soon carries exactly that many printers.
bool busCarries(std::size_t printers);
// Waits until the printer, after a while of silence, has forgotten an updater that was cut off.
void letThePrinterForget();

std::vector<std::string> updateOf(const BusPrinter& printer, const PackageFolder& package);
// Runs the command as an ordinary user, who owns nothing on this machine.
std::vector<std::string> asNobody(const std::vector<std::string>& command);

// Gives every user access to the printer. On a usual system a udev rule does that.
void allowEverybody();

// Holds the printer's interface in this process, so that the command line finds it busy.
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
