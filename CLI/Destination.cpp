#include "CLI/Destination.h"

#include "CLI/PrinterChoice.h"
#include "CLI/PrinterLookup.h"
#include "UI/Text/PlainText.h"

namespace {

DestinationResult ended(Outcome outcome)
{
    return {std::nullopt, std::move(outcome)};
}

DestinationResult taken(PrinterInfo& printer, const Options& options)
{
    Destination destination;
    switch (destination.run.take(printer)) {
    case TargetFit::fits:
        break;
    case TargetFit::noAddress:
        return ended(printerOutcome(options, "unsuitable-printer",
                                    "The printer has no address. Run \"vymkit-cli printers --all\" "
                                    "to see every printer, or give --address."));
    case TargetFit::addressTooLong:
        return ended(printerOutcome(options, "unsuitable-printer",
                                    "The printer's address is longer than the "
                                        + std::to_string(kPortNameSize - 1)
                                        + " bytes that a connection takes. Give the printer's "
                                          "IPv4 address with --address."));
    case TargetFit::identifierTooLong:
        return ended(printerOutcome(options, "unsuitable-printer",
                                    "The identifier of the printer's queue is longer than the "
                                        + std::to_string(kPrinterNameSize - 1)
                                        + " bytes that a run takes. Give the printer's IPv4 "
                                          "address with --address."));
    }
    destination.address = plainText(destination.run.address(), kPortNameSize);
    if (printer.printerID() && printer.printerName())
        destination.printerName = plainText(*printer.printerName());
    return {std::move(destination), {}};
}

// A port string is what a queue would have led to, so it is taken like a queue's; connections need
// to know that it came from there, and not from which one. A USB printer needs no queue.
std::shared_ptr<PrinterInfo> atPort(const std::string& uri)
{
    PrintQueue queue;
    queue.deviceUri = uri;
    if (!isUsbPort(uri))
        queue.identifier = "uri";
    return PrinterInfo::initWithPMPrinter(queue);
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

} // namespace

DestinationResult findDestination(Workplace& place)
{
    const auto& options = place.options;
    if (options.printer)
        return named(place);
    const auto printer = options.uri ? atPort(*options.uri)
                                     : PrinterInfo::initWithPrinterName({}, {}, options.address);
    return taken(*printer, options);
}
