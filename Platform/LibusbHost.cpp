// SPDX-License-Identifier: MIT
#include "Platform/LibusbHost.h"

#include "Platform/LibusbConnection.h"
#include "Platform/LibusbNode.h"
#include "Platform/SystemUsbHost.h"

#include <algorithm>
#include <array>
#include <fstream>

namespace {

using libusb::counted;
using libusb::Facts;
using libusb::Handle;
using libusb::View;
using libusb::ViewPtr;

constexpr std::size_t kLongestText = 256; // a string descriptor holds 126 characters

class LibusbInterface final : public UsbInterface {
public:
    LibusbInterface(ViewPtr view, libusb_device& device, const libusb_device_descriptor& record,
                    Facts facts)
        : m_view(std::move(view)), m_device(libusb_ref_device(&device)), m_record(record),
          m_facts(std::move(facts))
    {
    }

    bool vendorId(std::uint16_t& id) override
    {
        id = m_record.idVendor;
        return true;
    }
    bool interfaceClass(std::uint8_t& value) override
    {
        value = m_facts.interfaceClass;
        return true;
    }
    bool findParent() override { return true; } // an interface is found through its device
    bool serialNumber(std::string& text) override
    {
        return read(m_record.iSerialNumber, "serial", text);
    }
    bool vendorName(std::string& text) override
    {
        return read(m_record.iManufacturer, "manufacturer", text);
    }
    bool productName(std::string& text) override
    {
        return read(m_record.iProduct, "product", text);
    }
    bool isForbidden() override
    {
        Handle handle;
        return libusb::openDevice(*m_device, handle) == LIBUSB_ERROR_ACCESS;
    }
    UsbStatus open(std::unique_ptr<UsbConnection>& connection) override;
    UsbStatus openToIdentify(std::unique_ptr<UsbConnection>& connection) override;

private:
    bool read(std::uint8_t index, const char* attribute, std::string& text);
    bool readRecord(const char* attribute, std::string& text);

    ViewPtr m_view;
    libusb::Device m_device;
    libusb_device_descriptor m_record;
    Facts m_facts;
};

UsbStatus LibusbInterface::open(std::unique_ptr<UsbConnection>& connection)
{
    Handle handle;
    const int result = libusb::openDevice(*m_device, handle);
    if (result != LIBUSB_SUCCESS)
        return libusb::statusOf(result);
    const bool hasDriver = libusb_kernel_driver_active(handle.get(), m_facts.number) == 1;
    auto opened = std::make_unique<libusb::Connection>(m_view, std::move(handle), m_facts);
    // A driver that is detached while a process prints through it takes the job with it.
    auto status = UsbStatus::busy;
    if (!hasDriver || !libusb::isInUse(libusb::printerNode(libusb::folderOf(*m_device), m_facts)))
        status = opened->claim();
    if (status == UsbStatus::ok)
        connection = std::move(opened);
    return status;
}

// The kernel lets a printer's device ID be read by a process that has not claimed the interface.
UsbStatus LibusbInterface::openToIdentify(std::unique_ptr<UsbConnection>& connection)
{
    Handle handle;
    const int result = libusb::openDevice(*m_device, handle);
    if (result == LIBUSB_SUCCESS)
        connection = std::make_unique<libusb::Connection>(m_view, std::move(handle), m_facts);
    return libusb::statusOf(result);
}

bool LibusbInterface::read(std::uint8_t index, const char* attribute, std::string& text)
{
    if (index == 0)
        return false;
    Handle handle;
    const int opened = libusb::openDevice(*m_device, handle);
    if (opened == LIBUSB_ERROR_ACCESS)
        return readRecord(attribute, text);
    if (opened != LIBUSB_SUCCESS)
        return false;
    std::array<unsigned char, kLongestText> buffer{};
    const int length = libusb_get_string_descriptor_ascii(handle.get(), index, buffer.data(),
                                                          static_cast<int>(buffer.size()));
    const auto characters = counted(buffer.data(), std::min<int>(length, kLongestText));
    text.assign(characters.begin(), characters.end());
    return length >= 0;
}

// The kernel's record from plugging in, for users who may not open the device.
bool LibusbInterface::readRecord(const char* attribute, std::string& text)
{
    std::ifstream file(libusb::folderOf(*m_device) + '/' + attribute);
    std::array<char, kLongestText> line{};
    file.read(line.data(), line.size());
    text.assign(line.data(), static_cast<std::size_t>(file.gcount()));
    text.resize(std::min(text.size(), text.find('\n')));
    return !text.empty();
}

void addInterfaces(const ViewPtr& view, libusb_device& device, UsbHost::InterfaceList& found)
{
    libusb_device_descriptor record{};
    if (libusb_get_device_descriptor(&device, &record) != LIBUSB_SUCCESS)
        return;
    for (auto& facts : libusb::factsOf(device))
        found.push_back(std::make_unique<LibusbInterface>(view, device, record, std::move(facts)));
}

struct FreeList {
    void operator()(libusb_device** list) const { libusb_free_device_list(list, 1); }
};

} // namespace

bool LibusbHost::interfaces(InterfaceList& found)
{
    const auto view = std::make_shared<View>();
    if (!view->open())
        return false;
    libusb_device** devices = nullptr;
    const auto count = libusb_get_device_list(view->context(), &devices);
    if (count < 0)
        return false;
    const std::unique_ptr<libusb_device*, FreeList> list(devices);
    for (auto* device : std::span(devices, static_cast<std::size_t>(count)))
        addInterfaces(view, *device, found);
    return true;
}

UsbHost* systemUsbHost()
{
    static LibusbHost host;
    return &host;
}
