// SPDX-License-Identifier: MIT
#include "DevConn/DevConnMgr.h"

#include "DevConn/ConnResult.h"
#include "DevConn/DevConnTCP.h"
#include "DevConn/DevConnUSB.h"
#include "DevConn/DeviceId.h"
#include "VYM/vymUtil.h"

#include <algorithm>
#include <exception>
#include <new>

namespace {

void* asPointer(std::uint32_t handle)
{
    return reinterpret_cast<void*>(static_cast<std::uintptr_t>(handle));
}

// Returns 0, which no entry has, for a value that was never issued.
std::uint32_t asNumber(void* handle)
{
    const auto value = reinterpret_cast<std::uintptr_t>(handle);
    return value <= UINT32_MAX ? static_cast<std::uint32_t>(value) : 0;
}

std::unique_ptr<DevConnBase> makeNetworkTransport()
{
    return std::make_unique<DevConnTCP>();
}

std::unique_ptr<DevConnBase> makeUsbTransport()
{
    auto* host = UsbHost::plugged();
    return host != nullptr ? std::make_unique<DevConnUSB>(*host) : nullptr;
}

// No exception leaves the manager, even if a transport runs out of memory.
long connectDevice(DevConnBase* device, const char* queue, const char* port, unsigned short tcpPort)
{
    if (device == nullptr)
        return conn::kUnknownHandle;
    try {
        return device->Connect(queue, port, tcpPort);
    } catch (const std::bad_alloc&) {
        return conn::kOutOfMemory;
    } catch (const std::exception&) {
        return conn::kCannotOpen;
    }
}

void traceConnect(DevConnBase* device, long result, const char* port, unsigned short tcpPort)
{
    auto* trace = linkTrace();
    if (trace == nullptr || device == nullptr)
        return;
    int error = 0;
    const auto problem = result < 0 ? device->connectProblem(error) : ConnectProblem::none;
    trace->connected(port, tcpPort, problem, error);
}

} // namespace

DevConnMgr* DevConnMgr::_instance = nullptr;
constinit DevConnMgrKiller DevConnMgr::_killer;

DevConnMgr* DevConnMgr::Instance()
{
    if (_instance == nullptr)
        _instance = new (std::nothrow) DevConnMgr;
    return _instance;
}

DevConnMgr::DevConnMgr()
{
    plugIn(Transport::network, &makeNetworkTransport);
    plugIn(Transport::usb, &makeUsbTransport);
    _killer.set(this);
}

DevConnMgr::~DevConnMgr()
{
    while (!m_registry.empty()) {
        delete m_registry.back()->m_device;
        m_registry.pop_back();
    }
    _killer.set(nullptr);
    _instance = nullptr;
}

void DevConnMgr::plugIn(Transport kind, TransportMaker maker)
{
    m_makers[static_cast<std::size_t>(kind)] = maker;
}

long DevConnMgr::Connect(const char* queue, const char* port, int kind, unsigned short tcpPort,
                         void** handle)
{
    if (handle == nullptr)
        return conn::kInvalidArgument;
    void* created = CreateDevice(queue, port, kind);
    if (created == nullptr)
        return conn::kNoTransport;
    auto* device = deviceOf(created);
    const long result = connectDevice(device, queue, port, tcpPort);
    traceConnect(device, result, port, tcpPort);
    if (result < 0) {
        DeleteDevice(created);
        return result;
    }
    *handle = created;
    return conn::kSuccess;
}

