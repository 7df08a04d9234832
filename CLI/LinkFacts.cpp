// SPDX-License-Identifier: MIT
#include "CLI/LinkFacts.h"

#include "CLI/PacketTrace.h"
#include "UI/Printers/PrinterCheck.h"
#include "UI/Support/UsbSurvey.h"

LinkFacts linkFacts(const PacketTrace& trace, const std::string& port)
{
    LinkFacts link;
    link.connect = trace.lastConnect();
    link.isAnswered = trace.isAnswered();
    link.notPermitted = isForbiddenPort(port);
    if (link.connect.value_or(ConnectProblem::none) != ConnectProblem::none)
        link.usedBy = holdersOfPort(port, surveyedVendor(), "");
    return link;
}
