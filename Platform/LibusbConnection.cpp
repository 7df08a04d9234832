// SPDX-License-Identifier: MIT
#include "Platform/LibusbConnection.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <climits>
#include <cstring>

namespace libusb {

namespace {

// The lengths of a look. A ready device takes a write within the first: 64 KiB at full speed need
// 65 ms, and a busy machine reports the end late. Replies are looked for every ten milliseconds.
constexpr std::chrono::milliseconds kWriteLook{250};
constexpr std::chrono::milliseconds kReadLook{4};
constexpr unsigned long kLongestWait = 24UL * 60 * 60; // seconds; more could overflow the clock
constexpr std::size_t kOldAnswer = 16384; // whole packets at any speed
constexpr unsigned kOldAnswerMs = 5; // an answer that is ready arrives within 1 ms
constexpr unsigned kStateMs = 200; // a device that does not answer counts as not halted
constexpr int kMostOldAnswers = 256; // 4 MiB; bounds the reading from a printer that never stops
constexpr unsigned long kLongestRequestMs = 5000; // if the caller sets no time-out

// A halt outlives the run that it ended. Clearing a pipe that is not halted would put it out of
// step with some devices, so this queries the state first.
void endHalt(libusb_device_handle* handle, unsigned char endpoint)
{
    constexpr std::uint8_t kAskEndpoint = 0x82; // a standard request to an endpoint, to be read
    constexpr unsigned char kHalted = 1;
    std::array<unsigned char, 2> state{};
    const int bytes = libusb_control_transfer(handle, kAskEndpoint, LIBUSB_REQUEST_GET_STATUS, 0,
                                              endpoint, state.data(), state.size(), kStateMs);
    if (bytes == static_cast<int>(state.size()) && (state[0] & kHalted) != 0)
        libusb_clear_halt(handle, endpoint);
}

} // namespace

// Releasing the interface brings the kernel's driver back, unless the device was pulled out.
Connection::~Connection()
{
    for (auto* transfer : {&m_write, &m_read}) {
        if (transfer->isOwed())
            transfer->cancel(*m_view);
        transfer->clearHalt();
    }
    if (m_claimed)
        libusb_release_interface(m_handle.get(), m_facts.number);
}

// The claim detaches the kernel's driver, but takes the interface from no other process. If the
// claim then fails, the driver is attached again; that has no effect while a process holds the
// interface.
UsbStatus Connection::claim()
{
    assert(!m_claimed);
    libusb_set_auto_detach_kernel_driver(m_handle.get(), 1);
    const int result = libusb_claim_interface(m_handle.get(), m_facts.number);
    m_claimed = result == LIBUSB_SUCCESS;
    if (!m_claimed)
        libusb_attach_kernel_driver(m_handle.get(), m_facts.number);
    return statusOf(result);
}

// Only before the first transfer: identifying a printer must disturb no other program.
bool Connection::begin()
{
    if (!m_claimed && claim() != UsbStatus::ok)
        return false;
    if (!m_begun)
        dropOldAnswers();
    m_begun = true;
    return true;
}

// A bus has no connections: an answer that an earlier run left unread is still due, and this run
// would take it for the answer to its first request.
void Connection::dropOldAnswers()
{
    std::array<unsigned char, kOldAnswer> old{};
    for (const auto& endpoint : m_facts.endpoints) {
        if (endpoint.type() != UsbPipe::Type::bulk)
            continue;
        endHalt(m_handle.get(), endpoint.address);
        int bytes = 0;
        for (int i = 0; endpoint.isIn() && i < kMostOldAnswers; ++i) {
            if (libusb_bulk_transfer(m_handle.get(), endpoint.address, old.data(), old.size(),
                                     &bytes, kOldAnswerMs)
                != LIBUSB_SUCCESS)
                break;
        }
    }
}

bool Connection::pipe(std::uint8_t number, UsbPipe& properties)
{
    const auto* found = endpoint(number);
    if (found == nullptr)
        return false;
    properties = {found->isIn(), found->type()};
    return true;
}

const Endpoint* Connection::bulkEndpoint(std::uint8_t pipe, bool in) const
{
    const auto* found = endpoint(pipe);
    const bool fits =
        found != nullptr && found->isIn() == in && found->type() == UsbPipe::Type::bulk;
    return fits ? found : nullptr;
}

// The library has one time-out, for the whole request. It gets the shorter of the two, since a
// reply of a few packets arrives within milliseconds or not at all. With 0 it would wait forever.
UsbStatus Connection::controlRequest(const UsbControlRequest& request, unsigned char* buffer,
                                     std::uint32_t& transferred)
{
    auto limit = kLongestRequestMs;
    if (request.completionTimeoutMs != 0)
        limit = request.completionTimeoutMs;
    if (request.noDataTimeoutMs != 0)
        limit = std::min(limit, request.noDataTimeoutMs);
    const int result = libusb_control_transfer(
        m_handle.get(), request.requestType, request.request, request.value, request.index, buffer,
        request.length, static_cast<unsigned>(std::min<unsigned long>(limit, INT_MAX)));
    if (result < 0)
        return UsbStatus::failed;
    transferred = static_cast<std::uint32_t>(result);
    return UsbStatus::ok;
}

bool Connection::startWrite(std::uint8_t pipe, const unsigned char* bytes, unsigned long length,
                            WriteDone done, void* reference)
{
    assert(done != nullptr);
    const auto* out = bulkEndpoint(pipe, false);
    if (out == nullptr || bytes == nullptr || !begin()
        || !m_write.start(m_handle.get(), out->address, bytes, length))
        return false;
    m_asked = length;
    m_writeDone = done;
    m_writeReference = reference;
    return true;
}

bool Connection::startRead(std::uint8_t pipe, unsigned char* buffer, unsigned long length,
                           ReadDone done, void* reference)
{
    assert(done != nullptr);
    const auto* in = bulkEndpoint(pipe, true);
    if (in == nullptr || buffer == nullptr || length > INT_MAX || !begin() || isReading())
        return false;
    m_surplusOwed = m_surplusSize != 0;
    m_surplusAborted = false;
    // In whole packets: one that is longer than what is left of the buffer would be an overflow.
    const auto packet = std::max<unsigned long>(in->packetSize, 1);
    const auto asked = (length + packet - 1) / packet * packet;
    if (!m_surplusOwed && !m_read.start(m_handle.get(), in->address, nullptr, asked))
        return false;
    m_readInto = buffer;
    m_readRoom = static_cast<std::uint32_t>(length);
    m_readDone = done;
    m_readReference = reference;
    return true;
}

bool Connection::tellWrite()
{
    if (!m_write.isOver())
        return false;
    std::uint32_t bytes = 0;
    const auto status = m_write.take(bytes);
    m_writeDone(m_writeReference, bytes == m_asked ? status : UsbStatus::failed);
    return true;
}

bool Connection::tellRead()
{
    if (m_surplusOwed)
        return tellSurplus();
    if (!m_read.isOver())
        return false;
    std::uint32_t bytes = 0;
    const auto status = m_read.take(bytes);
    const auto given = std::min(bytes, m_readRoom);
    std::memcpy(m_readInto, m_read.buffer(), given);
    m_surplusSize = std::min<std::uint32_t>(bytes - given, kLongestPacket);
    std::memcpy(m_surplus.data(), m_read.buffer() + given, m_surplusSize);
    m_readDone(m_readReference, status, given);
    return true;
}

bool Connection::tellSurplus()
{
    m_surplusOwed = false;
    const auto given = m_surplusAborted ? 0 : std::min(m_surplusSize, m_readRoom);
    std::memcpy(m_readInto, m_surplus.data(), given);
    m_surplusSize -= given;
    std::memmove(m_surplus.data(), m_surplus.data() + given, m_surplusSize);
    m_readDone(m_readReference, m_surplusAborted ? UsbStatus::failed : UsbStatus::ok, given);
    return true;
}

// The first look has the whole time, however late this thread is by then.
bool Connection::wait(unsigned long seconds)
{
    const auto look = m_write.isOwed() ? kWriteLook : kReadLook;
    Clock::duration left =
        seconds == 0 ? look : std::chrono::seconds(std::min(seconds, kLongestWait));
    const auto end = Clock::now() + left;
    while (m_write.isOwed() || isReading()) {
        std::atomic_ref(m_woken).store(0);
        if (tellWrite() || tellRead())
            return true;
        if (left <= Clock::duration::zero() || !handleEvents(*m_view, left, m_woken))
            break;
        left = end - Clock::now();
    }
    return false;
}

void Connection::abort(std::uint8_t pipe)
{
    const auto* found = endpoint(pipe);
    m_surplusAborted = found != nullptr && found->isIn();
    for (auto* transfer : {&m_write, &m_read}) {
        if (found != nullptr && transfer->uses(found->address))
            transfer->cancel(*m_view);
    }
}

} // namespace libusb
