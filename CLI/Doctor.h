// What the doctor looks at. Each function makes one finding or two; none of them changes anything,
// creates a file or sends a printer more than a connection.
//
// Owns:    nothing.
// Threads: the command's. The network's checks may wait, within a bound.
#pragma once
#include "CLI/Commands.h"
#include "CLI/Finding.h"
#include "CLI/UsbSurvey.h"

#include <vector>

namespace doctor {

Finding ok(std::string check, std::string message);
Finding warning(std::string check, std::string message, std::string mend = {});
Finding problem(std::string check, std::string message, std::string mend = {});
Finding skipped(std::string check, std::string message);

// The host of the printer's name, address or port string; empty for a USB printer.
struct Patient {
    std::string host;
    bool isNamed = false;
    bool isUsb = false;
};

// print-server, queues. Fills in the patient where a queue is named.
void checkQueues(Workplace& place, const std::optional<PackageFacts>& package, Patient& patient,
                 std::vector<Finding>& findings);
// usb, permission, usb-owner, udev-rule.
void checkUsb(const std::vector<SurveyedPrinter>& printers, const std::string& root,
              std::vector<Finding>& findings);
// address, port.
void checkNetwork(const Patient& patient, std::optional<int> port, std::vector<Finding>& findings);
// suspend, log-folder.
Finding checkSuspend();
Finding checkLogFolder(const std::string& folder);

} // namespace doctor
