// SPDX-License-Identifier: MIT
// A command line: its words, each ended by a NUL. Either it is right and consistent, or there is an
// error of one line that is safe for a terminal.
#include "CLI/OptionText.h"
#include "CLI/Options.h"
#include "fuzz/Fuzz.h"

#include <string>
#include <vector>

namespace {

bool isPositive(const auto& limit)
{
    return !limit || *limit > 0;
}

void requirePrinters(const Options& options)
{
    const auto& fleet = options.fleet;
    const int named = static_cast<int>(options.address.has_value())
        + static_cast<int>(options.printer.has_value()) + static_cast<int>(options.uri.has_value());
    const bool asksAPrinter =
        options.command == Command::check || options.command == Command::update;
    require(!asksAPrinter || options.all || fleet.from || !fleet.printers.empty(),
            "a printer where one is needed");
    require(asksAPrinter || fleet.printers.size() <= 1, "many only to check and to update");
    require(named == (fleet.printers.size() == 1 && !isFleetCall(options) ? 1 : 0),
            "the one printer has its place");
    for (const auto& word : fleet.printers)
        require(errorOf(word).empty(), "a printer that can be meant");
    require(!options.address || isPrinterAddress(*options.address) || isHostName(*options.address),
            "an address that can be had");
    require(!options.uri || portStringError(*options.uri).empty(), "a port string that is taken");
}

void requireConsistent(const Options& options)
{
    const auto& fleet = options.fleet;
    require(options.command != Command::none, "a right line has a command");
    requirePrinters(options);
    require(isPositive(options.deadline) && isPositive(options.verify)
                && isPositive(options.stallLimit) && isPositive(fleet.deadlineEach),
            "a limit of some time");
    require(!options.lockTimeout || *options.lockTimeout >= 0, "a wait of no less than no time");
    require(fleet.jobs >= 1 && fleet.jobs <= FleetOptions::kMostJobs, "some processes");
    require(isPositive(fleet.canary) && isPositive(fleet.maxFailures), "some printers");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    std::vector<std::string> words{"vymkit-cli"};
    while (!input.empty() && words.size() < 40)
        words.emplace_back(input.until('\0'));
    std::vector<const char*> pointers;
    for (const auto& word : words)
        pointers.push_back(word.c_str());
    const auto options = parseOptions(static_cast<int>(pointers.size()), pointers.data());
    const bool isText = options.command == Command::help || options.command == Command::version;
    if (options.usageError.empty() && !isText)
        requireConsistent(options);
    for (const char c : options.usageError)
        require(static_cast<unsigned char>(c) >= ' ' || c == '\n', "an error fit for a terminal");
    return 0;
}
