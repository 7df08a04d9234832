// SPDX-License-Identifier: MIT
#include "DevConn/ConnResult.h"
#include "DevConn/DevConnMgr.h"
#include "VYM/vymUtil.h"
#include "tests/support/FailingMemory.h"
#include "tests/support/LoopbackPeer.h"

#include <future>
#include <gtest/gtest.h>
#include <string>
#include <thread>

namespace {

// The calls to a test's transports, in order, and their results.
struct Record {
    std::vector<std::string> calls;
    long result = 0;
    std::function<void()> onSend;
    std::function<void()> onConnect;
};
Record* g_record = nullptr;
std::atomic<int> g_alive{0};

class Transport : public DevConnBase {
public:
    explicit Transport(std::string kind) : m_kind(std::move(kind)) { ++g_alive; }
    ~Transport() override
    {
        --g_alive;
        note("gone " + m_name);
    }
    Transport(const Transport&) = delete;
    Transport& operator=(const Transport&) = delete;

    long Connect(const char* name, const char* port, unsigned short tcpPort) override
    {
        m_name = port;
        note(m_kind + " " + (name != nullptr ? name : "null") + " " + port + " "
             + std::to_string(tcpPort));
        if (g_record != nullptr && g_record->onConnect)
            g_record->onConnect();
        return g_record != nullptr ? g_record->result : 0;
    }
    long SendRecvData(unsigned char* /*send*/, unsigned long length, unsigned char** reply,
                      unsigned long* replyLength) override
    {
        if (g_record != nullptr && g_record->onSend)
            g_record->onSend();
        *reply = static_cast<unsigned char*>(AllocMem(length));
        *replyLength = length;
        return addMemList(*reply) ? 5 : -5;
    }
    long GetModelName(char** /*model*/, unsigned long* /*length*/) override { return -7; }
    long SetTimeout(unsigned long milliseconds) override
    {
        return milliseconds == 0 ? -2 : static_cast<long>(milliseconds);
    }
    long Disconnect() override
    {
        note("disconnect " + m_name);
        return conn::kNetworkClosed;
    }

private:
    static void note(std::string text)
    {
        if (g_record != nullptr)
            g_record->calls.push_back(std::move(text));
    }
    std::string m_kind;
    std::string m_name;
};

std::unique_ptr<DevConnBase> makeNetwork()
{
    return std::make_unique<Transport>("net");
}

std::unique_ptr<DevConnBase> makeUsb()
{
    return std::make_unique<Transport>("usb");
}

std::unique_ptr<DevConnBase> makeNone()
{
    return nullptr;
}

class Manager : public testing::Test {
protected:
    Manager()
    {
        g_record = &record;
        manager().plugIn(DevConnMgr::Transport::network, &makeNetwork);
        manager().plugIn(DevConnMgr::Transport::usb, &makeUsb);
    }
    ~Manager() override
    {
        g_record = nullptr;
        delete DevConnMgr::Instance();
        EXPECT_EQ(g_alive, 0);
    }
    static DevConnMgr& manager() { return *DevConnMgr::Instance(); }
    static void* connect(const char* port = "net")
    {
        void* handle = nullptr;
        EXPECT_EQ(manager().Connect(nullptr, port, 0, 1, &handle), 0);
        EXPECT_NE(handle, nullptr);
        return handle;
    }
    static std::uintptr_t number(void* handle) { return reinterpret_cast<std::uintptr_t>(handle); }
    Record record;
};

void* const kMarker = reinterpret_cast<void*>(0x77);

} // namespace

TEST_F(Manager, ChoosesTheTransportByThePortString)
{
    const struct {
        const char* port;
        const char* kind;
    } rows[] = {{"usb://Acme/P1?serial=7", "usb"}, {"my usb port", "usb"},
                {"USB://Acme/P1", "net"},          {"127.0.0.1", "net"},
                {"lpd://host/q", "net"},           {"", "net"}};
    for (const auto& row : rows) {
        record.calls.clear();
        connect(row.port);
        EXPECT_EQ(record.calls.front(), std::string(row.kind) + " null " + row.port + " 1");
    }
}

