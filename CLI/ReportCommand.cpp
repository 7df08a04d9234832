// SPDX-License-Identifier: MIT
#include "CLI/Commands.h"
#include "UI/Support/HelpReport.h"
#include "UI/Support/WholeFile.h"
#include "UI/Text/PlainText.h"

Outcome runReport(const OpenedPackage& opened, Workplace& place)
{
    const auto& file = place.options.output;
    helpreport::Facts facts;
    facts.program = "vymkit-cli " VYMKIT_VERSION;
    facts.packagePath = place.options.package;
    facts.doctor = doctorRequest(place);
    Outcome outcome;
    outcome.command = Command::report;
    outcome.name = file.has_value() ? "report-saved" : "report-shown";
    outcome.log = helpreport::compose(opened, facts);
    if (!file.has_value())
        return outcome;
    const auto shown = "'" + plainText(*file) + "'";
    if (const auto problem = writeWholeFile(*file, outcome.log); !problem.empty())
        return usageOutcome(place.options,
                            "The report cannot be written to " + shown + ": " + problem + ".");
    outcome.log.clear();
    outcome.verdict = Verdict::saved;
    outcome.message = "The report is in " + shown
        + ". Names, addresses and serial numbers are masked in it; read it before you pass it on.";
    return outcome;
}
