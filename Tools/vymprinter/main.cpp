// SPDX-License-Identifier: MIT
// The virtual printer's entry: reads the command line, opens the printers, serves until it is
// stopped.
#include "Tools/vymprinter/Serve.h"

#include <csignal>
#include <cstdio>
#include <exception>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <unistd.h>

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

// A file that is opened later must not get the number of a standard stream that is closed.
void occupyStandardStreams()
{
    int opened = 0;
    do {
        opened = ::open("/dev/null", O_RDWR);
    } while (opened >= 0 && opened <= 2);
    ::close(opened);
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
    occupyStandardStreams();
    try {
        return run(argc, argv);
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "vymprinter: %s\n", problem.what());
        return 1;
    }
}
