// SPDX-License-Identifier: MIT
#include "tests/system/usb/BusTrace.h"

#include <algorithm>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

// The interface of the kernel's USB monitor, which has no exported header.
struct MonitorHead {
    std::uint64_t id;
    char type;
    unsigned char transferType;
    unsigned char endpoint;
    unsigned char device;
    std::uint16_t bus;
    char setupFlag;
    char dataFlag;
    std::int64_t seconds;
    std::int32_t microseconds;
    int status;
    std::uint32_t length;
    std::uint32_t captured;
    unsigned char setup[8];
    std::int32_t interval;
    std::int32_t startFrame;
    std::uint32_t flags;
    std::uint32_t descriptors;
};
static_assert(sizeof(MonitorHead) == 64);

struct MonitorGet {
    MonitorHead* head;
    void* data;
    std::size_t room;
};

constexpr unsigned long kGet = _IOW(0x92, 10, MonitorGet);
constexpr unsigned long kSetRingSize = _IO(0x92, 4);
constexpr long kRingSize = 1200 * 1024; // the largest that it allows
constexpr unsigned char kBulk = 3;
constexpr unsigned char kControl = 2;
constexpr unsigned char kInBit = 0x80;
constexpr int kLookMs = 20;
constexpr std::chrono::milliseconds kRest{60}; // for events that are still on their way

} // namespace

BusTrace::BusTrace() : m_file(::open("/dev/usbmon0", O_RDONLY | O_NONBLOCK | O_CLOEXEC))
{
    EXPECT_GE(m_file, 0) << "the kernel's USB monitor is not there";
    EXPECT_EQ(::ioctl(m_file, kSetRingSize, kRingSize), 0);
    m_reader = std::thread([this] { run(); });
}

const std::vector<BusEvent>& BusTrace::stop()
{
    if (m_reader.joinable()) {
        std::this_thread::sleep_for(kRest);
        m_stopping = true;
        m_reader.join();
        ::close(m_file);
    }
    return m_events;
}

void BusTrace::run()
{
    while (!m_stopping) {
        pollfd waiting{m_file, POLLIN, 0};
        if (::poll(&waiting, 1, kLookMs) > 0)
            readOne();
    }
}

void BusTrace::readOne()
{
    MonitorHead head{};
    std::vector<unsigned char> bytes(128);
    MonitorGet get{&head, bytes.data(), bytes.size()};
    if (::ioctl(m_file, kGet, &get) != 0)
        return;
    if (head.transferType != kBulk && head.transferType != kControl)
        return;
    bytes.resize(std::min<std::size_t>(head.captured, bytes.size()));
    m_events.push_back(
        {static_cast<BusEvent::Kind>(head.type), head.transferType == kBulk,
         (head.endpoint & kInBit) != 0,
         std::chrono::seconds(head.seconds) + std::chrono::microseconds(head.microseconds), head.id,
         head.status, head.length, std::move(bytes)});
}
