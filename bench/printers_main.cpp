// SPDX-License-Identifier: MIT
// Lists the printers of a print server with many queues, and reads the same queues with libcups
// alone. The server is a scheduler that this program starts.
//
//   bench_printers QUEUES N        N interleaved pairs: the median of their ratios
#include "Platform/CupsPrintServer.h"
#include "UI/Printers/TargetPrinters.h"
#include "bench/Measure.h"
#include "tests/support/PrivateCups.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cups/cups.h>
#include <string>

namespace {

std::vector<PrivateCups::Queue> manyQueues(long count)
{
    std::vector<PrivateCups::Queue> queues;
    for (long i = 0; i < count; ++i) {
        const auto number = std::to_string(i);
        const auto address = "10.1." + std::to_string(i / 256) + "." + std::to_string(i % 256);
        queues.push_back({"queue" + number, "lpd://" + address + "/queue", "Acme P1",
                          "Printer " + number, "Floor " + number});
    }
    return queues;
}

class Listener : public PrinterSearchObserver { };

double listSeconds(std::size_t count)
{
    CupsPrintServer server;
    PrinterSearch search;
    search.rule.driverPrefixes = {"Acme"};
    search.server = &server;
    const std::atomic<bool> cancel{false};
    Listener listener;
    TargetPrinters made;
    const auto taken = secondsOf([&] { made = makeTargetPrinterList(search, cancel, listener); });
    require(made.candidates.size() == count, "the list is not complete");
    return taken;
}

// Sends the same request and looks at every attribute of the answer once.
std::size_t askLibcups()
{
    constexpr std::array kWanted = {"printer-name", "printer-info", "printer-location",
                                    "device-uri", "printer-make-and-model"};
    auto* http = httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                              3000, nullptr);
    require(http != nullptr, "libcups cannot connect");
    auto* request = ippNewRequest(IPP_OP_CUPS_GET_PRINTERS);
    ippAddInteger(request, IPP_TAG_OPERATION, IPP_TAG_ENUM, "printer-type", 0);
    ippAddInteger(request, IPP_TAG_OPERATION, IPP_TAG_ENUM, "printer-type-mask",
                  CUPS_PRINTER_CLASS);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 cupsUser());
    ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(kWanted.size()), nullptr, kWanted.data());
    auto* answer = cupsDoRequest(http, request, "/");
    require(answer != nullptr, "libcups has no answer");
    std::size_t uris = 0;
    for (auto* each = ippFirstAttribute(answer); each != nullptr; each = ippNextAttribute(answer)) {
        const char* name = ippGetName(each);
        uris += name != nullptr && std::string_view(name) == "device-uri" ? 1 : 0;
    }
    ippDelete(answer);
    httpClose(http);
    return uris;
}

double libcupsSeconds(std::size_t count)
{
    std::size_t found = 0;
    const auto taken = secondsOf([&] { found = askLibcups(); });
    require(found == count, "libcups does not hand over every queue");
    return taken;
}

double medianRatio(std::size_t queues, long pairs)
{
    std::vector<double> ratios;
    listSeconds(queues); // both have run once before the first pair counts
    libcupsSeconds(queues);
    for (long i = 0; i < pairs; ++i) {
        const bool listFirst = i % 2 == 0;
        const auto first = listFirst ? listSeconds(queues) : libcupsSeconds(queues);
        const auto second = listFirst ? libcupsSeconds(queues) : listSeconds(queues);
        ratios.push_back(listFirst ? first / second : second / first);
    }
    const auto middle = ratios.begin() + pairs / 2;
    std::nth_element(ratios.begin(), middle, ratios.end());
    return *middle;
}

} // namespace

int main(int argc, char** argv)
{
    const long queues = argc == 3 ? std::strtol(argv[1], nullptr, 10) : 0;
    const long pairs = argc == 3 ? std::strtol(argv[2], nullptr, 10) : 0;
    if (queues < 1 || queues > 65536 || pairs < 1) {
        std::fputs("usage: bench_printers QUEUES PAIRS\n", stderr);
        return 64;
    }
    const PrivateCups cups(manyQueues(queues));
    setenv("CUPS_SERVER", cups.server().c_str(), 1);
    setenv("HOME", cups.home().c_str(), 1);
    std::printf("%.4f\n", medianRatio(static_cast<std::size_t>(queues), pairs));
    return 0;
}
