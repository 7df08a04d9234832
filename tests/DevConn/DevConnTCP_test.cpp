// SPDX-License-Identifier: MIT
#include "VYM/vymMac.h"
#include "tests/DevConn/TcpFixture.h"

#include <arpa/inet.h>
#include <array>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// The address in a port string as dotted text, or "(none)".
std::string addressIn(const std::string& port)
{
    sockaddr_in address{};
    std::memset(&address, 0xEE, sizeof address);
    if (!DevConnTCP::GetIpFromPort(port.c_str(), &address))
        return "(none)";
    EXPECT_EQ(address.sin_port, 0) << "the port never comes from here";
    return inet_ntoa(address.sin_addr);
}

} // namespace

using TcpConnect = TcpConnection;

TEST_F(TcpConnect, NeedsAPortStringAndAPortNumber)
{
    EXPECT_EQ(transport->Connect(nullptr, nullptr, 1), -2);
    EXPECT_EQ(transport->Connect(nullptr, "127.0.0.1", 0), -2);
    EXPECT_EQ(transport->Connect("queue", "lpd://127.0.0.1/q", 0), -2);
}

TEST_F(TcpConnect, TakesADottedAddressWhereThereIsNoName)
{
    const LoopbackPeer peer(silent());
    EXPECT_EQ(transport->Connect(nullptr, "127.0.0.1", peer.port()), 0);
}

TEST_F(TcpConnect, TakesAPortStringWhereThereIsAName)
{
    for (const char* port : {"lpd://127.0.0.1/q", "lpd://127.0.0.1:9999/q", "x lpd://127.0.0.1/"}) {
        const LoopbackPeer peer(silent());
        for (const char* name : {"queue", ""}) {
            DevConnTCP connection;
            EXPECT_EQ(connection.Connect(name, port, peer.port()), 0) << port;
        }
    }
}

