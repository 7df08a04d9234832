// SPDX-License-Identifier: MIT
#include "UI/DevConnMgrController.h"

#include "DevConn/ConnResult.h"

DevConnMgr* devConnMgr_Instance()
{
    return DevConnMgr::Instance();
}

long devConnMgr_Connect(DevConnMgr* manager, const char* name, const char* port, int kind,
                        unsigned short tcpPort, void** handle)
{
    return manager != nullptr ? manager->Connect(name, port, kind, tcpPort, handle)
                              : conn::kUnknownHandle;
}

long devConnMgr_SendRecvData(DevConnMgr* manager, void* handle, unsigned char* send,
                             unsigned long sendLength, unsigned char** recv,
                             unsigned long* recvLength)
{
    return manager != nullptr ? manager->SendRecvData(handle, send, sendLength, recv, recvLength)
                              : conn::kUnknownHandle;
}

long devConnMgr_GetModelName(DevConnMgr* manager, void* handle, char** model, unsigned long* length)
{
    return manager != nullptr ? manager->GetModelName(handle, model, length) : conn::kUnknownHandle;
}

long devConnMgr_SetTimeout(DevConnMgr* manager, void* handle, unsigned long milliseconds)
{
    return manager != nullptr ? manager->SetTimeout(handle, milliseconds) : conn::kUnknownHandle;
}

long devConnMgr_SetRecvPacketSize(DevConnMgr* manager, void* handle, unsigned long size)
{
    return manager != nullptr ? manager->SetRecvPacketSize(handle, size) : conn::kUnknownHandle;
}

long devConnMgr_Disconnect(DevConnMgr* manager, void* handle)
{
    return manager != nullptr ? manager->Disconnect(handle) : conn::kUnknownHandle;
}

long devConnMgr_DisposeData(DevConnMgr* manager, void* handle, void* block)
{
    return manager != nullptr ? manager->DisposeData(handle, block) : conn::kUnknownHandle;
}

long devConnMgr_EnumUsbPort(DevConnMgr* manager, _PORT_INFO_1A** ports)
{
    return manager != nullptr ? manager->EnumUsbPort(ports) : 0;
}

void devConnMgr_FreeUsbPort(DevConnMgr* manager, _PORT_INFO_1A* ports)
{
    if (manager != nullptr)
        manager->FreeUsbPort(ports);
}