TEST_F(Manager, PassesOnTheCallersArguments)
{
    void* handle = nullptr;
    EXPECT_EQ(manager().Connect("usb-queue", "10.0.0.5", 0, 48350, &handle), 0);
    EXPECT_EQ(record.calls, std::vector<std::string>{"net usb-queue 10.0.0.5 48350"})
        << "the name plays no part in the choice";
}

TEST_F(Manager, ConnectsOnlyWhereItCanGiveAHandle)
{
    EXPECT_EQ(manager().Connect(nullptr, "net", 0, 1, nullptr), -2);
    EXPECT_TRUE(record.calls.empty());
}

TEST_F(Manager, KnowsNoOtherKindAndNoNullPort)
{
    void* handle = kMarker;
    for (const int kind : {1, 2, -1})
        EXPECT_EQ(manager().Connect(nullptr, "net", kind, 1, &handle), -3) << kind;
    EXPECT_EQ(manager().Connect(nullptr, nullptr, 0, 1, &handle), -3);
    EXPECT_EQ(handle, kMarker);
    EXPECT_TRUE(record.calls.empty()) << "no device is touched";
}

TEST_F(Manager, ReportsAMissingTransport)
{
    void* handle = kMarker;
    manager().plugIn(DevConnMgr::Transport::usb, nullptr);
    EXPECT_EQ(manager().Connect(nullptr, "usb", 0, 1, &handle), -3);
    manager().plugIn(DevConnMgr::Transport::usb, &makeNone);
    EXPECT_EQ(manager().Connect(nullptr, "usb", 0, 1, &handle), -3);
    EXPECT_EQ(handle, kMarker);
}

TEST_F(Manager, DeletesTheDeviceOfAFailedConnect)
{
    void* handle = kMarker;
    for (const long result : {-2L, -8L, -14L}) {
        record.result = result;
        EXPECT_EQ(manager().Connect(nullptr, "net", 0, 1, &handle), result);
        EXPECT_EQ(g_alive, 0);
    }
    EXPECT_EQ(handle, kMarker);
    EXPECT_EQ(record.calls.back(), "gone net");
}

TEST_F(Manager, TakesEveryNonNegativeResultForSuccess)
{
    record.result = 3;
    connect(); // expects 0
}

TEST_F(Manager, IssuesTheNextFreeHandleAndNotTheReturnedOne)
{
    void* first = connect();
    void* second = connect();
    EXPECT_EQ(number(second), number(first) + 1);
    EXPECT_EQ(manager().Disconnect(first), 0);
    EXPECT_EQ(number(connect()), number(first) + 2);
}

TEST_F(Manager, TriesTheHandleIssuedLastAgain)
{
    void* first = connect();
    EXPECT_EQ(manager().Disconnect(first), 0);
    EXPECT_EQ(connect(), first);
}

TEST_F(Manager, KnowsNoHandleThatItDidNotIssue)
{
    void* live = connect();
    void* gone = connect();
    EXPECT_EQ(manager().Disconnect(gone), 0);
    void* const unknown[] = {nullptr, gone, reinterpret_cast<void*>(~std::uintptr_t{0}),
                             reinterpret_cast<void*>(number(live) + (std::uintptr_t{1} << 32))};
    for (void* handle : unknown) {
        unsigned char byte = 0;
        unsigned char* reply = nullptr;
        char* model = nullptr;
        unsigned long length = 9;
        EXPECT_EQ(manager().Disconnect(handle), -4);
        EXPECT_EQ(manager().SendRecvData(handle, &byte, 1, &reply, &length), -4);
        EXPECT_EQ(manager().GetModelName(handle, &model, &length), -4);
        EXPECT_EQ(manager().SetTimeout(handle, 5), -4);
        EXPECT_EQ(manager().SetRecvPacketSize(handle, 5), -4);
        EXPECT_EQ(manager().DisposeData(handle, &byte), -4);
        EXPECT_FALSE(manager().FindDeviceHandle(handle, nullptr));
        manager().DeleteDevice(handle);
        manager().RemoveDeviceHandle(handle);
        EXPECT_EQ(length, 9U);
    }
    EXPECT_TRUE(manager().FindDeviceHandle(live, nullptr));
}

