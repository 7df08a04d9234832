// SPDX-License-Identifier: MIT
// The USB transport: the bulk pipes of one printer-class interface, found by port string and
// package description. Serves every port string that contains "usb".
//
// Owns:      the open interface and the buffer of the one read that may be outstanding.
// Threads:   as DevConnBase; transfers end while their caller waits, so one thread at a time uses a
//            connection.
// Invariant: connected means an open interface; a read is outstanding only between two calls, and
//            its buffer lives until it has ended or was aborted.
#pragma once
#include "DevConn/DevConnBase.h"
#include "DevConn/ReceiveCache.h"
#include "Platform/UsbHost.h"
#include "VYM/vymUtil.h"

// An opened printer: its interface and the numbers of its pipes, 0 for a missing pipe.
struct UsbInterfaceRecord {
    std::unique_ptr<UsbConnection> m_connection;
    std::uint8_t m_bulkOut = 0;
    std::uint8_t m_bulkIn = 0;
    std::uint8_t m_interruptIn = 0; // known, not used
};

class DevConnUSB : public DevConnBase, public PacketStream {
public:
    explicit DevConnUSB(UsbHost& host) : m_host(host) { }
    ~DevConnUSB() override;
    DevConnUSB(const DevConnUSB&) = delete;
    DevConnUSB& operator=(const DevConnUSB&) = delete;

    // queue and tcpPort are ignored here.
    long Connect(const char* queue, const char* port, unsigned short tcpPort) override;
    long SendRecvData(unsigned char* send, unsigned long sendLength, unsigned char** reply,
                      unsigned long* replyLength) override;
    // The device ID's model with its NUL, to be returned with DisposeData; success with null if the
    // device ID names no model.
    long GetModelName(char** model, unsigned long* length) override;
    long SetTimeout(unsigned long milliseconds) override;
    long Disconnect() override;
    LinkState LookAtLink() override;

    std::unique_ptr<UsbInterfaceRecord> StdUsbOpen(const char* port); // null on failure
    std::unique_ptr<UsbInterface> searchDevice(const char* port); // null: no such printer
    static bool getProductName(UsbInterface& found, std::string& product);
    UsbStatus usbGetDeviceID(unsigned char* buffer, unsigned long* size) VYM_REQUIRES(m_lock);

    // Time-outs count in whole seconds; less than one looks once.
    bool WritePort(const unsigned char* buffer, unsigned long length, unsigned long* sent,
                   unsigned long timeoutMs) override;
    // A read without bytes in time stays outstanding; the next call continues it.
    bool ReadPort(unsigned char* buffer, unsigned long length, unsigned long* received,
                  unsigned long timeoutMs) override;
    [[nodiscard]] bool peerClosed() const override { return false; } // a lost device is an error
    [[nodiscard]] bool awaitsReply(const unsigned char* /*packet*/,
                                   unsigned long /*length*/) const override
    {
        return true; // readsReply has already decided
    }
    [[nodiscard]] bool readsReply(const unsigned char* packet, unsigned long length) override;

    std::uint32_t SetCacheData(const unsigned char* data, std::uint32_t length)
    {
        return m_cache.SetCacheData(data, length);
    }
    std::uint32_t GetCacheData(unsigned char* buffer, std::uint32_t length)
    {
        return m_cache.GetCacheData(buffer, length);
    }
    void CacheBuffClear() { m_cache.CacheBuffClear(); }
    [[nodiscard]] std::uint32_t GetCacheDataSize() const { return m_cache.GetCacheDataSize(); }

    // Whether this packet waits for its reply. Of file data, only the packet that reaches a new
    // multiple of ten percent does; a second call for the same packet returns false.
    bool IsSendFileCheck(const unsigned char* packet, unsigned long length);
    // Whether it is one of the packets that close a file.
    static bool IsSendFileCmdWithComplete(const unsigned char* packet, unsigned long length);

private:
    struct Freed {
        void operator()(unsigned char* block) const { FreeMem(block); }
    };
    friend void ReadCompletion(void* reference, UsbStatus result, std::uint32_t argument);
    friend void WriteCompletion(void* reference, UsbStatus result);

    bool waitFor(const bool& done, unsigned long timeoutMs);
    bool startRead(unsigned long missing);
    bool finishRead(unsigned char* buffer, unsigned long length, unsigned long* received);
    unsigned long takeCached(unsigned char* buffer, unsigned long length);
    void close();

    UsbHost& m_host;
    std::unique_ptr<UsbInterfaceRecord> m_interface;
    ReceiveCache m_cache;
    bool m_readPending = false;
    std::unique_ptr<unsigned char, Freed> m_readBuffer; // from AllocMem
    std::uint32_t m_readRequestSize = 0;
    std::uint32_t m_lastPercent = 0;
    std::uint32_t m_bytesRead = 0;
    bool m_readDone = false;
    bool m_writeDone = false;
    UsbStatus m_readStatus = UsbStatus::ok;
    UsbStatus m_writeStatus = UsbStatus::ok;
};
