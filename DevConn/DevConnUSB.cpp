// SPDX-License-Identifier: MIT
#include "DevConn/DevConnUSB.h"

#include "DevConn/ConnResult.h"
#include "DevConn/UsbDeviceId.h"
#include "DevConn/UsbPrinterSearch.h"
#include "VYM/vymMac.h"
#include "VYM/vymPackets.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstring>
#include <new>

namespace {

constexpr unsigned long kLeastUsbWriteMs = 500;
constexpr unsigned long kMsPerSecond = 1000; // waits count in whole seconds
constexpr unsigned long kLookAgainMs = 1; // shorter than a reply takes; frees the processor
constexpr int kTransfers = 2; // one write, one read: no more can end during one wait
constexpr unsigned long kBulkSize = 512; // of a high-speed bulk packet
constexpr unsigned long kMostPerRead = 0xFFFFFE00; // the largest multiple that 32 bits hold
constexpr unsigned long kDeviceIdSize = 1024;
constexpr unsigned long kDeviceIdMs = 2000; // if no time-out was set
constexpr std::size_t kDeviceIdPrefix = 2;

constexpr std::uint32_t kPercentStep = 10; // a printer confirms at each of these
constexpr unsigned long kUnansweredMs = 20; // a pause that keeps the pace, instead of waiting

bool openPipes(UsbInterfaceRecord& record)
{
    std::uint8_t count = 0;
    if (!record.m_connection->pipeCount(count))
        return false;
    for (unsigned i = 1; i <= count; ++i) {
        const auto number = static_cast<std::uint8_t>(i);
        UsbPipe pipe{};
        if (!record.m_connection->pipe(number, pipe))
            return false;
        if (pipe.type == UsbPipe::Type::bulk)
            (pipe.in ? record.m_bulkIn : record.m_bulkOut) = number; // the last of its kind is used
        else if (pipe.type == UsbPipe::Type::interrupt && pipe.in)
            record.m_interruptIn = number;
    }
    return true;
}

} // namespace

void ReadCompletion(void* reference, UsbStatus result, std::uint32_t argument)
{
    auto& transport = *static_cast<DevConnUSB*>(reference);
    if (result == UsbStatus::ok)
        transport.m_bytesRead = argument;
    transport.m_readStatus = result;
    transport.m_readDone = true;
}

void WriteCompletion(void* reference, UsbStatus result)
{
    auto& transport = *static_cast<DevConnUSB*>(reference);
    transport.m_writeStatus = result;
    transport.m_writeDone = true;
}

DevConnUSB::~DevConnUSB()
{
    close();
}

long DevConnUSB::Connect(const char* /*queue*/, const char* port, unsigned short /*tcpPort*/)
{
    const HoldLock hold(m_lock);
    if (port == nullptr)
        return conn::kInvalidArgument;
    if (m_connected)
        return conn::kAlreadyConnected;
    m_interface = StdUsbOpen(port);
    if (m_interface == nullptr)
        return conn::kCannotOpen;
    CacheBuffClear();
    m_connected = true;
    return conn::kSuccess;
}

