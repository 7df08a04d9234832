// SPDX-License-Identifier: MIT
// One interface that this process has claimed; replaces its kernel driver until destroyed.
//
// Owns:    the device's handle, and one transfer in each direction.
// Threads: one at a time; other connections of the same view may handle its events.
#pragma once
#include "Platform/LibusbTransfer.h"

#include <array>

namespace libusb {

constexpr std::size_t kLongestPacket = 2048; // above the largest that a descriptor can name

class Connection final : public UsbConnection {
public:
    Connection(ViewPtr view, Handle handle, Facts facts)
        : m_view(std::move(view)), m_facts(std::move(facts)), m_handle(std::move(handle))
    {
    }
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    UsbStatus claim(); // detaches the kernel's driver; the first transfer claims where nothing did

    bool configurationValue(std::uint8_t& value) override
    {
        value = m_facts.configuration;
        return true;
    }
    bool interfaceNumber(std::uint8_t& number) override
    {
        number = m_facts.number;
        return true;
    }
    bool alternateSetting(std::uint8_t& setting) override
    {
        setting = m_facts.alternate;
        return true;
    }
    bool pipeCount(std::uint8_t& count) override
    {
        count = static_cast<std::uint8_t>(m_facts.endpoints.size());
        return true;
    }
    bool pipe(std::uint8_t number, UsbPipe& properties) override;
    UsbStatus controlRequest(const UsbControlRequest& request, unsigned char* buffer,
                             std::uint32_t& transferred) override;
    bool startWrite(std::uint8_t pipe, const unsigned char* bytes, unsigned long length,
                    WriteDone done, void* reference) override;
    bool startRead(std::uint8_t pipe, unsigned char* buffer, unsigned long length, ReadDone done,
                   void* reference) override;
    bool wait(unsigned long seconds) override;
    void abort(std::uint8_t pipe) override;

private:
    [[nodiscard]] const Endpoint* endpoint(std::uint8_t pipe) const
    {
        return pipe > 0 && pipe <= m_facts.endpoints.size() ? &m_facts.endpoints[pipe - 1U]
                                                            : nullptr;
    }
    [[nodiscard]] const Endpoint* bulkEndpoint(std::uint8_t pipe, bool in) const;
    bool begin();
    void dropOldAnswers();
    bool tellSurplus();
    [[nodiscard]] bool isReading() const { return m_read.isOwed() || m_surplusOwed; }
    bool tellWrite();
    bool tellRead();

    ViewPtr m_view;
    Facts m_facts;
    int m_woken = 0; // a transfer has ended; the library reads it, too: atomic access
    Transfer m_write{m_woken};
    Transfer m_read{m_woken};
    unsigned long m_asked = 0; // bytes to write
    unsigned char* m_readInto = nullptr;
    std::uint32_t m_readRoom = 0; // bytes that the caller of the read has room for
    // Bytes beyond that, since a bus gives whole packets; the next read begins with them.
    std::array<unsigned char, kLongestPacket> m_surplus{};
    std::uint32_t m_surplusSize = 0;
    bool m_surplusOwed = false; // to the read that is outstanding
    bool m_surplusAborted = false;
    WriteDone m_writeDone = nullptr;
    ReadDone m_readDone = nullptr;
    void* m_writeReference = nullptr;
    void* m_readReference = nullptr;
    bool m_claimed = false;
    bool m_begun = false; // what an earlier run left is dropped
    Handle m_handle; // last, so that it is closed before the transfers are freed
};

} // namespace libusb
