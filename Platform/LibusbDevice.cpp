// SPDX-License-Identifier: MIT
#include "Platform/LibusbDevice.h"

#include <algorithm>

namespace libusb {

namespace {

constexpr std::uint16_t kSizeMask = 0x07FF; // the bits above count packets of other kinds
constexpr std::size_t kMostEndpoints = 30; // fifteen numbers, two directions

std::vector<Endpoint> endpointsOf(const libusb_interface_descriptor& setting)
{
    std::vector<Endpoint> endpoints;
    for (const auto& endpoint : counted(setting.endpoint, setting.bNumEndpoints)) {
        if (endpoint.bDescriptorType == LIBUSB_DT_ENDPOINT && endpoints.size() < kMostEndpoints)
            endpoints.push_back({endpoint.bEndpointAddress, endpoint.bmAttributes,
                                 static_cast<std::uint16_t>(endpoint.wMaxPacketSize & kSizeMask)});
    }
    return endpoints;
}

} // namespace

UsbStatus statusOf(int result)
{
    switch (result) {
    case LIBUSB_SUCCESS:
        return UsbStatus::ok;
    case LIBUSB_ERROR_BUSY:
        return UsbStatus::busy;
    case LIBUSB_ERROR_ACCESS:
        return UsbStatus::notPermitted;
    default:
        return UsbStatus::failed;
    }
}

int openDevice(libusb_device& device, Handle& handle)
{
    libusb_device_handle* opened = nullptr;
    const int result = libusb_open(&device, &opened);
    handle.reset(result == LIBUSB_SUCCESS ? opened : nullptr);
    return result;
}

std::vector<Facts> factsOf(libusb_device& device)
{
    std::vector<Facts> found;
    libusb_config_descriptor* raw = nullptr;
    if (libusb_get_active_config_descriptor(&device, &raw) != LIBUSB_SUCCESS || raw == nullptr)
        return found;
    const std::unique_ptr<libusb_config_descriptor, decltype(&libusb_free_config_descriptor)>
        configuration(raw, &libusb_free_config_descriptor);
    for (const auto& interface : counted(raw->interface, raw->bNumInterfaces)) {
        const auto settings = counted(interface.altsetting, interface.num_altsetting);
        if (settings.empty())
            continue;
        auto first = std::find_if(settings.begin(), settings.end(),
                                  [](const auto& one) { return one.bAlternateSetting == 0; });
        if (first == settings.end())
            first = settings.begin();
        found.push_back({raw->bConfigurationValue, first->bInterfaceNumber,
                         first->bAlternateSetting, first->bInterfaceClass, endpointsOf(*first)});
    }
    return found;
}

} // namespace libusb