TEST_F(Manager, ReturnsTheTransportsResult)
{
    void* handle = connect();
    unsigned char byte = 0;
    unsigned char* reply = nullptr;
    char* model = nullptr;
    unsigned long length = 0;
    EXPECT_EQ(manager().SendRecvData(handle, &byte, 1, &reply, &length), 5);
    EXPECT_EQ(manager().DisposeData(handle, reply), 0);
    EXPECT_EQ(manager().DisposeData(handle, reply), -6);
    EXPECT_EQ(manager().GetModelName(handle, &model, &length), -7);
    EXPECT_EQ(manager().SetTimeout(handle, 500), 500);
    EXPECT_EQ(manager().SetTimeout(handle, 0), -2);
    EXPECT_EQ(manager().SetRecvPacketSize(handle, 0), 0);
}

TEST_F(Manager, DisconnectsWhateverTheTransportReturns)
{
    void* handle = connect("net");
    record.calls.clear();
    EXPECT_EQ(manager().Disconnect(handle), 0);
    EXPECT_EQ(record.calls, (std::vector<std::string>{"disconnect net", "gone net"}));
    EXPECT_EQ(manager().Disconnect(handle), -4);
}

TEST_F(Manager, DeletesItsDevicesFromTheLastToTheFirst)
{
    connect("a");
    connect("b");
    connect("c");
    record.calls.clear();
    delete DevConnMgr::Instance();
    EXPECT_EQ(record.calls, (std::vector<std::string>{"gone c", "gone b", "gone a"}));
}

TEST_F(Manager, FreesTheBlocksThatWereNeverGivenBack)
{
    void* handle = connect();
    unsigned char byte = 0;
    unsigned char* reply = nullptr;
    unsigned long length = 0;
    manager().SendRecvData(handle, &byte, 100, &reply, &length);
    EXPECT_EQ(manager().Disconnect(handle), 0); // a leak checker reports what remains
}

TEST_F(Manager, RegistersOnlyADeviceAndOnlyWithAPlaceForTheHandle)
{
    Transport device("net");
    void* handle = kMarker;
    EXPECT_FALSE(manager().AddDeviceHandle(nullptr, &handle));
    EXPECT_FALSE(manager().AddDeviceHandle(&device, nullptr));
    ASSERT_TRUE(manager().AddDeviceHandle(&device, &handle));
    DevConnBase* found = nullptr;
    EXPECT_TRUE(manager().FindDeviceHandle(handle, &found));
    EXPECT_EQ(found, &device);
    manager().RemoveDeviceHandle(handle);
    EXPECT_FALSE(manager().FindDeviceHandle(handle, &found));
}

TEST_F(Manager, FindsNoUsbPrintersWhereThereAreNone)
{
    auto* ports = static_cast<_PORT_INFO_1A*>(kMarker);
    EXPECT_EQ(manager().EnumUsbPort(&ports), 0);
    EXPECT_EQ(ports, nullptr);
    EXPECT_EQ(manager().EnumUsbPort(nullptr), 0);
    manager().FreeUsbPort(nullptr);
    manager().FreeUsbPort(static_cast<_PORT_INFO_1A*>(AllocMem(64)));
}

TEST_F(Manager, GivesAHandleOrNothingHoweverLittleMemoryThereIs)
{
    int allowed = 0;
    for (; allowed < 50; ++allowed) {
        g_record = nullptr; // the record would need memory of its own
        void* handle = kMarker;
        long result = 0;
        {
            const MemoryShortage shortage(allowed);
            result = manager().Connect(nullptr, "net", 0, 1, &handle);
        }
        if (result == 0)
            break;
        EXPECT_EQ(result, -3) << allowed;
        EXPECT_EQ(handle, kMarker);
        EXPECT_EQ(g_alive, 0);
    }
    EXPECT_GE(allowed, 1);
    EXPECT_LT(allowed, 50);
}

