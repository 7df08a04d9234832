// SPDX-License-Identifier: MIT
// IPv4 addresses in the command line's format, and listening sockets on them.
//
// Owns:      a FileHandle closes its descriptor.
// Threads:   any.
// Does not resolve host names.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vymprinter {

constexpr std::uint16_t kDefaultPort = 48350; // where updaters look for a printer by default

struct Endpoint {
    std::uint32_t address = 0; // host byte order
    std::uint16_t port = kDefaultPort; // 0 takes any free one

    [[nodiscard]] std::string host() const;
    [[nodiscard]] std::string text() const; // ADDRESS:PORT
};

// Reads ADDRESS[:PORT]; empty if the text is not one.
[[nodiscard]] std::optional<Endpoint> parseEndpoint(const std::string& text);
// `count` endpoints on consecutive addresses from the first; empty if the addresses run out.
[[nodiscard]] std::vector<Endpoint> consecutive(const Endpoint& first, std::uint32_t count);

class FileHandle {
public:
    explicit FileHandle(int descriptor = -1) : m_descriptor(descriptor) { }
    FileHandle(FileHandle&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1)) { }
    FileHandle& operator=(FileHandle&& other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~FileHandle();

    [[nodiscard]] int get() const { return m_descriptor; }
    [[nodiscard]] bool valid() const { return m_descriptor >= 0; }

private:
    int m_descriptor;
};

struct Listening {
    FileHandle socket; // invalid if it failed
    Endpoint endpoint; // with its actual port
    std::string error; // why it failed, and what to do about it
};

// window: bytes that the system accepts on a connection before they are read; 0: its own choice.
[[nodiscard]] Listening listenOn(const Endpoint& endpoint, int window = 0);

} // namespace vymprinter
