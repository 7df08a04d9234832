// SPDX-License-Identifier: MIT
// Why an update would not work on this computer. Each function makes one finding or two; none of
// them changes anything, creates a file or sends a printer more than a connection.
//
// Owns:    nothing.
// Threads: any, one call at a time in a process, after the package was opened. The network's checks
//          wait, at most a few seconds for each printer; a print server that does not answer, too.
#pragma once
#include "Platform/PrintServer.h"
#include "UI/Package/PackageFacts.h"
#include "UI/Support/Finding.h"
#include "UI/Support/UsbSurvey.h"

#include <optional>
#include <string>
#include <vector>

namespace doctor {

// The printer to check, at most one of the first three, and the program that wants to know.
struct Request {
    std::optional<std::string> address; // IPv4, or a host's name
    std::optional<std::string> printer; // a queue's identifier or name
    std::optional<std::string> uri; // a port string
    std::optional<int> port; // in place of the package's
    PrintServer* printServer = nullptr; // null: this system has no print queues
    std::string program;
    std::string logFolder;
};

// Every check, in an order that never changes; "skipped" if there is nothing to check.
std::vector<Finding> examine(const OpenedPackage& opened, const Request& request);
bool hasProblem(const std::vector<Finding>& findings);

Finding ok(std::string check, std::string message);
Finding warning(std::string check, std::string message, std::string mend = {});
Finding problem(std::string check, std::string message, std::string mend = {});
Finding skipped(std::string check, std::string message);

// The host of the printer's name, address or port string; empty for a USB printer.
struct Patient {
    std::string host;
};

// package, signature.
void checkPackage(const OpenedPackage& opened, std::vector<Finding>& findings);
// print-server, queues. Fills in the patient.
void checkQueues(const Request& request, bool hasPackage, Patient& patient,
                 std::vector<Finding>& findings);
// usb, permission, usb-owner, udev-rule.
void checkUsb(const std::vector<SurveyedPrinter>& printers, const std::string& root,
              std::vector<Finding>& findings);
// address, port.
void checkNetwork(const Patient& patient, std::optional<int> port, std::vector<Finding>& findings);
// suspend, log-folder.
Finding checkSuspend(const std::string& program);
Finding checkLogFolder(const std::string& folder);

} // namespace doctor
