#include "Platform/LibusbConnection.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>

namespace libusb {

namespace {

// How long a look lasts. A write that a ready device takes is over within: 64 KiB at full speed are
// 65 ms, and a busy machine is slow to say so. Of replies there is a look every ten milliseconds.
constexpr std::chrono::milliseconds kWriteLook{250};
constexpr std::chrono::milliseconds kReadLook{4};
constexpr unsigned long kLongestWait = 24UL * 60 * 60; // seconds; what a clock can add
constexpr std::size_t kOldAnswer = 16384; // whole packets at any speed
constexpr unsigned kOldAnswerMs = 5; // what a printer holds ready comes within one
constexpr unsigned kStateMs = 200; // a device that does not tell has no halt that we know of
constexpr int kMostOldAnswers = 256; // 4 MiB; a printer that never stops is not waited for
constexpr unsigned long kLongestRequestMs = 5000; // where nobody set a time-out

// A halt outlives the run that it ended. Clearing one that is not there would put a pipe out of
// step with some devices, so it is asked for first.
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

// The kernel's driver is back once the interface is released; a device that was pulled out has
// none to give it back to.
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

// The claim itself sends the kernel's driver away, but no other process. A driver that had to go
// for a claim that then failed is called back; where somebody has the interface, that does nothing.
UsbStatus Connection::claim()
{
    libusb_set_auto_detach_kernel_driver(m_handle.get(), 1);
    const int result = libusb_claim_interface(m_handle.get(), m_facts.number);
    m_claimed = result == LIBUSB_SUCCESS;
    if (m_claimed)
        dropOldAnswers();
    else
        libusb_attach_kernel_driver(m_handle.get(), m_facts.number);
    return statusOf(result);
}

// A bus has no connections: an answer that an earlier run left unread is still due, and would be
// taken for that to this run's first request.
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

// The library has one time-out, for the whole of a request: the shorter one, since a reply of a few
// packets is either there within milliseconds or has not begun. Without any it would wait for ever.
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
    const auto* out = bulkEndpoint(pipe, false);
    if (out == nullptr || bytes == nullptr
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
    const auto* in = bulkEndpoint(pipe, true);
    if (in == nullptr || buffer == nullptr
        || !m_read.start(m_handle.get(), in->address, nullptr, length))
        return false;
    m_readInto = buffer;
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
    if (!m_read.isOver())
        return false;
    std::uint32_t bytes = 0;
    const auto status = m_read.take(bytes);
    std::memcpy(m_readInto, m_read.buffer(), bytes);
    m_readDone(m_readReference, status, bytes);
    return true;
}

bool Connection::wait(unsigned long seconds)
{
    const auto look = m_write.isOwed() ? kWriteLook : kReadLook;
    const auto end = Clock::now()
        + (seconds == 0 ? look : std::chrono::seconds(std::min(seconds, kLongestWait)));
    while (m_write.isOwed() || m_read.isOwed()) {
        std::atomic_ref(m_woken).store(0);
        if (tellWrite() || tellRead())
            return true;
        const auto left = end - Clock::now();
        if (left <= Clock::duration::zero() || !handleEvents(*m_view, left, m_woken))
            break;
    }
    return false;
}

void Connection::abort(std::uint8_t pipe)
{
    const auto* found = endpoint(pipe);
    for (auto* transfer : {&m_write, &m_read}) {
        if (found != nullptr && transfer->uses(found->address))
            transfer->cancel(*m_view);
    }
}

} // namespace libusb
