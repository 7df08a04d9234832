// The virtual printer's entry: reads the command line, opens the printers, serves until it is
// stopped.
#include "Tools/vymprinter/Serve.h"

#include <csignal>
#include <cstdio>
#include <exception>
#include <sys/resource.h>
#include <sys/signalfd.h>

namespace {

using namespace vymprinter;

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

int run(int argc, char** argv)
{
    const auto parsed = parseOptions(argc, argv);
    if (!parsed.options)
        return parsed.exitCode;
    allowManySockets();
    const auto stop = signalsAsFile();
    const auto& options = *parsed.options;
    return options.usb.controllers.empty() ? serveTcp(options, stop.get())
                                           : serveUsb(options, stop.get());
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return run(argc, argv);
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "vymprinter: %s\n", problem.what());
        return 1;
    }
}
