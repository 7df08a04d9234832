// SPDX-License-Identifier: MIT
#include "CLI/Fleet/FleetList.h"

#include "CLI/PrinterChoice.h"
#include "VYM/AsciiCase.h"

#include <set>

namespace {

std::string hostKey(std::string host)
{
    if (host.ends_with('.')) // the same name, written in full
        host.pop_back();
    return "host " + ascii::lowerCase(std::move(host));
}

// The device that a port string leads to.
std::string deviceOf(const std::string& uri)
{
    if (isUsbPort(uri)) {
        const auto serial = serialKey(uri);
        return serial ? serial->substr(0, serial->find('&')) : uri;
    }
    const auto begin = uri.find_first_not_of('/', uri.find(':') + 1);
    if (begin == std::string::npos)
        return uri;
    const auto host = uri.substr(begin, uri.find_first_of("/:?", begin) - begin);
    return hostKey(host.substr(host.find('@') + 1));
}

std::optional<PrintQueue> queueOf(const PrinterWord& word, const TargetPrinters* made)
{
    if (word.kind != PrinterWord::Kind::queue || made == nullptr)
        return std::nullopt;
    const auto choice = choosePrinter(*made, word.text);
    if (choice.printer == nullptr)
        return std::nullopt; // its own process says why
    PrintQueue queue;
    queue.name = choice.printer->printerName();
    queue.identifier = choice.printer->printerID();
    queue.deviceUri = choice.printer->printerURI();
    queue.makeAndModel = choice.printer->printerModel();
    return queue;
}

std::string deviceOf(const FleetMember& member)
{
    if (member.queue)
        return deviceOf(member.queue->deviceUri.value_or(""));
    if (member.word.kind == PrinterWord::Kind::uri)
        return deviceOf(member.word.text);
    return member.word.kind == PrinterWord::Kind::queue
        ? "queue " + ascii::lowerCase(member.word.text)
        : hostKey(member.word.text);
}

} // namespace

FleetList fleetList(const std::vector<PrinterWord>& words, const TargetPrinters* made)
{
    FleetList list;
    std::set<std::string> devices;
    for (const auto& word : words) {
        FleetMember member{word, queueOf(word, made)};
        if (devices.insert(deviceOf(member)).second)
            list.members.push_back(std::move(member));
        else
            list.sameDevice.push_back(word.text);
    }
    return list;
}

std::vector<PrinterWord> everyCandidate(const TargetPrinters& made)
{
    std::vector<PrinterWord> words;
    for (const auto& finding : made.findings) {
        if (finding.reason != PrinterReason::candidate)
            continue;
        if (const auto& identifier = finding.printer->printerID())
            words.push_back({PrinterWord::Kind::queue, *identifier});
        else if (const auto& uri = finding.printer->printerURI())
            words.push_back({PrinterWord::Kind::uri, *uri});
    }
    return words;
}
