// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/SessionServe.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>

namespace vymprinter {
namespace {

constexpr std::size_t kReadAtOnce = 64U << 10; // a usual packet in one read
constexpr int kForever = -1;

Millis steadyNow()
{
    return std::chrono::duration_cast<Millis>(std::chrono::steady_clock::now().time_since_epoch());
}

// The first connection; invalid if stop became readable before.
FileHandle firstConnection(const Listening& listening, int stop)
{
    std::array<pollfd, 2> list{{{stop, POLLIN, 0}, {listening.socket.get(), POLLIN, 0}}};
    while (::poll(list.data(), list.size(), kForever) < 0 || list[1].revents == 0) {
        if (list[0].revents != 0)
            return FileHandle();
    }
    return FileHandle(::accept4(listening.socket.get(), nullptr, nullptr, SOCK_CLOEXEC));
}

// False if the other side has gone.
bool sendAll(int socket, ByteView bytes)
{
    while (!bytes.empty()) {
        const auto sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR)
            continue;
        if (sent < 0)
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(sent));
    }
    return true;
}

// The bytes that have arrived; empty at the connection's end.
Bytes receiveSome(int socket)
{
    Bytes bytes(kReadAtOnce);
    const auto got = ::recv(socket, bytes.data(), bytes.size(), 0);
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    return bytes;
}

FileHandle connectTo(const Endpoint& target)
{
    FileHandle socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(target.port);
    address.sin_addr.s_addr = htonl(target.address);
    const bool connected =
        ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    return connected ? std::move(socket) : FileHandle();
}

int waitFor(const std::optional<Millis>& due, Millis now)
{
    return due ? static_cast<int>(std::max(*due - now, Millis(0)).count()) : kForever;
}

} // namespace

std::string playSession(const Listening& listening, Replay replay, int stop)
{
    const auto socket = firstConnection(listening, stop);
    if (!socket.valid())
        return {};
    bool open = true;
    while (open && replay.differs().empty()) {
        const auto due = replay.nextDue();
        if (due && *due <= steadyNow()) {
            open = sendAll(socket.get(), replay.takeDue(steadyNow()));
            continue;
        }
        std::array<pollfd, 2> list{{{stop, POLLIN, 0}, {socket.get(), POLLIN, 0}}};
        ::poll(list.data(), list.size(), waitFor(due, steadyNow()));
        if (list[0].revents != 0)
            return "stopped before the session had ended";
        if (list[1].revents == 0)
            continue;
        const auto bytes = receiveSome(socket.get());
        open = !bytes.empty();
        replay.receive(bytes, steadyNow());
    }
    replay.inputEnded();
    const bool wasCut = replay.differs().empty() && !replay.finished();
    return wasCut ? "the updater did not wait for every answer" : replay.differs();
}

std::string relaySession(const Listening& listening, const Endpoint& target,
                         SessionRecorder& recorder, int stop)
{
    const auto updater = firstConnection(listening, stop);
    if (!updater.valid())
        return {};
    const auto printer = connectTo(target);
    if (!printer.valid())
        return "cannot reach " + target.text() + ": " + std::generic_category().message(errno);
    for (bool open = true; open;) {
        std::array<pollfd, 3> list{
            {{stop, POLLIN, 0}, {updater.get(), POLLIN, 0}, {printer.get(), POLLIN, 0}}};
        ::poll(list.data(), list.size(), kForever);
        if (list[0].revents != 0)
            return "stopped before the session had ended";
        for (const std::size_t side : {1U, 2U}) {
            if (list[side].revents == 0)
                continue;
            const auto bytes = receiveSome(list[side].fd);
            recorder.note(side == 1, bytes, steadyNow());
            open = open && !bytes.empty() && sendAll(list[3 - side].fd, bytes);
        }
    }
    return recorder.good() ? std::string() : "the recording could not be written";
}

} // namespace vymprinter