TEST_F(TcpConnect, FailsWhereThereIsNoAddress)
{
    const LoopbackPeer peer(silent());
    const struct {
        const char* name;
        const char* port;
    } rows[] = {
        {nullptr, "0.0.0.0"},   {nullptr, "255.255.255.255"}, {nullptr, ""},
        {nullptr, "printer"},   {nullptr, "256.1.1.1"},       {nullptr, "lpd://127.0.0.1/q"},
        {"queue", "127.0.0.1"}, {"queue", "lpd://127.0.0.1"}, {"queue", "LPD://127.0.0.1/q"},
        {"queue", ""}};
    const auto before = openDescriptors();
    for (const auto& row : rows) {
        EXPECT_EQ(transport->Connect(row.name, row.port, peer.port()), -8) << row.port;
        EXPECT_EQ(transport->Disconnect(), -9);
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(TcpConnect, FailsWhereNothingListensAndLeavesNoOpenSocket)
{
    const RefusingPort closed;
    const auto before = openDescriptors();
    EXPECT_EQ(transport->Connect(nullptr, "127.0.0.1", closed.port()), -8);
    EXPECT_EQ(openDescriptors(), before);
    const LoopbackPeer peer(silent());
    EXPECT_EQ(transport->Connect(nullptr, "127.0.0.1", peer.port()), 0) << "it may be tried again";
}

// A clock whose second reading is after the ten seconds that a connection may take.
class HurriedClock : public TimeSource {
public:
    HurriedClock() { setTimeSource(this); }
    ~HurriedClock() override { setTimeSource(nullptr); }
    HurriedClock(const HurriedClock&) = delete;
    HurriedClock& operator=(const HurriedClock&) = delete;
    [[nodiscard]] std::uint64_t nowMilliseconds() const override { return m_now += kStep; }
    void sleepMilliseconds(unsigned long /*milliseconds*/) override { }
    [[nodiscard]] unsigned long waitLimit(unsigned long milliseconds) const override
    {
        return milliseconds;
    }

private:
    static constexpr std::uint64_t kStep = 10000;
    mutable std::uint64_t m_now = 0;
};

// Neither accepts nor refuses connections, like a printer that is switched off.
class FullListener {
public:
    FullListener() : m_listener(socket(AF_INET, SOCK_STREAM, 0))
    {
        m_address.sin_family = AF_INET;
        m_address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        auto* address = reinterpret_cast<sockaddr*>(&m_address);
        socklen_t length = sizeof m_address;
        EXPECT_EQ(bind(m_listener, address, length), 0);
        EXPECT_EQ(listen(m_listener, 0), 0);
        EXPECT_EQ(getsockname(m_listener, address, &length), 0);
        for (int& filler : m_fillers) {
            filler = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
            static_cast<void>(connect(filler, address, length));
        }
        pollfd full{m_listener, POLLIN, 0}; // there is room for one
        EXPECT_EQ(poll(&full, 1, -1), 1);
    }
    ~FullListener()
    {
        for (const int filler : m_fillers)
            close(filler);
        close(m_listener);
    }
    FullListener(const FullListener&) = delete;
    FullListener& operator=(const FullListener&) = delete;
    [[nodiscard]] unsigned short port() const { return ntohs(m_address.sin_port); }

private:
    int m_listener;
    sockaddr_in m_address{};
    std::array<int, 4> m_fillers{};
};

TEST_F(TcpConnect, WaitsTenSecondsAtMostForAPrinterThatDoesNotAnswer)
{
    const FullListener listener;
    const HurriedClock clock;
    EXPECT_EQ(transport->Connect(nullptr, "127.0.0.1", listener.port()), -8);
}

TEST_F(TcpConnect, WorksOnlyOnceAtATime)
{
    const LoopbackPeer peer(silent());
    connectTo(peer);
    EXPECT_EQ(transport->Connect(nullptr, "127.0.0.1", peer.port()), -10);
    EXPECT_EQ(transport->Connect(nullptr, nullptr, peer.port()), -2);
    EXPECT_EQ(transport->Disconnect(), -1) << "the connection was not touched";
}

TEST_F(TcpConnect, EndsWithItsOwnResultAndMayBeginAgain)
{
    std::string rest = "not yet";
    LoopbackPeer first([&](PeerLink& link) { rest = link.receive(1); });
    connectTo(first);
    first.awaitLink();
    const auto connected = openDescriptors();
    EXPECT_EQ(transport->Disconnect(), -1);
    EXPECT_EQ(openDescriptors(), connected - 1);
    EXPECT_EQ(transport->Disconnect(), -9);
    first.join();
    EXPECT_EQ(rest, "") << "the peer saw the end";
    const LoopbackPeer second(silent());
    connectTo(second);
}

TEST_F(TcpConnect, EndsWithTheObject)
{
    bool ended = false;
    LoopbackPeer peer([&](PeerLink& link) {
        link.receive(1);
        ended = !link.ended();
    });
    connectTo(peer);
    transport.reset();
    peer.join();
    EXPECT_TRUE(ended);
}

TEST_F(TcpConnect, IgnoresTheSignalOfAClosedPeer)
{
    struct sigaction action { };
    sigaction(SIGPIPE, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_IGN);
}

TEST_F(TcpConnect, IsNeededBeforeAnyOtherCall)
{
    char marker = 0;
    char* model = &marker;
    unsigned long length = 9;
    EXPECT_EQ(exchange(), -9);
    EXPECT_EQ(transport->SetTimeout(5), -9);
    EXPECT_EQ(transport->SetTimeout(0), -2);
    EXPECT_EQ(transport->GetModelName(&model, &length), -9);
    EXPECT_EQ(transport->Disconnect(), -9);
    const LoopbackPeer peer(silent());
    connectTo(peer);
    EXPECT_EQ(transport->GetModelName(&model, &length), -7) << "no device ID over the network";
    EXPECT_EQ(transport->SetTimeout(0), -2);
    EXPECT_EQ(model, &marker);
    EXPECT_EQ(length, 9U);
}

TEST_F(TcpConnect, ChecksTheArgumentsOfAnExchangeFirst)
{
    unsigned char packet[] = {1};
    unsigned char* block = nullptr;
    unsigned long length = 0;
    EXPECT_EQ(transport->SendRecvData(nullptr, 1, &block, &length), -2);
    EXPECT_EQ(transport->SendRecvData(packet, 1, nullptr, &length), -2);
    EXPECT_EQ(transport->SendRecvData(packet, 1, &block, nullptr), -2);
    EXPECT_EQ(transport->SendRecvData(packet, 1, &block, &length), -9);
}

TEST_F(TcpConnect, WorksWithADescriptorTooLargeForSelect)
{
    constexpr rlim_t kWanted = 1200;
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    if (limit.rlim_max < kWanted)
        GTEST_SKIP() << "so many files may not be open here";
    limit.rlim_cur = std::max(limit.rlim_cur, kWanted);
    setrlimit(RLIMIT_NOFILE, &limit);
    LoopbackPeer peer([](PeerLink& link) { link.send(replyOf(link.receive(6))); });
    std::vector<int> files;
    while (files.empty() || files.back() < FD_SETSIZE)
        files.push_back(open("/dev/null", O_RDONLY));
    connectTo(peer);
    EXPECT_EQ(exchange("packet"), 0);
    EXPECT_EQ(reply, replyOf("packet"));
    for (const int file : files)
        close(file);
}

TEST(PortStringAddress, LiesBetweenTheSchemeAndASlash)
{
    const std::string filler(1023 - std::strlen("lpd://127.0.0.1/"), 'q');
    const struct {
        const char* why;
        std::string port;
        const char* address;
    } rows[] = {
        {"plain", "lpd://10.0.0.5/q", "10.0.0.5"},
        {"no queue", "lpd://10.0.0.5/", "10.0.0.5"},
        {"the number after a colon is passed over", "lpd://10.0.0.5:9999/q", "10.0.0.5"},
        {"whatever stands after the colon", "lpd://10.0.0.5:x:y/q", "10.0.0.5"},
        {"something in front", "mdns: lpd://10.0.0.5/q", "10.0.0.5"},
        {"the first scheme counts", "lpd://10.0.0.5/lpd://10.0.0.6/", "10.0.0.5"},
        {"a name that the machine itself knows", "lpd://localhost/q", "127.0.0.1"},
        {"as long as it may be", "lpd://127.0.0.1/" + filler, "127.0.0.1"},
        {"one character longer", "lpd://127.0.0.1/" + filler + "q", "(none)"},
        {"no slash", "lpd://10.0.0.5", "(none)"},
        {"no scheme", "10.0.0.5/q", "(none)"},
        {"the scheme in upper case", "LPD://10.0.0.5/q", "(none)"},
        {"half a scheme", "lpd:/10.0.0.5/q", "(none)"},
        {"nothing", "", "(none)"},
        {"the scheme alone", "lpd://", "(none)"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(addressIn(row.port), row.address) << row.why;
}

TEST(PortStringAddress, NeedsBothArguments)
{
    sockaddr_in address{};
    EXPECT_FALSE(DevConnTCP::GetIpFromPort(nullptr, &address));
    EXPECT_FALSE(DevConnTCP::GetIpFromPort("lpd://10.0.0.5/q", nullptr));
    EXPECT_FALSE(DevConnTCP::ResolveIpAddr(nullptr, &address));
    EXPECT_FALSE(DevConnTCP::ResolveIpAddr("lpd://10.0.0.5/q", nullptr));
    EXPECT_TRUE(DevConnTCP::ResolveIpAddr("lpd://10.0.0.5/q", &address));
    EXPECT_EQ(address.sin_addr.s_addr, inet_addr("10.0.0.5"));
}

TEST(PortStringAddress, IsNeverFoundInARegistry)
{
    sockaddr_in address{};
    EXPECT_FALSE(DevConnTCP::GetIpFromReg("a", "b", "c", &address));
    EXPECT_FALSE(DevConnTCP::GetIpFromReg(nullptr, nullptr, nullptr, nullptr));
}
