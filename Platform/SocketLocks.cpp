// SPDX-License-Identifier: MIT
#include "Platform/SystemPrinterLocks.h"
#include "VYM/Sha256.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::string_view kPrefix = "vymkit-printer-";
// Programs that query the holder are never accepted: each takes a place for as long as the lock is
// held. The kernel lowers this to its own limit.
constexpr int kQueries = 4096;

class Socket {
public:
    Socket() : m_descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) { }
    ~Socket()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    Socket(Socket&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) { }
    Socket& operator=(Socket&&) = delete;
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

class SocketLock final : public PrinterLock {
public:
    explicit SocketLock(Socket socket) : m_socket(std::move(socket)) { }

private:
    Socket m_socket;
};

struct Address {
    sockaddr_un record;
    socklen_t length;
};

// The digest, since a name of the kernel's has room for 107 bytes. The leading NUL makes the name
// an abstract one: no file.
Address addressOf(const std::string& name)
{
    const auto digest =
        Sha256::of({reinterpret_cast<const unsigned char*>(name.data()), name.size()});
    const auto text = std::string(kPrefix) + Sha256::toHex(digest);
    Address address{};
    address.record.sun_family = AF_UNIX;
    static_assert(kPrefix.size() + 2 * sizeof(Sha256::Digest) < sizeof address.record.sun_path);
    std::copy(text.begin(), text.end(), address.record.sun_path + 1);
    address.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + text.size());
    return address;
}

// The kernel keeps the process that listens. 0 if it has ended meanwhile, or does not listen yet.
int holderOf(const Address& address)
{
    const Socket socket;
    ucred holder{};
    socklen_t length = sizeof holder;
    if (socket.descriptor() < 0
        || connect(socket.descriptor(), reinterpret_cast<const sockaddr*>(&address.record),
                   address.length)
            != 0
        || getsockopt(socket.descriptor(), SOL_SOCKET, SO_PEERCRED, &holder, &length) != 0)
        return 0;
    return holder.pid;
}

class SocketLocks final : public PrinterLocks {
public:
    Attempt take(const std::string& name) override
    {
        const auto address = addressOf(name);
        Socket socket;
        if (socket.descriptor() < 0)
            return {};
        if (bind(socket.descriptor(), reinterpret_cast<const sockaddr*>(&address.record),
                 address.length)
            == 0) {
            listen(socket.descriptor(), kQueries); // only so that others can find the holder
            return {Status::taken, std::make_unique<SocketLock>(std::move(socket)), 0};
        }
        if (errno != EADDRINUSE)
            return {};
        return {Status::held, nullptr, holderOf(address)};
    }
};

} // namespace

PrinterLocks* systemPrinterLocks()
{
    static SocketLocks locks;
    return &locks;
}
