// SPDX-License-Identifier: MIT
// A printer's end of a real connection on 127.0.0.1, played by a script on a thread of its own:
//   LoopbackPeer peer([](PeerLink& link) { link.receive(60); link.send(replyOf("body")); });
// After the script has returned, the connection stays open until the peer is destroyed, unless the
// script closed it.
//
// Owns:    the listening socket, the accepted one and the thread; nothing outlives the object.
// Threads: the script runs on the peer's own thread; a test reads its results after join().
#pragma once
#include <arpa/inet.h>
#include <atomic>
#include <chrono>
#include <functional>
#include <linux/sockios.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

// An 8-byte reply header that announces this many bytes of body.
inline std::string replyHeader(std::uint32_t length)
{
    std::string header(4, '\0');
    for (int shift = 24; shift >= 0; shift -= 8)
        header += static_cast<char>(length >> shift & 0xFF);
    return header;
}

inline std::string replyOf(const std::string& body)
{
    return replyHeader(static_cast<std::uint32_t>(body.size())) + body;
}

class PeerLink {
public:
    PeerLink(int socket, const std::atomic<bool>& stop) : m_socket(socket), m_stop(stop)
    {
        const int on = 1; // every send leaves as a segment of its own
        setsockopt(m_socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    }
    ~PeerLink() { close(); }
    PeerLink(const PeerLink&) = delete;
    PeerLink& operator=(const PeerLink&) = delete;

    // Up to this many bytes; fewer when the other side closes or the test ends.
    std::string receive(std::size_t length)
    {
        std::string bytes;
        while (bytes.size() < length && await(POLLIN)) {
            char piece[65536];
            const auto wanted = std::min(sizeof piece, length - bytes.size());
            const auto count = ::recv(m_socket, piece, wanted, 0);
            if (count <= 0)
                break;
            bytes.append(piece, static_cast<std::size_t>(count));
        }
        return bytes;
    }
    // False when some bytes were not sent.
    bool send(const std::string& bytes)
    {
        std::size_t sent = 0;
        while (sent < bytes.size() && await(POLLOUT)) {
            const auto count = ::send(m_socket, bytes.data() + sent, bytes.size() - sent,
                                      MSG_NOSIGNAL | MSG_DONTWAIT);
            if (count <= 0)
                break;
            sent += static_cast<std::size_t>(count);
        }
        return sent == bytes.size();
    }
    // Waits until everything that was sent is at the other side, ready to be read.
    void awaitDelivery() const
    {
        int underWay = 1;
        while (!m_stop && ioctl(m_socket, SIOCOUTQ, &underWay) == 0 && underWay != 0)
            pause(1);
    }
    static void pause(int milliseconds)
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
    void close()
    {
        if (m_socket >= 0)
            ::close(m_socket);
        m_socket = -1;
    }
    void reset() // the other side gets an error instead of an end
    {
        const linger atOnce{1, 0};
        setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
        close();
    }
    [[nodiscard]] bool ended() const { return m_stop; }

private:
    bool await(short events)
    {
        while (!m_stop) {
            pollfd entry{m_socket, events, 0};
            if (poll(&entry, 1, 2) > 0)
                return true;
        }
        return false;
    }

    int m_socket;
    const std::atomic<bool>& m_stop;
};

// Binds the socket to a free port of 127.0.0.1 and returns that.
inline unsigned short takeLoopbackPort(int socket)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    if (bind(socket, plain, length) != 0 || getsockname(socket, plain, &length) != 0)
        throw std::runtime_error("no loopback");
    return ntohs(address.sin_port);
}

class LoopbackPeer {
public:
    using Script = std::function<void(PeerLink&)>;

    explicit LoopbackPeer(Script script) : m_script(std::move(script))
    {
        const int small = 4096; // a sender notices after few bytes that the peer stopped reading
        setsockopt(m_listener, SOL_SOCKET, SO_RCVBUF, &small, sizeof small);
        m_port = takeLoopbackPort(m_listener);
        if (listen(m_listener, 4) != 0)
            throw std::runtime_error("no loopback");
        m_thread = std::thread([this] { serve(); });
    }
    ~LoopbackPeer()
    {
        m_stop = true;
        if (m_thread.joinable())
            m_thread.join();
        ::close(m_listener);
    }
    LoopbackPeer(const LoopbackPeer&) = delete;
    LoopbackPeer& operator=(const LoopbackPeer&) = delete;

    [[nodiscard]] unsigned short port() const { return m_port; }
    // Waits until the connection is accepted: from then on the peer opens no descriptor.
    void awaitLink() const { await(m_linked); }
    // Waits until the script has returned.
    void join() const { await(m_done); }

private:
    static void await(const std::atomic<bool>& flag)
    {
        while (!flag)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    void serve()
    {
        pollfd entry{m_listener, POLLIN, 0};
        while (!m_stop && poll(&entry, 1, 2) == 0) { }
        if (!m_stop) {
            PeerLink link(accept(m_listener, nullptr, nullptr), m_stop);
            m_linked = true;
            m_script(link);
            m_done = true;
            while (!m_stop)
                PeerLink::pause(1);
        }
        m_done = true;
    }

    Script m_script;
    int m_listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    unsigned short m_port = 0;
    std::atomic<bool> m_stop{false};
    std::atomic<bool> m_linked{false};
    std::atomic<bool> m_done{false};
    std::thread m_thread;
};

// A port of 127.0.0.1 that refuses connections. It is taken while this lives, so that no other
// program can listen there meanwhile.
class RefusingPort {
public:
    RefusingPort() = default;
    ~RefusingPort() { ::close(m_socket); }
    RefusingPort(const RefusingPort&) = delete;
    RefusingPort& operator=(const RefusingPort&) = delete;

    [[nodiscard]] unsigned short port() const { return m_port; }

private:
    int m_socket = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    unsigned short m_port = takeLoopbackPort(m_socket);
};