TEST_F(Manager, GivesTheTransportBackWhoseConnectRunsOutOfMemory)
{
    void* handle = kMarker;
    record.onConnect = [] { throw std::bad_alloc(); };
    EXPECT_EQ(manager().Connect(nullptr, "net", 0, 1, &handle), -5);
    record.onConnect = [] { throw std::runtime_error("no such thing"); };
    EXPECT_EQ(manager().Connect(nullptr, "net", 0, 1, &handle), -8);
    EXPECT_EQ(handle, kMarker);
    EXPECT_EQ(g_alive, 0);
}

TEST(ManagerInstance, IsTriedAgainAfterMemoryRanOut)
{
    delete DevConnMgr::Instance();
    {
        const MemoryShortage shortage(0);
        EXPECT_EQ(DevConnMgr::Instance(), nullptr);
    }
    EXPECT_NE(DevConnMgr::Instance(), nullptr);
    EXPECT_EQ(DevConnMgr::Instance(), DevConnMgr::Instance());
}

TEST_F(Manager, IsFreeForOthersWhileATransportWorks)
{
    std::promise<void> working;
    std::promise<void> goOn;
    record.onSend = [&] {
        working.set_value();
        goOn.get_future().wait();
    };
    void* busy = connect("busy");
    std::thread worker([&] {
        unsigned char byte = 0;
        unsigned char* reply = nullptr;
        unsigned long length = 0;
        EXPECT_EQ(manager().SendRecvData(busy, &byte, 1, &reply, &length), 5);
    });
    working.get_future().wait();
    void* other = connect("other"); // blocks here if the registry is locked
    EXPECT_EQ(manager().SetTimeout(other, 7), 7);
    EXPECT_EQ(manager().Disconnect(other), 0);
    goOn.set_value();
    worker.join();
}

TEST_F(Manager, IssuesEveryHandleOnceToManyThreads)
{
    constexpr int kRounds = 200;
    g_record = nullptr; // only one thread may keep a record
    const auto comeAndGo = [] {
        for (int i = 0; i < kRounds; ++i) {
            void* first = connect();
            void* second = connect();
            EXPECT_NE(first, second);
            EXPECT_EQ(manager().SetTimeout(first, 7), 7);
            EXPECT_EQ(manager().Disconnect(first), 0);
            EXPECT_EQ(manager().Disconnect(second), 0);
        }
    };
    std::thread other(comeAndGo);
    std::thread third(comeAndGo);
    comeAndGo();
    other.join();
    third.join();
}

TEST(ManagerWithItsOwnTransports, ReachesAPrinterByNetwork)
{
    delete DevConnMgr::Instance(); // removes the transports of other tests
    LoopbackPeer peer([](PeerLink& link) {
        link.receive(4);
        link.send(replyOf("hello"));
    });
    auto& manager = *DevConnMgr::Instance();
    void* handle = nullptr;
    ASSERT_EQ(manager.Connect(nullptr, "127.0.0.1", 0, peer.port(), &handle), 0);
    EXPECT_EQ(manager.SetTimeout(handle, 60000), 0);
    unsigned char packet[] = {1, 2, 3, 4};
    unsigned char* reply = nullptr;
    unsigned long length = 0;
    ASSERT_EQ(manager.SendRecvData(handle, packet, sizeof packet, &reply, &length), 0);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(reply), length), replyOf("hello"));
    EXPECT_EQ(manager.DisposeData(handle, reply), 0);
    EXPECT_EQ(manager.Disconnect(handle), 0) << "though the transport says otherwise";
}

TEST(ManagerWithItsOwnTransports, TakesUsbInUpperCaseForANetworkPort)
{
    delete DevConnMgr::Instance();
    void* handle = kMarker;
    EXPECT_EQ(DevConnMgr::Instance()->Connect(nullptr, "USB://Acme/P1", 0, 1, &handle), -8)
        << "no address: the network transport cannot open it";
    EXPECT_EQ(handle, kMarker);
}
