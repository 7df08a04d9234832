// SPDX-License-Identifier: MIT
#include "UI/Support/PrinterFacts.h"

#include "UI/Run/RunTarget.h"
#include "UI/Support/UsbSurvey.h"
#include "UI/Text/PlainText.h"

#include <algorithm>
#include <array>
#include <map>

namespace {

// Addresses are also for copying, so they stay whole up to a connection's limit.
constexpr std::size_t kAddressLimit = 255;

struct ConnectionWords {
    const char* name;
    const char* text;
};

// Indexed by the kConnection numbers.
constexpr std::array<ConnectionWords, 5> kConnections = {{{"other", "other"},
                                                          {"network", "network"},
                                                          {"network-ipv6", "network (IPv6)"},
                                                          {"usb", "USB"},
                                                          {"bonjour", "Bonjour"}}};

std::string plain(const PrinterInfo::Text& text, std::size_t limit = kDisplayLimit)
{
    return plainText(text.value_or(""), limit);
}

const char* connectionName(int type)
{
    const auto known = type > 0 && static_cast<std::size_t>(type) < kConnections.size();
    return kConnections.at(known ? static_cast<std::size_t>(type) : 0).name;
}

using Hosts = std::map<std::string, std::string>; // to the name of the candidate that has it

// A bad address does not disqualify a candidate: the window has the same list.
std::string warningOf(const PrinterFinding& finding, Hosts& hosts)
{
    const auto uri = finding.printer->printerURI().value_or("");
    auto copy = *finding.printer; // taking makes its address connectable
    if (RunTarget().take(copy) != TargetFit::fits)
        return "its address is too long for a connection: give its IPv4 address with --address";
    const auto host = hostOf(uri);
    if (host.find(':') != std::string::npos)
        return "its address is an IPv6 one, which connections do not take: give its IPv4 address "
               "with --address";
    const auto name = plain(finding.printer->printerName());
    const auto [same, isNew] = hosts.emplace(host, name);
    return host.empty() || isNew ? "" : "it leads to the same host as " + same->second;
}

std::size_t countOf(const TargetPrinters& made, PrinterReason reason)
{
    const auto& all = made.findings;
    return static_cast<std::size_t>(std::count_if(
        all.begin(), all.end(), [reason](const auto& each) { return each.reason == reason; }));
}

} // namespace

ListedPrinter listedPrinter(const PrinterFinding& finding)
{
    const auto& printer = *finding.printer;
    ListedPrinter listed;
    listed.identifier = plain(printer.printerID());
    listed.name = printer.printerName() ? plain(printer.printerName()) : listed.identifier;
    listed.address = plain(printer.printerURI(), kAddressLimit);
    listed.connection = connectionName(finding.connectionType);
    listed.model = plain(printer.printerModel());
    listed.foundAs = finding.foundAs;
    listed.reason = finding.reason;
    listed.help = helpFor(finding).kind;
    listed.sameAs = plainText(finding.sameAs);
    listed.answeredModel = plainText(finding.answeredModel);
    return listed;
}

PrinterFacts printerFacts(const TargetPrinters& made, bool all)
{
    PrinterFacts facts;
    facts.all = all;
    Hosts hosts;
    for (const auto& finding : made.findings) {
        if (!all && finding.reason != PrinterReason::candidate)
            continue;
        facts.list.push_back(listedPrinter(finding));
        if (finding.reason == PrinterReason::candidate)
            facts.list.back().warning = warningOf(finding, hosts);
    }
    facts.found = made.findings.size();
    facts.candidates = made.candidates.size();
    facts.notPermitted = countOf(made, PrinterReason::notPermitted);
    facts.serverProblem = plainText(made.serverProblem);
    return facts;
}

void warnOfHolders(PrinterFacts& facts, const std::string& vendor, const std::string& root)
{
    for (auto& each : facts.list) {
        const bool mayBeHeld =
            each.reason == PrinterReason::candidate || each.reason == PrinterReason::noAnswer;
        if (!mayBeHeld || !each.warning.empty())
            continue;
        if (const auto programs = holdersOfPort(each.address, vendor, root); !programs.empty())
            each.warning = "it is in use by " + programs;
    }
}

const char* foundAsName(FoundAs foundAs)
{
    return foundAs == FoundAs::queue ? "queue" : "usb";
}

std::string foundAsText(FoundAs foundAs)
{
    return foundAs == FoundAs::queue ? "print queue" : "USB";
}

std::string connectionText(const ListedPrinter& printer)
{
    const auto* words =
        std::find_if(kConnections.begin(), kConnections.end(),
                     [&printer](const auto& each) { return each.name == printer.connection; });
    return words != kConnections.end() ? words->text : "";
}

std::string reasonText(const ListedPrinter& printer)
{
    switch (printer.reason) {
    case PrinterReason::candidate:
        return "can be updated";
    case PrinterReason::noModel:
        return "has a queue that names no model";
    case PrinterReason::otherDriver:
        return "has a queue of another driver than the package is for";
    case PrinterReason::noDeviceUri:
        return "has a queue without an address";
    case PrinterReason::otherConnection:
        return printer.help == PrinterHelpKind::none
            ? "has an address that the driver's configuration does not tell"
            : "is not connected by USB or, over IPv4, by LPD: give its IPv4 address with --address";
    case PrinterReason::noSerial:
        return "has no serial number in its address";
    case PrinterReason::duplicate:
        return "is the same device as " + printer.sameAs;
    case PrinterReason::notPermitted:
        return "may not be opened by this user";
    case PrinterReason::noAnswer:
        return "does not answer";
    case PrinterReason::otherModel:
        return "is of another model: " + printer.answeredModel;
    }
    return {};
}
