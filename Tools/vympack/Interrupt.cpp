#include "Tools/vympack/Interrupt.h"

#include <csignal>
#include <initializer_list>
#include <signal.h>

namespace vympack {

namespace {

volatile std::sig_atomic_t g_interrupted = 0;

extern "C" void raiseFlag(int)
{
    g_interrupted = 1;
}

} // namespace

void catchInterrupts()
{
    struct sigaction action { };
    action.sa_handler = raiseFlag;
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        ::sigaction(number, &action, nullptr);
}

bool interrupted()
{
    return g_interrupted != 0;
}

} // namespace vympack
