// The virtual printer's entry: reads the command line, opens the printers, serves until asked to
// end.
#include "Tools/vymprinter/Options.h"
#include "Tools/vymprinter/Store.h"
#include "Tools/vymprinter/TcpServer.h"

#include <algorithm>
#include <csignal>
#include <iostream>
#include <sys/resource.h>
#include <sys/signalfd.h>

namespace {

using namespace vymprinter;

constexpr int kExitCannotServe = 1; // an address or a folder cannot be used

// SIGTERM and SIGINT become readable instead of ending the program.
FileHandle signalsAsFile()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return FileHandle(::signalfd(-1, &signals, SFD_CLOEXEC));
}

// Many printers with many updaters need more descriptors than a shell gives by default.
void allowManySockets()
{
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return;
    limit.rlim_cur = limit.rlim_max;
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

// The printer's folder is called after its address, and its port when that is not enough.
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

int serve(const Options& options)
{
    const auto stop = signalsAsFile();
    std::vector<std::unique_ptr<Store>> stores;
    std::string lines;
    TcpServer server;
    for (std::size_t i = 0; i < options.endpoints.size(); ++i) {
        auto listening = listenOn(options.endpoints[i]);
        const auto name = listening.endpoint.text();
        stores.push_back(
            std::make_unique<Store>(name, folderOf(options, i, listening.endpoint), options.quiet));
        const auto& error = listening.error.empty() ? stores.back()->error() : listening.error;
        if (!error.empty()) {
            std::cerr << "vymprinter: " << error << '\n';
            return kExitCannotServe;
        }
        lines += "listening on " + name + '\n';
        server.add(std::move(listening), {options.model, options.faults, *stores.back()});
    }
    std::cout << lines << std::flush;
    server.run(stop.get(), options.sessions);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const auto parsed = parseOptions(argc, argv);
    if (!parsed.options)
        return parsed.exitCode;
    allowManySockets();
    return serve(*parsed.options);
}
