// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/TcpListen.h"

#include <arpa/inet.h>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <limits>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace vymprinter {
namespace {

constexpr int kBacklog = 64; // updaters that may connect at the same time

sockaddr_in socketAddress(const Endpoint& endpoint)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(endpoint.port);
    address.sin_addr.s_addr = htonl(endpoint.address);
    return address;
}

std::string advice(int error, const Endpoint& endpoint)
{
    switch (error) {
    case EADDRINUSE:
        return "the port is taken; end the program that listens there, or name another port with "
               "--listen "
            + endpoint.host() + ":PORT (PORT 0 takes any free one)";
    case EADDRNOTAVAIL:
        return "this computer has no such address; name one that `ip address` shows, or any that "
               "begins with 127.";
    case EACCES:
        return "ports below 1024 are for the system administrator; name a higher one with --listen "
            + endpoint.host() + ":PORT";
    default:
        return std::strerror(error);
    }
}

Listening failed(const Endpoint& endpoint, int error)
{
    return {FileHandle(), endpoint,
            "cannot listen on " + endpoint.text() + ": " + advice(error, endpoint)};
}

bool bindAndListen(int socket, const Endpoint& endpoint)
{
    const int yes = 1; // the port of a stopped printer is free at once
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    const auto address = socketAddress(endpoint);
    return ::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0
        && ::listen(socket, kBacklog) == 0;
}

} // namespace

FileHandle::~FileHandle()
{
    if (valid())
        ::close(m_descriptor);
}

std::string Endpoint::host() const
{
    char text[INET_ADDRSTRLEN] = {};
    const in_addr raw{htonl(address)};
    ::inet_ntop(AF_INET, &raw, text, sizeof text);
    return text;
}

std::string Endpoint::text() const
{
    return host() + ':' + std::to_string(port);
}

std::optional<Endpoint> parseEndpoint(const std::string& text)
{
    const auto colon = text.find(':');
    in_addr raw{};
    if (::inet_pton(AF_INET, text.substr(0, colon).c_str(), &raw) != 1)
        return std::nullopt;
    Endpoint endpoint{ntohl(raw.s_addr)};
    if (colon == text.npos)
        return endpoint;
    const auto* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data() + colon + 1, end, endpoint.port);
    if (error != std::errc{} || rest != end)
        return std::nullopt;
    return endpoint;
}

std::vector<Endpoint> consecutive(const Endpoint& first, std::uint32_t count)
{
    std::vector<Endpoint> endpoints;
    if (count > 0 && count - 1 > std::numeric_limits<std::uint32_t>::max() - first.address)
        return endpoints;
    for (std::uint32_t i = 0; i < count; ++i)
        endpoints.push_back({first.address + i, first.port});
    return endpoints;
}

Listening listenOn(const Endpoint& endpoint, int window)
{
    FileHandle handle(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    // Before any connection: the first offer decides how large a window can become.
    if (handle.valid() && window != 0)
        ::setsockopt(handle.get(), SOL_SOCKET, SO_RCVBUF, &window, sizeof window);
    if (!handle.valid() || !bindAndListen(handle.get(), endpoint))
        return failed(endpoint, errno);
    sockaddr_in bound{};
    socklen_t size = sizeof bound;
    if (::getsockname(handle.get(), reinterpret_cast<sockaddr*>(&bound), &size) != 0)
        return failed(endpoint, errno);
    return {std::move(handle), {endpoint.address, ntohs(bound.sin_port)}, {}};
}

} // namespace vymprinter
