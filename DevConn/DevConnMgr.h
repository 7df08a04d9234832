// SPDX-License-Identifier: MIT
// The single entry to printers: makes one transport object per connection, returns a number instead
// of the object, and passes every later call with that number on to the object.
//
// Owns:      every registered transport object, from Connect to Disconnect or program exit.
// Threads:   any. The registry lock is never held while a transport works. There is no reference
//            counting: a caller must not disconnect a handle that another thread is using. The
//            first Instance call comes from one thread.
// Invariant: a handle is never 0, and no two entries have the same one.
#pragma once
#include "DevConn/DevConnBase.h"
#include "Platform/UsbHost.h"
#include "VYM/SingletonKiller.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

// One printer attached by USB: its port string, inside the block of EnumUsbPort.
struct _PORT_INFO_1A {
    char* m_portName;
};

struct DeviceHandle {
    std::uint32_t m_handle;
    DevConnBase* m_device; // the manager's
};

// Matches the registry entry of one handle.
class DeviceHandleFinder {
public:
    explicit DeviceHandleFinder(std::uint32_t handle) : m_handle(handle) { }
    bool operator()(const std::unique_ptr<DeviceHandle>& entry) const
    {
        return entry->m_handle == m_handle;
    }

private:
    std::uint32_t m_handle;
};

class DevConnMgr;
using DevConnMgrKiller = SingletonKiller<DevConnMgr>;

class DevConnMgr {
public:
    static DevConnMgr* Instance(); // null if out of memory
    ~DevConnMgr();
    DevConnMgr(const DevConnMgr&) = delete;
    DevConnMgr& operator=(const DevConnMgr&) = delete;

    // queue: the print queue's identifier or null; port: the port string; kind: 0. On success sets
    // *handle and returns 0; otherwise returns a result of ConnResult.h and registers nothing.
    long Connect(const char* queue, const char* port, int kind, unsigned short tcpPort,
                 void** handle);
    long Disconnect(void* handle);
    long SendRecvData(void* handle, unsigned char* send, unsigned long sendLength,
                      unsigned char** recv, unsigned long* recvLength);
    long GetModelName(void* handle, char** model, unsigned long* length);
    long SetTimeout(void* handle, unsigned long milliseconds);
    long SetRecvPacketSize(void* handle, unsigned long size);
    long SetIdleWork(void* handle, IdleWork* work);
    LinkState LookAtLink(void* handle); // the initial values for an unknown handle
    long DisposeData(void* handle, void* block);

    // Lists the printers attached by USB in one block, to be freed with FreeUsbPort; returns their
    // number. 0 and null without printers, memory or a USB host. May take some seconds per printer.
    long EnumUsbPort(_PORT_INFO_1A** ports);
    void FreeUsbPort(_PORT_INFO_1A* ports);
    static long MacEnumUSBPort(_PORT_INFO_1A** ports);
    // Whether this interface counts. If its serial number or names cannot be read, it does, with an
    // empty url.
    static bool MacUSBPortURL(UsbInterface& service, std::string& url);
    // Reads the device ID; also true if it has no such keys, and then the texts are empty.
    static bool getVendorProductName(UsbInterface& service, std::string& vendor,
                                     std::string& product);

    static char* FindModelKey(char* deviceId);
    static char* FindMFGKey(char* deviceId);

    // Sets the maker of a kind of transport. Null: there is no such transport, and Connect reports
    // that. The USB transport needs a host from UsbHost::plugIn.
    enum class Transport : std::uint8_t { usb, network };
    using TransportMaker = std::unique_ptr<DevConnBase> (*)();
    void plugIn(Transport kind, TransportMaker maker);

    // The registry, for Connect and Disconnect.
    void* CreateDevice(const char* queue, const char* port, int kind); // null on failure
    void DeleteDevice(void* handle);
    bool AddDeviceHandle(DevConnBase* device, void** handle); // owns the device when true
    bool FindDeviceHandle(void* handle, DevConnBase** device); // device may be null: only checks
    void RemoveDeviceHandle(void* handle); // the entry, not the object

private:
    DevConnMgr();
    DevConnBase* deviceOf(void* handle); // null: unknown

    std::vector<std::unique_ptr<DeviceHandle>> m_registry VYM_GUARDED_BY(m_registryLock);
    CRITSECT m_registryLock;
    std::array<TransportMaker, 2> m_makers{};

    static DevConnMgr* _instance;
    static DevConnMgrKiller _killer;
};
