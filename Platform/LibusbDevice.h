// SPDX-License-Identifier: MIT
// Shared by the rooms of the libusb host: a view of the bus, handles that close themselves, and an
// interface according to its descriptors.
//
// Owns:    the library's objects, freed when their owner is destroyed.
// Threads: none of its own; a view's context may serve several threads at once.
#pragma once
#include "Platform/UsbHost.h"

#include <cassert>
#include <libusb-1.0/libusb.h>
#include <span>

namespace libusb {

// A snapshot of the bus: a device that is plugged in later may never appear in it.
class View {
public:
    View() = default;
    ~View()
    {
        if (m_context != nullptr)
            libusb_exit(m_context);
    }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    // Call once.
    bool open()
    {
        assert(m_context == nullptr);
        return libusb_init(&m_context) == LIBUSB_SUCCESS;
    }
    [[nodiscard]] libusb_context* context() const { return m_context; }

private:
    libusb_context* m_context = nullptr;
};
using ViewPtr = std::shared_ptr<const View>;

struct Unref {
    void operator()(libusb_device* device) const { libusb_unref_device(device); }
};
using Device = std::unique_ptr<libusb_device, Unref>;

struct Close {
    void operator()(libusb_device_handle* handle) const { libusb_close(handle); }
};
using Handle = std::unique_ptr<libusb_device_handle, Close>;

UsbStatus statusOf(int result);
// Returns the library's result; on success handle is open.
int openDevice(libusb_device& device, Handle& handle);

constexpr unsigned char kTypeMask = 0x03; // of an endpoint's attributes

struct Endpoint {
    std::uint8_t address;
    std::uint8_t attributes;
    std::uint16_t packetSize; // bytes: 64, 512 or 1024 for bulk, by the device's speed

    [[nodiscard]] bool isIn() const { return (address & LIBUSB_ENDPOINT_IN) != 0; }
    [[nodiscard]] UsbPipe::Type type() const
    {
        return static_cast<UsbPipe::Type>(attributes & kTypeMask);
    }
};

// One interface according to its descriptors, in its first setting, which is the one that the
// kernel selects for a claim.
struct Facts {
    std::uint8_t configuration;
    std::uint8_t number;
    std::uint8_t alternate;
    std::uint8_t interfaceClass;
    std::vector<Endpoint> endpoints;
};

// Copies every interface of the device's current configuration, up to a bound.
std::vector<Facts> factsOf(libusb_device& device);

// If a device's descriptors end too early, the library gives a null pointer with a positive count,
// and zeros for half-read descriptors.
template <typename Element> std::span<const Element> counted(const Element* first, int count)
{
    return {first, first != nullptr && count > 0 ? static_cast<std::size_t>(count) : 0};
}

} // namespace libusb
