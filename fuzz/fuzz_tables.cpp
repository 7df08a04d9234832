// SPDX-License-Identifier: MIT
// Hostile texts of printers, queues and packages in the tables for people and in JSON: every line
// is safe for a terminal, and every JSON line reads back.
#include "CLI/Report.h"
#include "CLI/Tables.h"
#include "UI/Text/PlainText.h"
#include "fuzz/Fuzz.h"

#include <fcntl.h>
#include <nlohmann/json.hpp>
#include <sstream>
#include <sys/mman.h>
#include <unistd.h>

namespace {

Outcome outcomeOf(Input& input)
{
    const auto text = [&] { return plainText(input.text(input.byte()), 300); };
    Outcome outcome;
    outcome.command = Command::check;
    outcome.name = "update-available";
    outcome.message = text();
    outcome.address = text();
    outcome.printerName = text();
    outcome.printerModel = text();
    for (auto left = input.byte() % 6; left != 0; --left) {
        FirmwareOutcome firmware;
        firmware.firmware.number = input.byte();
        firmware.firmware.name = text();
        firmware.firmware.version = text();
        firmware.firmware.displayName = text();
        firmware.firmware.displayVersion = text();
        firmware.reached = input.byte() % 2 != 0;
        firmware.decision = static_cast<Decision>(input.byte() % 4);
        firmware.reason = static_cast<VersionReason>(input.byte() % 8);
        if (input.byte() % 2 != 0)
            firmware.installed = text();
        outcome.firmware.push_back(std::move(firmware));
    }
    return outcome;
}

std::string jsonOf(const Outcome& outcome)
{
    const int file = memfd_create("json", 0);
    require(file >= 0, "memory for a file");
    makeJsonReport(file)->finish(outcome);
    std::string all(static_cast<std::size_t>(lseek(file, 0, SEEK_END)), '\0');
    const bool whole = pread(file, all.data(), all.size(), 0) == static_cast<ssize_t>(all.size());
    close(file);
    require(whole, "all of it is read");
    return all;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const auto outcome = outcomeOf(input);
    for (const char c : firmwareTable(outcome, 1 + size % 200))
        require(static_cast<unsigned char>(c) >= ' ' || c == '\n', "a table fit for a terminal");
    std::istringstream lines(jsonOf(outcome));
    for (std::string line; std::getline(lines, line);) {
        const auto read = nlohmann::json::parse(line, nullptr, false);
        require(read.is_object(), "a line is one JSON object");
        require(read.value("exit_code", -1) == outcome.exitCode, "with the code of the end");
    }
    return 0;
}
