// SPDX-License-Identifier: MIT
#include "UI/DevConnMgrController.h"
#include "VYM/vymUtil.h"
#include "tests/support/ScriptedTransport.h"

#include <gtest/gtest.h>
#include <string>

TEST(FlatConnection, IsTheManagersOwn)
{
    EXPECT_NE(devConnMgr_Instance(), nullptr);
    EXPECT_EQ(devConnMgr_Instance(), DevConnMgr::Instance());
}

TEST(FlatConnection, GoesFromConnectToDisconnect)
{
    TransportScript script;
    script.queueReply("answer");
    auto* manager = devConnMgr_Instance();
    void* handle = nullptr;
    ASSERT_EQ(devConnMgr_Connect(manager, nullptr, "127.0.0.1", 0, 48350, &handle), 0);
    EXPECT_EQ(script.openConnections(), 1U);
    EXPECT_EQ(devConnMgr_SetTimeout(manager, handle, 3000), 0);
    EXPECT_EQ(devConnMgr_SetTimeout(manager, handle, 0), -2);
    EXPECT_EQ(script.timeouts(), (std::vector<unsigned long>{3000, 0}));
    EXPECT_EQ(devConnMgr_SetRecvPacketSize(manager, handle, 512), 0);
    unsigned char packet[] = {'a', 'b', 'c'};
    unsigned char* reply = nullptr;
    unsigned long length = 0;
    EXPECT_EQ(devConnMgr_SendRecvData(manager, handle, packet, 3, &reply, &length), 0);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(reply), length), "answer");
    EXPECT_EQ(script.sent(), std::vector<std::string>{"abc"});
    EXPECT_EQ(devConnMgr_DisposeData(manager, handle, reply), 0);
    EXPECT_EQ(devConnMgr_DisposeData(manager, handle, reply), -6);
    char* model = nullptr;
    EXPECT_EQ(devConnMgr_GetModelName(manager, handle, &model, &length), -7);
    EXPECT_EQ(devConnMgr_Disconnect(manager, handle), 0);
    EXPECT_EQ(script.openConnections(), 0U);
}

TEST(FlatConnection, ReturnsEveryFailureUnchanged)
{
    TransportScript script;
    auto* manager = devConnMgr_Instance();
    void* handle = nullptr;
    EXPECT_EQ(devConnMgr_Connect(manager, nullptr, "127.0.0.1", 0, 1, nullptr), -2);
    EXPECT_EQ(devConnMgr_Connect(manager, nullptr, "127.0.0.1", 1, 1, &handle), -3);
    EXPECT_EQ(devConnMgr_Connect(manager, nullptr, nullptr, 0, 1, &handle), -3);
    script.failConnect(-8);
    EXPECT_EQ(devConnMgr_Connect(manager, nullptr, "127.0.0.1", 0, 1, &handle), -8);
    EXPECT_EQ(handle, nullptr);
    script.failConnect(0);
    ASSERT_EQ(devConnMgr_Connect(manager, nullptr, "127.0.0.1", 0, 1, &handle), 0);
    script.failNextSend(0, -13);
    unsigned char packet[] = {1};
    unsigned char* reply = nullptr;
    unsigned long length = 0;
    EXPECT_EQ(devConnMgr_SendRecvData(manager, handle, packet, 1, &reply, &length), -13);
}

// Without a manager, and with one that never issued the handle: the same failure without any
// effect.
TEST(FlatConnection, KnowsNoHandleWithoutAManagerNorOneThatWasNeverIssued)
{
    auto* const never = reinterpret_cast<void*>(0x7FFFFFFF);
    unsigned char byte = 0;
    unsigned char* reply = nullptr;
    char* model = nullptr;
    void* handle = nullptr;
    unsigned long length = 0;
    for (auto* manager : {static_cast<DevConnMgr*>(nullptr), devConnMgr_Instance()}) {
        EXPECT_EQ(devConnMgr_SendRecvData(manager, never, &byte, 1, &reply, &length), -4);
        EXPECT_EQ(devConnMgr_GetModelName(manager, never, &model, &length), -4);
        EXPECT_EQ(devConnMgr_SetTimeout(manager, never, 5), -4);
        EXPECT_EQ(devConnMgr_SetRecvPacketSize(manager, never, 5), -4);
        EXPECT_EQ(devConnMgr_DisposeData(manager, never, &byte), -4);
        EXPECT_EQ(devConnMgr_Disconnect(manager, never), -4);
    }
    EXPECT_EQ(devConnMgr_Connect(nullptr, nullptr, "127.0.0.1", 0, 1, &handle), -4);
    EXPECT_EQ(handle, nullptr);
}

TEST(FlatConnection, FindsNoUsbPrintersWhereThereAreNone)
{
    for (auto* manager : {static_cast<DevConnMgr*>(nullptr), devConnMgr_Instance()}) {
        _PORT_INFO_1A* ports = nullptr;
        EXPECT_EQ(devConnMgr_EnumUsbPort(manager, &ports), 0);
        EXPECT_EQ(ports, nullptr);
        devConnMgr_FreeUsbPort(manager, ports);
    }
}
