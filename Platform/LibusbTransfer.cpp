// SPDX-License-Identifier: MIT
#include "Platform/LibusbTransfer.h"

#include <algorithm>
#include <cassert>
#include <climits>
#include <cstring>
#include <new>

namespace libusb {

namespace {

constexpr std::chrono::seconds kLongestAbort{5}; // the kernel answers within a millisecond or never

} // namespace

bool handleEvents(const View& view, Clock::duration longest, int& woken)
{
    const auto time = std::chrono::ceil<std::chrono::microseconds>(longest).count();
    constexpr long kPerSecond = 1000000;
    timeval limit{time / kPerSecond, time % kPerSecond};
    const int result = libusb_handle_events_timeout_completed(view.context(), &limit, &woken);
    return result == LIBUSB_SUCCESS || result == LIBUSB_ERROR_INTERRUPTED;
}

bool Transfer::makeRoom(unsigned long length)
{
    if (length <= m_room && m_buffer != nullptr)
        return true;
    m_buffer.reset(new (std::nothrow) unsigned char[std::max(length, 1UL)]);
    m_room = m_buffer != nullptr ? length : 0;
    return m_buffer != nullptr;
}

bool Transfer::start(libusb_device_handle* handle, unsigned char endpoint,
                     const unsigned char* bytes, unsigned long length)
{
    if (m_transfer == nullptr || m_owed || m_inFlight || length > INT_MAX || !makeRoom(length))
        return false;
    if (bytes != nullptr)
        std::memcpy(m_buffer.get(), bytes, length);
    libusb_fill_bulk_transfer(m_transfer, handle, endpoint, m_buffer.get(),
                              static_cast<int>(length), &ended, this, 0);
    m_transfer->status = LIBUSB_TRANSFER_ERROR;
    m_inFlight = true;
    m_aborted = false;
    m_owed = libusb_submit_transfer(m_transfer) == LIBUSB_SUCCESS;
    if (!m_owed)
        m_inFlight = false;
    return m_owed;
}

void Transfer::cancel(const View& view)
{
    m_aborted = true;
    if (!m_inFlight)
        return;
    libusb_cancel_transfer(m_transfer); // fails if it has just ended
    for (const auto end = Clock::now() + kLongestAbort; m_inFlight && Clock::now() < end;) {
        std::atomic_ref(m_woken).store(0);
        if (m_inFlight && !handleEvents(view, end - Clock::now(), m_woken))
            break;
    }
}

void Transfer::clearHalt()
{
    if (m_owed && !m_inFlight && m_transfer->status == LIBUSB_TRANSFER_STALL)
        libusb_clear_halt(m_transfer->dev_handle, m_transfer->endpoint);
}

UsbStatus Transfer::take(std::uint32_t& bytes)
{
    assert(m_owed);
    clearHalt();
    m_owed = false;
    if (m_aborted || m_transfer->status != LIBUSB_TRANSFER_COMPLETED)
        return UsbStatus::failed;
    bytes =
        static_cast<std::uint32_t>(std::clamp(m_transfer->actual_length, 0, m_transfer->length));
    return UsbStatus::ok;
}

} // namespace libusb
