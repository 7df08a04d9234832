// SPDX-License-Identifier: MIT
// One bulk transfer at a time, with a buffer of its own: the kernel never holds a caller's memory.
//
// Owns:      the library's record and the buffer; both outlive the device's handle.
// Threads:   one at a time, its connection's. The library's callback runs on the thread that
//            handles the view's events.
// Invariant: a record or buffer that the kernel still has is neither reused nor freed.
#pragma once
#include "Platform/LibusbDevice.h"

#include <chrono>

namespace libusb {

using Clock = std::chrono::steady_clock; // the bus's time; tests cannot shorten it

// Returns when woken is set or the time is over. False if the library can read no more events.
bool handleEvents(const View& view, Clock::duration longest, int& woken);

class Transfer {
public:
    explicit Transfer(int& woken) : m_woken(woken), m_transfer(libusb_alloc_transfer(0)) { }
    // Only after its device is closed: the kernel must no longer have the buffer.
    ~Transfer() { libusb_free_transfer(m_transfer); }
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    bool start(libusb_device_handle* handle, unsigned char endpoint, const unsigned char* bytes,
               unsigned long length);
    void cancel(const View& view);
    // Resumes the pipe after the device has halted it.
    void clearHalt();
    // Takes the result of an ended transfer; on ok, bytes is the number transferred.
    UsbStatus take(std::uint32_t& bytes);

    [[nodiscard]] bool isOwed() const { return m_owed; } // the caller has not taken its result yet
    [[nodiscard]] bool isOver() const { return m_owed && (m_aborted || !m_inFlight); }
    [[nodiscard]] bool uses(unsigned char endpoint) const
    {
        return m_owed && m_transfer->endpoint == endpoint;
    }
    [[nodiscard]] const unsigned char* buffer() const { return m_buffer.get(); }

private:
    static void LIBUSB_CALL ended(libusb_transfer* transfer)
    {
        auto& self = *static_cast<Transfer*>(transfer->user_data);
        self.m_inFlight = false;
        std::atomic_ref(self.m_woken).store(1); // last: a wait that sees it also finds the end
    }
    bool makeRoom(unsigned long length);

    int& m_woken;
    libusb_transfer* m_transfer;
    std::unique_ptr<unsigned char[]> m_buffer;
    unsigned long m_room = 0;
    std::atomic<bool> m_inFlight{false};
    bool m_owed = false;
    bool m_aborted = false;
};

} // namespace libusb
