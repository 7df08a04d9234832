// SPDX-License-Identifier: MIT
// The flat functions in front of the connection manager. Each forwards to the method of its name
// and returns its result unchanged; a null manager gives the failure of an unknown handle.
//
// Threads: as DevConnMgr says.
#pragma once
#include "DevConn/DevConnMgr.h"

DevConnMgr* devConnMgr_Instance();
long devConnMgr_Connect(DevConnMgr* manager, const char* name, const char* port, int kind,
                        unsigned short tcpPort, void** handle);
long devConnMgr_SendRecvData(DevConnMgr* manager, void* handle, unsigned char* send,
                             unsigned long sendLength, unsigned char** recv,
                             unsigned long* recvLength);
long devConnMgr_GetModelName(DevConnMgr* manager, void* handle, char** model,
                             unsigned long* length);
long devConnMgr_SetTimeout(DevConnMgr* manager, void* handle, unsigned long milliseconds);
long devConnMgr_SetRecvPacketSize(DevConnMgr* manager, void* handle, unsigned long size);
long devConnMgr_Disconnect(DevConnMgr* manager, void* handle);
long devConnMgr_DisposeData(DevConnMgr* manager, void* handle, void* block);
long devConnMgr_EnumUsbPort(DevConnMgr* manager, _PORT_INFO_1A** ports);
void devConnMgr_FreeUsbPort(DevConnMgr* manager, _PORT_INFO_1A* ports);
