// SPDX-License-Identifier: MIT
// A print scheduler for tests that are not C++: private_queues [IDENTIFIER URI MODEL]... prints the
// address of its socket, and runs until a signal ends it.
#include "tests/support/PrivateCups.h"

#include <csignal>
#include <cstdio>

int main(int argc, char** argv)
{
    if (!PrivateCups::isInstalled())
        return 1;
    std::vector<PrivateCups::Queue> queues;
    for (int i = 1; i + 2 < argc; i += 3)
        queues.push_back({argv[i], argv[i + 1], argv[i + 2]});
    const PrivateCups cups(queues); // before signals are blocked: the scheduler would inherit that
    sigset_t ends{};
    sigemptyset(&ends);
    sigaddset(&ends, SIGTERM);
    sigprocmask(SIG_BLOCK, &ends, nullptr);
    std::printf("%s\n", cups.server().c_str());
    std::fflush(stdout);
    int received = 0;
    return sigwait(&ends, &received) == 0 ? 0 : 1;
}