std::unique_ptr<UsbInterface> DevConnUSB::searchDevice(const char* port)
{
    try {
        return port != nullptr ? usbPrinterSearch::findPrinter(m_host, port) : nullptr;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

bool DevConnUSB::getProductName(UsbInterface& found, std::string& product)
{
    return usbDeviceId::readModel(found, product);
}

std::unique_ptr<UsbInterfaceRecord> DevConnUSB::StdUsbOpen(const char* port)
{
    try {
        auto record = std::make_unique<UsbInterfaceRecord>();
        const auto found = searchDevice(port);
        if (found == nullptr || usbDeviceId::open(*found, record->m_connection) != UsbStatus::ok
            || !openPipes(*record))
            return nullptr;
        return record;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

long DevConnUSB::SendRecvData(unsigned char* send, unsigned long sendLength, unsigned char** reply,
                              unsigned long* replyLength)
{
    const HoldLock hold(m_lock);
    return exchange(*this, kLeastUsbWriteMs, send, sendLength, reply, replyLength);
}

long DevConnUSB::GetModelName(char** model, unsigned long* length)
{
    const HoldLock hold(m_lock);
    if (model == nullptr || length == nullptr)
        return conn::kInvalidArgument;
    if (!m_connected)
        return conn::kNotConnected;
    *model = nullptr;
    *length = 0;
    std::array<unsigned char, kDeviceIdSize> reply{};
    unsigned long size = reply.size();
    if (usbGetDeviceID(reply.data(), &size) != UsbStatus::ok)
        return conn::kDeviceIdFailed;
    reply[std::min(size, kDeviceIdSize - 1)] = 0;
    const char* found = FindModelKey(reinterpret_cast<char*>(reply.data() + kDeviceIdPrefix));
    if (found == nullptr)
        return conn::kSuccess;
    const auto needed = std::strlen(found) + 1;
    auto* copy = static_cast<char*>(AllocMem(needed));
    if (copy == nullptr)
        return conn::kOutOfMemory;
    std::memcpy(copy, found, needed);
    if (!addMemList(copy)) {
        FreeMem(copy);
        return conn::kOutOfMemory;
    }
    *model = copy;
    *length = needed;
    return conn::kSuccess;
}

UsbStatus DevConnUSB::usbGetDeviceID(unsigned char* buffer, unsigned long* size)
{
    if (buffer == nullptr || size == nullptr || m_interface == nullptr)
        return UsbStatus::failed;
    return usbDeviceId::request(*m_interface->m_connection, buffer, size,
                                m_timeout != 0 ? m_timeout : kDeviceIdMs);
}

long DevConnUSB::SetTimeout(unsigned long milliseconds)
{
    return storeTimeout(milliseconds);
}

long DevConnUSB::Disconnect()
{
    const HoldLock hold(m_lock);
    if (!m_connected)
        return conn::kNotConnected;
    close();
    m_connected = false;
    return conn::kSuccess;
}

// A write has ended when it returns, so no bytes are unsent; the bus reports no end.
LinkState DevConnUSB::LookAtLink()
{
    const HoldLock hold(m_lock);
    return {0, GetCacheDataSize() != 0 || (m_readPending && m_readDone), false};
}

void DevConnUSB::close()
{
    CacheBuffClear();
    if (m_interface != nullptr && m_readPending)
        m_interface->m_connection->abort(m_interface->m_bulkIn);
    m_readPending = false;
    m_interface.reset();
    m_readBuffer.reset(); // after the connection, which may still use it
}

// Another transfer may end first; each further wait for this one then has its whole time again.
bool DevConnUSB::waitFor(const bool& done, unsigned long timeoutMs)
{
    assert(m_interface != nullptr);
    for (int ended = 0; !done && ended < kTransfers; ++ended) {
        if (!m_interface->m_connection->wait(timeoutMs / kMsPerSecond))
            break;
    }
    return done;
}

bool DevConnUSB::WritePort(const unsigned char* buffer, unsigned long length, unsigned long* sent,
                           unsigned long timeoutMs)
{
    if (buffer == nullptr || sent == nullptr)
        return false;
    *sent = 0;
    if (m_interface == nullptr)
        return false;
    auto& connection = *m_interface->m_connection;
    m_writeStatus = UsbStatus::ok;
    m_writeDone = false;
    if (!connection.startWrite(m_interface->m_bulkOut, buffer, length, &WriteCompletion, this))
        return false;
    if (!waitFor(m_writeDone, timeoutMs)) {
        connection.abort(m_interface->m_bulkOut);
        waitFor(m_writeDone, 0); // otherwise the end of this write would pass for the next one's
        return false;
    }
    if (m_writeStatus != UsbStatus::ok)
        return false;
    *sent = length;
    return true;
}

bool DevConnUSB::ReadPort(unsigned char* buffer, unsigned long length, unsigned long* received,
                          unsigned long timeoutMs)
{
    if (buffer == nullptr || received == nullptr)
        return false;
    *received = 0;
    if (length == 0)
        return true;
    if (GetCacheDataSize() >= length) {
        *received = takeCached(buffer, length);
        return true;
    }
    if (m_interface == nullptr || (!m_readPending && !startRead(length - GetCacheDataSize())))
        return false;
    m_readPending = !waitFor(m_readDone, timeoutMs);
    if (!m_readPending)
        return finishRead(buffer, length, received);
    // A wait of 0 seconds returns at once, and callers repeat it until their time is over.
    if (timeoutMs < kMsPerSecond)
        pauseMilliseconds(kLookAgainMs);
    m_interface->m_connection->wait(0);
    *received = takeCached(buffer, length);
    return true;
}

bool DevConnUSB::startRead(unsigned long missing)
{
    assert(missing > 0 && !m_readPending);
    const auto blocks = (std::min(missing, kMostPerRead) - 1) / kBulkSize + 1;
    m_readRequestSize = static_cast<std::uint32_t>(blocks * kBulkSize);
    m_bytesRead = 0;
    m_readDone = false;
    m_readStatus = UsbStatus::ok;
    m_readBuffer.reset(static_cast<unsigned char*>(AllocMem(m_readRequestSize)));
    if (m_readBuffer == nullptr)
        return false;
    if (m_interface->m_connection->startRead(m_interface->m_bulkIn, m_readBuffer.get(),
                                             m_readRequestSize, &ReadCompletion, this))
        return true;
    m_readBuffer.reset();
    return false;
}

// Gives the cached bytes first, then those of the read; the surplus goes into the cache. It fits
// unless this call wants less than the one that began the read.
bool DevConnUSB::finishRead(unsigned char* buffer, unsigned long length, unsigned long* received)
{
    const auto block = std::move(m_readBuffer);
    if (m_readStatus != UsbStatus::ok)
        return false;
    *received = takeCached(buffer, length);
    const auto arrived = std::min(m_bytesRead, m_readRequestSize);
    const auto used =
        static_cast<std::uint32_t>(std::min<unsigned long>(length - *received, arrived));
    std::memcpy(buffer + *received, block.get(), used);
    *received += used;
    SetCacheData(block.get() + used, arrived - used);
    return true;
}

unsigned long DevConnUSB::takeCached(unsigned char* buffer, unsigned long length)
{
    return GetCacheData(
        buffer,
        static_cast<std::uint32_t>(std::min<unsigned long>(length, ReceiveCache::kCapacity)));
}

bool DevConnUSB::readsReply(const unsigned char* packet, unsigned long length)
{
    // A call without a packet wants to receive.
    if (packet == nullptr || IsSendFileCheck(packet, length))
        return true;
    pauseMilliseconds(kUnansweredMs);
    return false;
}

bool DevConnUSB::IsSendFileCheck(const unsigned char* packet, unsigned long length)
{
    if (packet == nullptr)
        return false;
    const packets::FilePacket piece(packet, length);
    if (!piece.showsProgress() || piece.kind() != packets::kData)
        return true;
    // In 32 bits, dropping the overflow: printers calculate in the same way.
    const auto percent = piece.end() != 0 ? piece.start() * 100U / piece.end() : 0;
    const bool reached = percent % kPercentStep == 0 && percent != m_lastPercent;
    m_lastPercent = percent;
    return reached;
}

bool DevConnUSB::IsSendFileCmdWithComplete(const unsigned char* packet, unsigned long length)
{
    return packets::FilePacket(packet, length).isClosing();
}
