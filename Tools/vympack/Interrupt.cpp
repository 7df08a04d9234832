#include "Tools/vympack/Interrupt.h"

#include <csignal>
#include <initializer_list>

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
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU}) {
        struct sigaction before { };
        // Who started the program may have had it ignore a signal, as nohup does.
        if (::sigaction(number, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
            ::sigaction(number, &action, nullptr);
    }
    // A limit of file size and a reader that went away are failures of a write, not the end.
    action.sa_handler = SIG_IGN;
    for (const int number : {SIGXFSZ, SIGPIPE})
        ::sigaction(number, &action, nullptr);
}

bool interrupted()
{
    return g_interrupted != 0;
}

} // namespace vympack
