// SPDX-License-Identifier: MIT
// A network transport, and short calls for tests of it.
#pragma once
#include "DevConn/DevConnTCP.h"
#include "tests/support/LoopbackPeer.h"

#include <chrono>
#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

// A limit for calls that must end before their time-out of a minute: long enough for the peer's
// thread to get its turn on a busy machine.
constexpr long kSoonMs = 30000;
// A limit for calls that take some milliseconds: below five seconds, the shortest time-out of a
// write.
constexpr long kShortMs = 4500;

// A peer that accepts the connection and says nothing.
inline LoopbackPeer::Script silent()
{
    return [](PeerLink&) {};
}

class TcpConnection : public testing::Test {
protected:
    // Connects to the peer; sets no time-out if it is 0.
    void connectTo(const LoopbackPeer& peer, unsigned long timeoutMs = 60000)
    {
        ASSERT_EQ(transport->Connect(nullptr, "127.0.0.1", peer.port()), 0);
        const long result = timeoutMs != 0 ? transport->SetTimeout(timeoutMs) : 0;
        ASSERT_EQ(result, 0);
    }
    // One exchange; copies the reply and returns its block at once.
    long exchange(std::string packet = "packet")
    {
        unsigned char* block = nullptr;
        unsigned long length = 0;
        const auto start = std::chrono::steady_clock::now();
        const auto result = transport->SendRecvData(reinterpret_cast<unsigned char*>(packet.data()),
                                                    packet.size(), &block, &length);
        const auto took = std::chrono::steady_clock::now() - start;
        tookMs = std::chrono::duration_cast<std::chrono::milliseconds>(took).count();
        replied = block != nullptr;
        reply = replied ? std::string(reinterpret_cast<char*>(block), length) : std::string();
        EXPECT_TRUE(replied ? transport->DisposeData(block) == 0 : length == 0);
        return result;
    }

    std::unique_ptr<DevConnTCP> transport = std::make_unique<DevConnTCP>();
    bool replied = false;
    std::string reply;
    long tookMs = 0;
};

// The processor time of the whole process since construction.
class ProcessorTime {
public:
    [[nodiscard]] long milliseconds() const
    {
        return (std::clock() - m_start) * 1000 / CLOCKS_PER_SEC;
    }

private:
    std::clock_t m_start = std::clock();
};

inline long openDescriptors()
{
    const std::filesystem::directory_iterator folder("/proc/self/fd");
    return std::distance(begin(folder), end(folder));
}
