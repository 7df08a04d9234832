// SPDX-License-Identifier: MIT
#include "bench/Peer.h"

#include <arpa/inet.h>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

void orExit(bool condition, const char* what)
{
    if (condition)
        return;
    std::perror(what);
    std::exit(1);
}

int listenOnLoopback(std::uint16_t& port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    socklen_t length = sizeof address;
    const int listening = socket(AF_INET, SOCK_STREAM, 0);
    orExit(listening >= 0 && bind(listening, generic, length) == 0 && listen(listening, 8) == 0
               && getsockname(listening, generic, &length) == 0,
           "listen");
    port = ntohs(address.sin_port);
    return listening;
}

} // namespace

Peer::Peer()
{
    const int listening = listenOnLoopback(m_port);
    m_process = fork();
    orExit(m_process >= 0, "fork");
    if (m_process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL); // ends with a benchmark that is killed
        dup2(listening, STDIN_FILENO);
        close(listening);
        execl(BENCH_PEER, BENCH_PEER, nullptr);
        std::perror(BENCH_PEER);
        _exit(127);
    }
    close(listening);
}

Peer::~Peer()
{
    kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
}
