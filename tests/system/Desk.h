// SPDX-License-Identifier: MIT
// The desk of the system tests: a package from the real package maker, a virtual printer in its own
// process on a loopback address of its own, and the real command line.
#pragma once
#include "tests/support/ImageBytes.h"
#include "tests/support/Process.h"
#include "tests/support/TempFolder.h"

#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <optional>

namespace desk {

using Json = nlohmann::json;

// A limit for events that do come: far longer than they take, also under a sanitizer on a busy
// computer.
constexpr std::chrono::seconds kSoon{50 * VYMKIT_TEST_SLOWNESS};
// How many real seconds a second of the tested programs' clock lasts: a peer that gets no processor
// for that long still answers in time.
constexpr unsigned kClockSlowness = 2 * VYMKIT_TEST_SLOWNESS;

// An address that no other test process uses at the same time.
std::string ownAddress();
// The second number of addresses that no other process uses while this one lives: 127.N.
int ownNetwork();
void waitUntil(const std::function<bool()>& isTrue);

struct Firmware {
    std::string name = "MAIN"; // matches the printer's list
    std::string version = "AB010200";
    std::size_t size = 20000;
    std::string extra{}; // further tokens of its VERSION row

    [[nodiscard]] std::string image() const { return name + ".img"; }
    [[nodiscard]] std::string sentName() const { return name + ".FW"; }
};

// A package folder, made with vympack. Its times are short, so that a silent printer costs little.
class PackageFolder {
public:
    explicit PackageFolder(std::vector<Firmware> firmware,
                           const std::vector<std::string>& settings = {});
    [[nodiscard]] std::string path() const { return m_folder.path().string(); }
    [[nodiscard]] std::string bytesOf(std::size_t index) const;
    [[nodiscard]] const std::vector<Firmware>& firmware() const { return m_firmware; }

private:
    TempFolder m_folder;
    std::vector<Firmware> m_firmware;
};

class VirtualPrinter {
public:
    explicit VirtualPrinter(std::vector<std::string> options = {});
    [[nodiscard]] const std::string& address() const { return m_address; }
    // The bytes stored under that name; empty if it stored no such firmware.
    [[nodiscard]] std::optional<std::string> stored(const std::string& name) const;
    [[nodiscard]] std::size_t storedFiles() const;
    [[nodiscard]] std::string transcript() const;
    // Suspends the printer: it answers nothing until goOn. A test's next steps then come before the
    // printer's next answer, however busy the computer is.
    void hold() const { m_process.signal(SIGSTOP); }
    void goOn() const { m_process.signal(SIGCONT); }

private:
    TempFolder m_store;
    std::string m_address = ownAddress();
    Process m_process;
};

// One run of the command line; parses its JSON lines.
class CliRun {
public:
    // fast: with shortened pauses; otherwise the program that users get.
    enum class Pauses { shortened, full };
    // closed: it is started without standard input, output and error, as some services start
    // theirs.
    enum class Streams { kept, closed };
    explicit CliRun(const std::vector<std::string>& arguments, Pauses pauses = Pauses::shortened,
                    const Process::Environment& environment = {}, Streams streams = Streams::kept);
    [[nodiscard]] Process& process() { return m_process; }
    int exitCode(std::chrono::seconds limit = kSoon);
    // All lines; each must be JSON, and the last must be the result.
    std::vector<Json> lines();
    Json result();
    [[nodiscard]] std::string log() const; // of an update, while it runs or afterwards

private:
    TempFolder m_state; // for its log; keeps it away from this machine's login manager
    Process m_process;
};

// The arguments of an update of that printer with that package.
std::vector<std::string> updateOf(const VirtualPrinter& printer, const PackageFolder& package);

constexpr std::size_t kPiece = 4096 - 60; // the printer's usual packet without the head

// Firmware with every form of version, and the options of a printer that has older ones.
std::vector<Firmware> threeFirmware();
std::vector<std::string> listsOlder(std::vector<std::string> more = {});

template <typename Printer> void expectStored(const Printer& printer, const PackageFolder& package)
{
    for (std::size_t i = 0; i < package.firmware().size(); ++i) {
        const auto& name = package.firmware()[i].sentName();
        EXPECT_TRUE(printer.stored(name) == package.bytesOf(i)) << name;
    }
}

} // namespace desk
