// SPDX-License-Identifier: MIT
#include "CLI/PrinterChoice.h"

#include "UI/Support/PrinterFacts.h"
#include "UI/Text/PlainText.h"
#include "VYM/AsciiCase.h"

#include <vector>

namespace {

using Findings = std::vector<const PrinterFinding*>;
using Text = const PrinterInfo::Text& (PrinterInfo::*)() const;

// A USB printer that is no candidate has no name of its own, so it is never meant.
bool hasName(const PrinterFinding& finding)
{
    return finding.foundAs == FoundAs::queue || finding.reason == PrinterReason::candidate;
}

bool isSame(const std::string& left, const std::string& right)
{
    return left == right;
}

// As print servers compare the names of their queues.
bool isSameWithoutCase(const std::string& left, const std::string& right)
{
    return ascii::equalNoCase(left, right);
}

using Same = bool (*)(const std::string& left, const std::string& right);

Findings called(const TargetPrinters& made, const std::string& name, Text text, Same isSameName)
{
    Findings found;
    for (const auto& finding : made.findings) {
        const auto& own = (*finding.printer.*text)();
        if (hasName(finding) && own && isSameName(*own, name))
            found.push_back(&finding);
    }
    return found;
}

// Exact matches come first, and identifiers before names for people.
Findings calledAtAll(const TargetPrinters& made, const std::string& name)
{
    for (const auto same : {&isSame, &isSameWithoutCase}) {
        for (const auto text : {&PrinterInfo::printerID, &PrinterInfo::printerName}) {
            if (auto found = called(made, name, text, same); !found.empty())
                return found;
        }
    }
    return {};
}

std::string choices(const Findings& found)
{
    std::string text;
    for (const auto* finding : found) {
        const auto listed = listedPrinter(*finding);
        text += (text.empty() ? "" : ", ")
            + (listed.identifier.empty() ? listed.name : listed.identifier) + " ("
            + (listed.address.empty() ? "without an address" : listed.address) + ")";
    }
    return text;
}

PrinterChoice problem(PrinterChoice::Problem kind, std::string message)
{
    return {nullptr, kind, std::move(message)};
}

} // namespace

PrinterChoice choosePrinter(const TargetPrinters& made, const std::string& name)
{
    using Problem = PrinterChoice::Problem;
    const auto found = calledAtAll(made, name);
    const auto quoted = "'" + plainText(name) + "'";
    if (found.empty())
        return problem(Problem::unknown,
                       "No printer is called " + quoted
                           + ". Run \"vymkit-cli printers --all\" to see every printer.");
    if (found.size() > 1)
        return problem(Problem::several,
                       quoted + " fits several printers: " + choices(found)
                           + ". Give --printer a queue's identifier, or --uri an address.");
    if (found.front()->reason != PrinterReason::candidate)
        return problem(Problem::unsuitable,
                       "The printer " + quoted + " cannot be updated: it "
                           + reasonText(listedPrinter(*found.front())) + ".");
    return {found.front()->printer, Problem::none, {}};
}
