// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/UsbFunction.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/usb/ch9.h>
#include <linux/usb/functionfs.h>
#include <unistd.h>

namespace vymprinter {
namespace {

constexpr std::size_t kSlots = 32; // packets that may arrive while the program is busy
constexpr std::size_t kWriteTag = kSlots; // after those of the slots

// Requests of the printer class to its interface.
constexpr std::uint8_t kFromInterface = USB_DIR_IN | USB_TYPE_CLASS | USB_RECIP_INTERFACE;
constexpr std::uint8_t kToInterface = USB_DIR_OUT | USB_TYPE_CLASS | USB_RECIP_INTERFACE;
constexpr std::uint8_t kGetDeviceId = 0;
constexpr std::uint8_t kGetPortStatus = 1;
constexpr std::uint8_t kSoftReset = 2;
constexpr std::array<std::uint8_t, 1> kReadyStatus = {0x18}; // selected, no error, paper

std::uint16_t fromLittleEndian(__le16 value)
{
    std::array<std::uint8_t, 2> bytes{};
    std::memcpy(bytes.data(), &value, sizeof value);
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}

// Ignores the result: if the host has gone, the next event reports that.
void answer(int control, ByteView bytes)
{
    static_cast<void>(!::write(control, bytes.data(), bytes.size()));
}

// A transfer in the opposite direction of the request makes the kernel refuse it.
void refuse(int control, bool in)
{
    char nothing = 0;
    static_cast<void>(!(in ? ::read(control, &nothing, 0) : ::write(control, &nothing, 0)));
}

void acknowledge(int control)
{
    char nothing = 0;
    static_cast<void>(!::read(control, &nothing, 0));
}

bool writeAll(int file, const Bytes& bytes)
{
    return ::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
}

} // namespace

UsbFunction::UsbFunction(std::filesystem::path files, UsbIdentity identity)
    : m_identity(std::move(identity)), m_files(std::move(files)), m_slots(kSlots),
      m_queue(kSlots + 1)
{
    for (auto& slot : m_slots)
        slot.buffer.resize(m_identity.take);
    m_control = open("ep0");
    if (!m_error.empty())
        return;
    if (!m_queue.valid() || !writeAll(m_control.get(), functionDescriptors())
        || !writeAll(m_control.get(), functionStrings())) {
        m_error = "the kernel does not take the printer's interface: "
            + std::string(std::strerror(errno));
        return;
    }
    m_out = open("ep1");
    m_in = open("ep2");
    m_interrupt = open("ep3");
}

FileHandle UsbFunction::open(const char* name)
{
    const auto path = m_files / name;
    FileHandle file(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    if (!file.valid())
        m_error = "cannot open " + path.string() + ": " + std::strerror(errno);
    return file;
}

UsbFunction::Happened UsbFunction::nextEvent()
{
    usb_functionfs_event event{};
    if (::read(m_control.get(), &event, sizeof event) != sizeof event)
        return Happened::nothing;
    switch (event.type) {
    case FUNCTIONFS_ENABLE:
        start();
        return Happened::configured;
    case FUNCTIONFS_DISABLE:
    case FUNCTIONFS_UNBIND:
        m_configured = false;
        return Happened::gone;
    case FUNCTIONFS_SETUP:
        return request(event);
    default:
        return nextEvent();
    }
}

UsbFunction::Happened UsbFunction::request(const usb_functionfs_event& event)
{
    const auto& setup = event.u.setup;
    if (setup.bRequestType == kFromInterface && setup.bRequest == kGetDeviceId) {
        m_deviceIdAsked = fromLittleEndian(setup.wLength);
        return Happened::deviceIdAsked;
    }
    if (setup.bRequestType == kFromInterface && setup.bRequest == kGetPortStatus) {
        answer(m_control.get(), kReadyStatus);
    } else if (setup.bRequestType == kToInterface && setup.bRequest == kSoftReset) {
        acknowledge(m_control.get());
        return Happened::resetAsked;
    } else {
        refuse(m_control.get(), (setup.bRequestType & USB_DIR_IN) != 0);
    }
    return nextEvent();
}

void UsbFunction::answerDeviceId()
{
    const auto reply = deviceIdReply(m_identity);
    answer(m_control.get(), ByteView(reply).first(std::min(reply.size(), m_deviceIdAsked)));
}

void UsbFunction::refuseDeviceId()
{
    refuse(m_control.get(), true);
}

void UsbFunction::start()
{
    m_configured = true;
    queueFreeSlots();
}

// Uses the slots in turn, so that packets keep their order.
void UsbFunction::queueFreeSlots()
{
    while (m_configured) {
        auto& slot = m_slots[m_nextQueued];
        if (slot.outstanding || slot.arrived
            || !m_queue.read(m_out.get(), slot.buffer, m_nextQueued))
            return;
        slot.outstanding = true;
        m_nextQueued = (m_nextQueued + 1) % m_slots.size();
    }
}

void UsbFunction::collect()
{
    for (const auto& end : m_queue.ended()) {
        if (end.tag == kWriteTag) {
            m_writing = false;
            continue;
        }
        auto& slot = m_slots.at(end.tag);
        slot.outstanding = false;
        slot.arrived = true;
        slot.size = end.result > 0 ? static_cast<std::size_t>(end.result) : 0;
    }
}

Bytes UsbFunction::take()
{
    Bytes bytes;
    while (bytes.empty() && m_slots[m_nextTaken].arrived) {
        auto& slot = m_slots[m_nextTaken];
        bytes.assign(slot.buffer.begin(),
                     slot.buffer.begin() + static_cast<std::ptrdiff_t>(slot.size));
        slot.arrived = false;
        m_nextTaken = (m_nextTaken + 1) % m_slots.size();
    }
    queueFreeSlots();
    return bytes;
}

bool UsbFunction::write(ByteView bytes)
{
    assert(!m_writing);
    m_writeBuffer.assign(bytes.begin(), bytes.end());
    m_writing = m_configured && m_queue.write(m_in.get(), m_writeBuffer, kWriteTag);
    return m_writing;
}

void UsbFunction::dropWrite()
{
    if (m_writing)
        m_queue.cancel(kWriteTag);
}

// A transfer in the wrong direction makes the kernel halt a pipe.
void UsbFunction::haltIn()
{
    char nothing = 0;
    static_cast<void>(!::read(m_in.get(), &nothing, sizeof nothing));
}

void UsbFunction::haltOut()
{
    const char nothing = 0;
    static_cast<void>(!::write(m_out.get(), &nothing, sizeof nothing));
}

} // namespace vymprinter
