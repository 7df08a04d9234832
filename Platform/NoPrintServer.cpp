// SPDX-License-Identifier: MIT
// For builds without a print system.
#include "Platform/SystemPrintServer.h"

namespace {

class NoPrintServer : public PrintServer {
public:
    bool queues(std::vector<PrintQueue>& found, std::string& reason) override
    {
        found.clear();
        reason = "This program was built without support for the print system.";
        return false;
    }
};

} // namespace

std::unique_ptr<PrintServer> makeSystemPrintServer()
{
    return std::make_unique<NoPrintServer>();
}
