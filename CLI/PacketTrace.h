// SPDX-License-Identifier: MIT
// The traffic of the connection, for people: a line for each attempt to connect and for each
// packet, in a file with the bytes, too. Keeps the reason why the last connection failed, and
// whether the last packet was answered.
//
// Owns:      the file. Is the process's link trace while it lives.
// Threads:   constructed and queried by the command's thread; called by the one that uses the
//            connection.
// Invariant: texts from outside are made safe to show; each fills at most one line.
#pragma once
#include "CLI/Display.h"
#include "DevConn/LinkTrace.h"
#include "VYM/vymLock.h"

#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <string>

// "-> send-file, 4060 bytes", "<- send-file, status 0x0080, 12 bytes"; result: of the sending.
std::string sentLine(std::span<const unsigned char> packet, long result);
std::string receivedLine(std::span<const unsigned char> reply);
std::string connectLine(const char* port, unsigned short tcpPort, ConnectProblem problem,
                        int error);

class PacketTrace final : public LinkTrace {
public:
    // display: shows each line as well, or null. seconds: since the program's start; never
    // empty.
    PacketTrace(Display* display, std::function<double()> seconds);
    ~PacketTrace() override;
    PacketTrace(const PacketTrace&) = delete;
    PacketTrace& operator=(const PacketTrace&) = delete;

    // Writes to this file from now on; returns why that is impossible, or empty.
    std::string openFile(const std::string& path);

    // Empty without an attempt to connect. none: the last attempt succeeded.
    [[nodiscard]] std::optional<ConnectProblem> lastConnect() const;
    // Whether anything has arrived since the last packet, apart from the one that leaves the
    // printer: that one goes out after a failure, too. Empty if no packet was sent.
    [[nodiscard]] std::optional<bool> isAnswered() const;

    void connected(const char* port, unsigned short tcpPort, ConnectProblem problem,
                   int error) override;
    void sent(std::span<const unsigned char> packet, long result) override;
    void received(std::span<const unsigned char> reply) override;

private:
    void line(const std::string& text, std::span<const unsigned char> bytes);

    Display* m_display;
    const std::function<double()> m_seconds;
    mutable CRITSECT m_lock;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> m_file VYM_GUARDED_BY(m_lock);
    std::optional<ConnectProblem> m_lastConnect VYM_GUARDED_BY(m_lock);
    std::optional<bool> m_isAnswered VYM_GUARDED_BY(m_lock);
    bool m_isLeaving VYM_GUARDED_BY(m_lock) = false; // the last packet asks to leave the printer
};
