// One bulk transfer at a time, with a buffer of its own: whatever the kernel still has, no caller's
// memory is in it.
//
// Owns:      the library's record and the buffer; both outlive the device's handle.
// Threads:   one at a time, its connection's. The library's callback comes on whichever thread
//            handles the view's events.
// Invariant: a record or a buffer that the kernel has is neither used again nor freed.
#pragma once
#include "Platform/LibusbDevice.h"

#include <chrono>

namespace libusb {

using Clock = std::chrono::steady_clock; // the bus's time: nothing to shorten here

// Until woken is set or the time is over. False where the bus can no longer be listened to.
bool handleEvents(const View& view, Clock::duration longest, int& woken);

class Transfer {
public:
    explicit Transfer(int& woken) : m_woken(woken), m_transfer(libusb_alloc_transfer(0)) { }
    // Not before its device is closed: what the kernel still has must not be freed.
    ~Transfer() { libusb_free_transfer(m_transfer); }
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    bool start(libusb_device_handle* handle, unsigned char endpoint, const unsigned char* bytes,
               unsigned long length);
    void cancel(const View& view);
    // Lets the pipe go on after the device has refused it.
    void clearHalt();
    // The end, once somebody is to be told: ok, and how many bytes went.
    UsbStatus take(std::uint32_t& bytes);

    [[nodiscard]] bool isOwed() const { return m_owed; } // somebody is still to be told
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
        std::atomic_ref(self.m_woken).store(1); // last: a look between the two finds the end
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
