// SPDX-License-Identifier: MIT
// The socket calls of the product, on the simulated link. The linker replaces the system's calls by
// these (--wrap); calls with other descriptors are passed on to the system.
#include "tests/sim/Sockets.h"

#include "tests/sim/Memory.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <linux/sockios.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

namespace {

constexpr int kSocket = 700; // far above every real descriptor of this process
constexpr sim::Micros kCall = 3; // the time of a system call

sim::Link* g_link = nullptr;
bool g_open = false;

bool isOurs(int descriptor)
{
    return descriptor == kSocket && g_open && g_link != nullptr;
}

bool isReady(const pollfd& entry)
{
    return g_link->failed() || ((entry.events & POLLIN) != 0 && g_link->readable())
        || ((entry.events & POLLOUT) != 0 && g_link->writable());
}

short stateOf(const pollfd& entry)
{
    int state = 0;
    if ((entry.events & POLLIN) != 0 && g_link->readable())
        state |= POLLIN;
    if ((entry.events & POLLOUT) != 0 && g_link->writable())
        state |= POLLOUT;
    if (g_link->failed())
        state |= POLLERR | POLLHUP;
    return static_cast<short>(state);
}

} // namespace

namespace sim {

void plugInLink(Link* link)
{
    g_link = link;
    g_open = false;
}

bool socketIsOpen()
{
    return g_open;
}

} // namespace sim

extern "C" {

int __real_close(int descriptor);
int __real_ioctl(int descriptor, unsigned long request, void* argument);
int __real_poll(pollfd* entries, nfds_t count, int milliseconds);

int __wrap_socket(int /*domain*/, int /*type*/, int /*protocol*/)
{
    if (g_link == nullptr || g_link->manners().opening == sim::Opening::noSocket) {
        errno = EMFILE;
        return -1;
    }
    g_open = true;
    return kSocket;
}

int __wrap_connect(int descriptor, const sockaddr* /*address*/, socklen_t /*length*/)
{
    const sim::Outside outside;
    if (!isOurs(descriptor)) {
        errno = EBADF;
        return -1;
    }
    return g_link->connect();
}

ssize_t __wrap_send(int descriptor, const void* bytes, size_t length, int /*flags*/)
{
    const sim::Outside outside;
    if (!isOurs(descriptor)) {
        errno = EBADF;
        return -1;
    }
    auto& world = sim::World::current();
    world.spend(kCall);
    const auto sent = g_link->send(static_cast<const char*>(bytes), length);
    const int error = errno;
    world.trace("host     sends %ld of %zu bytes", static_cast<long>(sent), length);
    errno = error;
    return sent;
}

ssize_t __wrap_recv(int descriptor, void* bytes, size_t length, int flags)
{
    const sim::Outside outside;
    if (!isOurs(descriptor) || (flags & ~MSG_DONTWAIT) != 0) {
        errno = EBADF;
        return -1;
    }
    auto& world = sim::World::current();
    world.spend(kCall);
    const auto got = g_link->receive(static_cast<char*>(bytes), length);
    const int error = errno;
    if (got >= 0)
        world.trace("host     receives %ld bytes", static_cast<long>(got));
    errno = error;
    return got;
}

ssize_t __wrap___recv_chk(int descriptor, void* bytes, size_t length, size_t /*room*/, int flags)
{
    return __wrap_recv(descriptor, bytes, length, flags);
}

int __wrap_poll(pollfd* entries, nfds_t count, int milliseconds)
{
    if (count != 1 || !isOurs(entries[0].fd))
        return __real_poll(entries, count, milliseconds);
    const sim::Outside outside;
    auto& world = sim::World::current();
    world.spend(kCall);
    if (g_link->oneIn100Times(g_link->manners().shortPercent)) {
        errno = EINTR;
        return -1;
    }
    const auto deadline = milliseconds < 0
        ? sim::kForever
        : world.now() + static_cast<sim::Micros>(milliseconds) * sim::kMilli;
    const bool ready = world.waitUntil(deadline, [&] { return isReady(entries[0]); });
    entries[0].revents = ready ? stateOf(entries[0]) : short{0};
    return ready ? 1 : 0;
}

int __wrap___poll_chk(pollfd* entries, nfds_t count, int milliseconds, size_t /*room*/)
{
    return __wrap_poll(entries, count, milliseconds);
}

int __wrap_setsockopt(int /*descriptor*/, int level, int option, const void* value,
                      socklen_t length)
{
    if (level == SOL_SOCKET && option == SO_SNDBUF && length == sizeof(int) && g_link != nullptr)
        g_link->setSendBuffer(2 * static_cast<std::size_t>(*static_cast<const int*>(value)));
    return 0;
}

int __wrap_getsockopt(int descriptor, int level, int option, void* value, socklen_t* length)
{
    if (!isOurs(descriptor) || level != SOL_SOCKET || *length < sizeof(int)) {
        errno = ENOPROTOOPT;
        return -1;
    }
    if (option == SO_ERROR)
        *static_cast<int*>(value) = g_link->takeError();
    else if (option == SO_SNDBUF)
        *static_cast<int*>(value) = static_cast<int>(g_link->manners().sendBuffer);
    return 0;
}

int __wrap_ioctl(int descriptor, unsigned long request, ...)
{
    va_list values;
    va_start(values, request);
    void* argument = va_arg(values, void*);
    va_end(values);
    if (!isOurs(descriptor))
        return __real_ioctl(descriptor, request, argument);
    if (request != SIOCOUTQ && request != SIOCOUTQNSD) {
        errno = EINVAL;
        return -1;
    }
    *static_cast<int*>(argument) =
        static_cast<int>(request == SIOCOUTQ ? g_link->unacknowledged() : g_link->waiting());
    return 0;
}

int __wrap_shutdown(int descriptor, int how)
{
    const sim::Outside outside;
    if (!isOurs(descriptor) || how == SHUT_RD) {
        errno = ENOTCONN;
        return -1;
    }
    sim::World::current().trace("host     ends its side");
    g_link->shutDown();
    return 0;
}

int __wrap_close(int descriptor)
{
    if (!isOurs(descriptor))
        return __real_close(descriptor);
    const sim::Outside outside;
    sim::World::current().trace("host     closes");
    g_open = false;
    g_link->close();
    return 0;
}

} // extern "C"
