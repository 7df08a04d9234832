// SPDX-License-Identifier: MIT
#include "Platform/SleepInhibitor.h"
#include "UI/Support/Doctor.h"
#include "UI/Support/PrinterFacts.h"
#include "UI/Text/PlainText.h"
#include "VYM/AsciiCase.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

namespace doctor {

namespace {

constexpr std::size_t kPathLimit = 4096; // a path is shown whole

// The queues without those on USB: their printers would be queried for their model.
class NetworkQueues : public PrintServer {
public:
    explicit NetworkQueues(std::vector<PrintQueue> queues) : m_queues(std::move(queues)) { }
    bool queues(std::vector<PrintQueue>& found, std::string& /*reason*/) override
    {
        std::copy_if(m_queues.begin(), m_queues.end(), std::back_inserter(found),
                     [](const auto& queue) { return !isUsbPort(queue.deviceUri.value_or("")); });
        return true;
    }

private:
    std::vector<PrintQueue> m_queues;
};

class SilentObserver : public PrinterSearchObserver { };

std::string hostOf(const std::string& port)
{
    for (const std::string_view scheme : {"lpd://", "net:"}) {
        if (port.starts_with(scheme)) {
            const auto rest = port.substr(scheme.size());
            return rest.substr(0, rest.find_first_of("/:?"));
        }
    }
    return {};
}

// A reason ends as it was written, or with a full stop.
std::string asSentence(std::string reason)
{
    constexpr std::string_view kEnds = ".?!";
    if (reason.empty() || kEnds.find(reason.back()) == kEnds.npos)
        reason += '.';
    return reason;
}

Finding judged(const std::vector<PrintQueue>& queues)
{
    NetworkQueues network(queues);
    auto search = packagedPrinterSearch(&network);
    search.driverOnly = true; // the bus has a check of its own
    SilentObserver silent;
    const std::atomic<bool> cancel{false};
    const auto facts = printerFacts(makeTargetPrinterList(search, cancel, silent), true);
    std::string words;
    for (const auto& printer : facts.list)
        words += (words.empty() ? "" : "; ") + printer.name + " " + reasonText(printer);
    const auto onUsb = queues.size() - facts.list.size();
    if (onUsb != 0)
        words += (words.empty() ? "" : "; ") + std::to_string(onUsb) + " on USB, not queried here";
    if (facts.candidates != 0 || onUsb != 0)
        return ok("queues", words + ".");
    return warning("queues",
                   words.empty() ? "There is no print queue."
                                 : "No print queue qualifies: " + words + ".",
                   "name the printer with --address");
}

const PrintQueue* named(const std::vector<PrintQueue>& queues, const std::string& name)
{
    const auto fits = [&](const auto& queue) {
        return ascii::equalNoCase(queue.identifier.value_or(""), name)
            || ascii::equalNoCase(queue.name.value_or(""), name);
    };
    const auto found = std::find_if(queues.begin(), queues.end(), fits);
    return found == queues.end() ? nullptr : &*found;
}

void takeNamed(const std::vector<PrintQueue>& queues, const std::string& name, Patient& patient,
               Finding& finding)
{
    const auto* queue = named(queues, name);
    if (queue == nullptr) {
        finding = problem("queues", "There is no print queue '" + plainText(name) + "'.",
                          "vymkit-cli printers --all");
        return;
    }
    auto port = queue->deviceUri.value_or("");
    if (isDriverUri(port))
        port = driverAddressOf(queue->identifier.value_or(""), driverFolderRoot()).value_or("");
    patient.host = hostOf(port);
}

} // namespace

void checkQueues(const Request& request, bool hasPackage, Patient& patient,
                 std::vector<Finding>& findings)
{
    if (request.address.has_value())
        patient.host = *request.address;
    if (request.uri.has_value())
        patient.host = hostOf(*request.uri);
    std::vector<PrintQueue> queues;
    std::string reason = "this program knows no print server";
    if (request.printServer == nullptr || !request.printServer->queues(queues, reason)) {
        const auto message = "The print server cannot be reached: " + asSentence(plainText(reason));
        findings.push_back(request.printer.has_value()
                               ? problem("print-server", message, "sudo systemctl start cups")
                               : warning("print-server", message, "sudo systemctl start cups"));
        findings.push_back(skipped("queues", "There is no print server to list them."));
        return;
    }
    findings.push_back(ok("print-server", "The print server answers."));
    auto finding = hasPackage
        ? judged(queues)
        : skipped("queues", "Without a package it is not known which qualify.");
    if (request.printer.has_value())
        takeNamed(queues, *request.printer, patient, finding);
    findings.push_back(finding);
}

Finding checkSuspend(const std::string& program)
{
    const SleepInhibitor inhibitor(program.c_str(), "The doctor tries it for a moment");
    if (inhibitor.holds())
        return ok("suspend", "The computer can be kept awake during an update.");
    return warning("suspend",
                   "The computer cannot be kept awake: " + asSentence(plainText(inhibitor.note())),
                   "switch off sleeping in the system's settings for the time of the update");
}

Finding checkLogFolder(const std::string& folder)
{
    if (folder.empty())
        return warning("log-folder", "No folder for logs is known: HOME is not set.",
                       "set HOME or XDG_STATE_HOME");
    fs::path existing = folder;
    std::error_code error;
    while (!fs::exists(existing, error) && existing.has_relative_path())
        existing = existing.parent_path();
    const auto shown = plainText(folder, kPathLimit);
    if (access(existing.c_str(), W_OK | X_OK) == 0 && fs::is_directory(existing, error))
        return ok("log-folder", "Logs are kept in " + shown + ".");
    return warning("log-folder", "Logs cannot be kept in " + shown + ".",
                   "set XDG_STATE_HOME to a folder that you may write into");
}

} // namespace doctor