void* DevConnMgr::CreateDevice(const char* /*queue*/, const char* port, int kind)
{
    if (port == nullptr || kind != 0)
        return nullptr;
    const auto transport = IsStdUSBPort(port) ? Transport::usb : Transport::network;
    const auto maker = m_makers[static_cast<std::size_t>(transport)];
    if (maker == nullptr)
        return nullptr;
    try {
        auto device = maker();
        void* handle = nullptr;
        if (device == nullptr || !AddDeviceHandle(device.get(), &handle))
            return nullptr;
        static_cast<void>(device.release()); // from here on the registry owns it
        return handle;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

bool DevConnMgr::AddDeviceHandle(DevConnBase* device, void** handle)
{
    // Stays at the number last issued: the next search starts there and goes on to the first free
    // one, so that a number is reused only after all others.
    static std::uint32_t dwHandle = 0;
    const HoldLock hold(m_registryLock);
    if (device == nullptr || handle == nullptr)
        return false;
    *handle = nullptr;
    const auto entered = dwHandle;
    for (;;) {
        dwHandle = dwHandle == 0 ? 1 : dwHandle;
        if (!FindDeviceHandle(asPointer(dwHandle), nullptr))
            break;
        if (++dwHandle == entered)
            return false;
    }
    try {
        m_registry.push_back(std::make_unique<DeviceHandle>(DeviceHandle{dwHandle, device}));
    } catch (const std::bad_alloc&) {
        return false;
    }
    *handle = asPointer(dwHandle);
    return true;
}

bool DevConnMgr::FindDeviceHandle(void* handle, DevConnBase** device)
{
    const HoldLock hold(m_registryLock);
    const auto found =
        std::find_if(m_registry.begin(), m_registry.end(), DeviceHandleFinder(asNumber(handle)));
    if (found == m_registry.end())
        return false;
    if (device != nullptr)
        *device = (*found)->m_device;
    return true;
}

void DevConnMgr::RemoveDeviceHandle(void* handle)
{
    const HoldLock hold(m_registryLock);
    const auto found =
        std::find_if(m_registry.begin(), m_registry.end(), DeviceHandleFinder(asNumber(handle)));
    if (found != m_registry.end())
        m_registry.erase(found);
}

DevConnBase* DevConnMgr::deviceOf(void* handle)
{
    DevConnBase* device = nullptr;
    return FindDeviceHandle(handle, &device) ? device : nullptr;
}

void DevConnMgr::DeleteDevice(void* handle)
{
    const std::unique_ptr<DevConnBase> device(deviceOf(handle));
    if (device != nullptr)
        RemoveDeviceHandle(handle);
}

long DevConnMgr::Disconnect(void* handle)
{
    auto* device = deviceOf(handle);
    if (device == nullptr)
        return conn::kUnknownHandle;
    device->Disconnect(); // ends the connection whatever it returns
    DeleteDevice(handle);
    return conn::kSuccess;
}

long DevConnMgr::SendRecvData(void* handle, unsigned char* send, unsigned long sendLength,
                              unsigned char** recv, unsigned long* recvLength)
{
    auto* device = deviceOf(handle);
    const long result = device != nullptr ? device->SendRecvData(send, sendLength, recv, recvLength)
                                          : conn::kUnknownHandle;
    auto* trace = linkTrace();
    if (trace != nullptr && send != nullptr)
        trace->sent({send, sendLength}, result);
    if (trace != nullptr && result >= 0 && recv != nullptr && recvLength != nullptr
        && *recv != nullptr)
        trace->received({*recv, *recvLength});
    return result;
}

long DevConnMgr::GetModelName(void* handle, char** model, unsigned long* length)
{
    auto* device = deviceOf(handle);
    return device != nullptr ? device->GetModelName(model, length) : conn::kUnknownHandle;
}

long DevConnMgr::SetTimeout(void* handle, unsigned long milliseconds)
{
    auto* device = deviceOf(handle);
    return device != nullptr ? device->SetTimeout(milliseconds) : conn::kUnknownHandle;
}

long DevConnMgr::SetRecvPacketSize(void* handle, unsigned long size)
{
    auto* device = deviceOf(handle);
    return device != nullptr ? device->SetRecvPacketSize(size) : conn::kUnknownHandle;
}

long DevConnMgr::SetIdleWork(void* handle, IdleWork* work)
{
    auto* device = deviceOf(handle);
    return device != nullptr ? device->SetIdleWork(work) : conn::kUnknownHandle;
}

LinkState DevConnMgr::LookAtLink(void* handle)
{
    auto* device = deviceOf(handle);
    return device != nullptr ? device->LookAtLink() : LinkState();
}

long DevConnMgr::DisposeData(void* handle, void* block)
{
    auto* device = deviceOf(handle);
    return device != nullptr ? device->DisposeData(block) : conn::kUnknownHandle;
}

char* DevConnMgr::FindModelKey(char* deviceId)
{
    return deviceId::findModelKey(deviceId);
}

char* DevConnMgr::FindMFGKey(char* deviceId)
{
    return deviceId::findMfgKey(deviceId);
}
