// SPDX-License-Identifier: MIT
#include "CLI/Destination.h"

#include "CLI/HostLookup.h"
#include "CLI/OptionText.h"
#include "CLI/PrinterChoice.h"
#include "CLI/PrinterLookup.h"
#include "UI/Text/PlainText.h"

#include <cassert>

namespace {

DestinationResult ended(Outcome outcome)
{
    return {std::nullopt, std::move(outcome)};
}

std::string tooLongText(const std::string& what, std::size_t size, const std::string& taker)
{
    return what + " is longer than the " + std::to_string(size - 1) + " bytes that " + taker
        + " takes. Give the printer's IPv4 address with --address.";
}

// Why the target is unusable; empty if it fits.
std::string problemOf(TargetFit fit)
{
    switch (fit) {
    case TargetFit::fits:
        return {};
    case TargetFit::noPort:
        return "The printer has no address. Run \"vymkit-cli printers --all\" to see every "
               "printer, or give --address.";
    case TargetFit::portTooLong:
        return tooLongText("The printer's address", kPortNameSize, "a connection");
    case TargetFit::queueTooLong:
        return tooLongText("The identifier of the printer's queue", kPrinterNameSize, "a run");
    }
    return {};
}

DestinationResult taken(Destination destination, TargetFit fit, const Options& options)
{
    if (auto problem = problemOf(fit); !problem.empty())
        return ended(printerOutcome(options, "unsuitable-printer", std::move(problem)));
    destination.address = plainText(destination.run.port(), kPortNameSize);
    return {std::move(destination), {}};
}

DestinationResult taken(PrinterInfo& printer, const Options& options)
{
    Destination destination;
    const auto fit = destination.run.take(printer);
    if (printer.printerID() && printer.printerName())
        destination.printerName = plainText(*printer.printerName());
    return taken(std::move(destination), fit, options);
}

Outcome withoutPrintServer(const Options& options, const PrinterChoice& choice,
                           const std::string& problem)
{
    auto outcome = printerOutcome(options, "print-server-unreachable",
                                  "The print server could not be asked: " + plainText(problem) + " "
                                      + choice.message);
    outcome.exitCode = exitcode::kNoPrintServer;
    return outcome;
}

std::string nameOf(PrinterChoice::Problem problem)
{
    if (problem == PrinterChoice::Problem::unknown)
        return "no-such-printer";
    return problem == PrinterChoice::Problem::several ? "several-printers" : "unsuitable-printer";
}

DestinationResult named(Workplace& place)
{
    const auto& options = place.options;
    const auto looked = lookUpPrinters(place);
    if (looked.stop != StopCause::none)
        return ended(concludeLookupStopped(options.command, looked.stop));
    const auto choice = choosePrinter(looked.made, *options.printer);
    if (choice.printer != nullptr)
        return taken(*choice.printer, options);
    const bool isUnknown = choice.problem == PrinterChoice::Problem::unknown;
    if (isUnknown && !looked.made.serverProblem.empty())
        return ended(withoutPrintServer(options, choice, looked.made.serverProblem));
    return ended(printerOutcome(options, nameOf(choice.problem), choice.message));
}

DestinationResult atHost(Workplace& place)
{
    const auto& options = place.options;
    const auto host = lookUpHost(place, *options.address);
    if (host.stop != StopCause::none)
        return ended(concludeHostLookupStopped(options.command, host.stop));
    if (host.address.empty())
        return ended(printerOutcome(options, "no-such-printer",
                                    "No host is called '" + plainText(*options.address)
                                        + "': " + plainText(host.problem)
                                        + ". Give the printer's IPv4 address with --address."));
    Destination destination;
    const auto fit = destination.run.takeAddress(host.address);
    return taken(std::move(destination), fit, options);
}

} // namespace

DestinationResult findDestination(Workplace& place)
{
    const auto& options = place.options;
    if (place.queue != nullptr)
        return taken(*PrinterInfo::initWithPMPrinter(*place.queue), options);
    if (options.printer)
        return named(place);
    assert(options.uri || options.address);
    Destination destination;
    if (!options.uri && !isPrinterAddress(*options.address))
        return atHost(place);
    const auto fit = options.uri ? destination.run.takePortString(*options.uri)
                                 : destination.run.takeAddress(*options.address);
    return taken(std::move(destination), fit, options);
}
