// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/Serve.h"

#include "Tools/vymprinter/SessionServe.h"
#include "Tools/vymprinter/Store.h"
#include "Tools/vymprinter/TcpServer.h"
#include "Tools/vymprinter/UsbServer.h"

#include <algorithm>
#include <iostream>

namespace vymprinter {
namespace {

using Stores = std::vector<std::unique_ptr<Store>>;

// The printer's folder is named after its address, and its port if that is not enough.
std::optional<std::filesystem::path> folderOf(const Options& options, std::size_t index,
                                              const Endpoint& endpoint)
{
    if (!options.store)
        return std::nullopt;
    const auto& all = options.endpoints;
    const bool shared =
        std::count_if(all.begin(), all.end(),
                      [&](const Endpoint& other) { return other.address == all[index].address; })
        > 1;
    const auto port = shared ? '-' + std::to_string(endpoint.port) : std::string();
    return *options.store / (endpoint.host() + port);
}

int fail(const std::string& error)
{
    std::cerr << "vymprinter: " << error << '\n';
    return kExitCannotServe;
}

Printer printerOf(const Options& options, PrinterRecord& record,
                  SessionRecorder* recorder = nullptr)
{
    Printer printer{options.model, options.faults, record, options.faultyConnections};
    printer.recorder = recorder;
    return printer;
}

// Performs --record, --replay and --relay; returns the exit code.
int serveSession(const Options& options, SessionRecorder* recorder, int stop)
{
    const auto listening = listenOn(options.endpoints.front());
    if (!listening.error.empty())
        return fail(listening.error);
    std::cout << "listening on " << listening.endpoint.text() << std::endl;
    const auto wrong = options.relay ? relaySession(listening, *options.relay, *recorder, stop)
                                     : playSession(listening, Replay(options.replay), stop);
    return wrong.empty() ? 0 : fail(wrong);
}

// The name of the requested controller; for "any", the first free one.
std::string chooseController(const std::string& asked, std::string& error)
{
    if (asked != kAnyController)
        return asked;
    const auto names = freeControllers();
    if (names.empty())
        error = "there is no free USB device controller; `modprobe dummy_hcd num=4` makes virtual "
                "ones";
    return names.empty() ? std::string() : names.front();
}

// Adds the printer to the server; returns what went wrong, or empty.
std::string addUsbPrinter(const Options& options, std::size_t number, UsbServer& server,
                          Stores& stores)
{
    std::string error;
    const auto name = chooseController(options.usb.controllers[number], error);
    if (!error.empty())
        return error;
    const auto folder = options.store ? std::optional(*options.store / name) : std::nullopt;
    stores.push_back(std::make_unique<Store>(name, folder, options.quiet));
    if (!stores.back()->error().empty())
        return stores.back()->error();
    const auto identity = identityOf(options.usb, number);
    auto gadget = std::make_unique<UsbGadget>(name, static_cast<unsigned>(number), identity);
    if (!gadget->error().empty())
        return gadget->error();
    auto printer = std::make_unique<UsbPrinter>(std::move(gadget), identity,
                                                printerOf(options, *stores.back()));
    error = printer->begin();
    if (error.empty())
        server.add(std::move(printer));
    return error;
}

} // namespace

int serveTcp(const Options& options, int stop)
{
    std::optional<SessionRecorder> recorder;
    if (options.recording)
        recorder.emplace(*options.recording);
    if (recorder && !recorder->good())
        return fail("cannot write " + *options.recording);
    auto* const recording = recorder ? &*recorder : nullptr;
    if (options.relay || !options.replay.empty())
        return serveSession(options, recording, stop);
    Stores stores;
    std::string lines;
    TcpServer server;
    for (std::size_t i = 0; i < options.endpoints.size(); ++i) {
        auto listening = listenOn(options.endpoints[i], options.window);
        const auto name = listening.endpoint.text();
        stores.push_back(
            std::make_unique<Store>(name, folderOf(options, i, listening.endpoint), options.quiet));
        const auto& error = listening.error.empty() ? stores.back()->error() : listening.error;
        if (!error.empty())
            return fail(error);
        lines += "listening on " + name + '\n';
        server.add(std::move(listening), printerOf(options, *stores.back(), recording),
                   options.window);
    }
    std::cout << lines << std::flush;
    server.run(stop, options.sessions);
    return recorder && !recorder->good() ? fail("the recording could not be written") : 0;
}

int serveUsb(const Options& options, int stop)
{
    Stores stores;
    UsbServer server;
    for (std::size_t i = 0; i < options.usb.controllers.size(); ++i) {
        if (const auto error = addUsbPrinter(options, i, server, stores); !error.empty())
            return fail(error);
    }
    for (const auto& store : stores)
        std::cout << "plugged into " << store->label() << '\n';
    std::cout << std::flush;
    server.run(stop, options.sessions);
    return 0;
}

} // namespace vymprinter
