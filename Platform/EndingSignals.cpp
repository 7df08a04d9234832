// SPDX-License-Identifier: MIT
#include "Platform/EndingSignals.h"

#include <initializer_list>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

bool isIgnored(int signal)
{
    struct sigaction action { };
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

sigset_t endingSignals()
{
    sigset_t set{};
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGTERM);
    // A signal that is ignored stays so: under nohup, a lost terminal must not matter.
    // The last four end a process by default, too, and may come from a person or a limit of the
    // system.
    for (const int signal : {SIGHUP, SIGQUIT, SIGTSTP, SIGUSR1, SIGUSR2, SIGALRM, SIGXCPU}) {
        if (!isIgnored(signal))
            sigaddset(&set, signal);
    }
    return set;
}

} // namespace

EndingSignals::EndingSignals()
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    const auto signals = endingSignals();
    m_descriptor = signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
    pthread_sigmask(SIG_BLOCK, nullptr, &m_formerMask);
    if (m_descriptor >= 0)
        pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

EndingSignals::~EndingSignals()
{
    if (m_descriptor >= 0) {
        take(); // so that a last Ctrl-C does not change the exit code
        close(m_descriptor);
    }
    pthread_sigmask(SIG_SETMASK, &m_formerMask, nullptr);
}

int EndingSignals::take() const
{
    int last = 0;
    signalfd_siginfo came{};
    while (read(m_descriptor, &came, sizeof came) == sizeof came)
        last = static_cast<int>(came.ssi_signo);
    return last;
}
