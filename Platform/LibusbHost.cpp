#include "Platform/LibusbHost.h"

#include "Platform/SystemUsbHost.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <climits>
#include <cstring>
#include <fstream>
#include <libusb-1.0/libusb.h>
#include <new>
#include <span>

namespace {

using Clock = std::chrono::steady_clock; // the bus's time: nothing to shorten here

// How long a look lasts. A write that a ready device takes is over within: 64 KiB at full speed are
// 65 ms. A reply is on its way or not: callers look for one every ten milliseconds.
constexpr std::chrono::milliseconds kWriteLook{100};
constexpr std::chrono::milliseconds kReadLook{4};
constexpr unsigned long kLongestWait = 24UL * 60 * 60; // seconds; what a clock can add
constexpr std::chrono::seconds kLongestAbort{5}; // the kernel answers within a millisecond or never
constexpr unsigned long kLongestRequestMs = 5000; // where nobody set a time-out
constexpr std::size_t kMostEndpoints = 30; // fifteen numbers, two directions
constexpr std::size_t kMostPorts = 7; // hubs in a row, and the root's
constexpr std::size_t kLongestText = 256; // a string descriptor holds 126 characters
constexpr unsigned char kTypeMask = 0x03;

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

// One view of the bus. Without a device manager's messages it never learns of what is plugged
// later.
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

    bool open() { return libusb_init(&m_context) == LIBUSB_SUCCESS; }
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

int openDevice(libusb_device& device, Handle& handle)
{
    libusb_device_handle* opened = nullptr;
    const int result = libusb_open(&device, &opened);
    handle.reset(result == LIBUSB_SUCCESS ? opened : nullptr);
    return result;
}

struct Endpoint {
    std::uint8_t address;
    std::uint8_t attributes;

    [[nodiscard]] bool isIn() const { return (address & LIBUSB_ENDPOINT_IN) != 0; }
    [[nodiscard]] UsbPipe::Type type() const
    {
        return static_cast<UsbPipe::Type>(attributes & kTypeMask);
    }
};

// One interface as its descriptors say, in its first setting: what the kernel puts it into for
// whoever claims it.
struct Facts {
    std::uint8_t configuration;
    std::uint8_t number;
    std::uint8_t alternate;
    std::uint8_t interfaceClass;
    std::vector<Endpoint> endpoints;
};

// The library gives a null pointer beside a count, and half-read descriptors as zeros, where a
// device's descriptors end too early.
template <typename Element> std::span<const Element> counted(const Element* first, int count)
{
    return {first, first != nullptr && count > 0 ? static_cast<std::size_t>(count) : 0};
}

std::vector<Endpoint> endpointsOf(const libusb_interface_descriptor& setting)
{
    std::vector<Endpoint> endpoints;
    for (const auto& endpoint : counted(setting.endpoint, setting.bNumEndpoints)) {
        if (endpoint.bDescriptorType == LIBUSB_DT_ENDPOINT && endpoints.size() < kMostEndpoints)
            endpoints.push_back({endpoint.bEndpointAddress, endpoint.bmAttributes});
    }
    return endpoints;
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

// One transfer and its own buffer. The library's callback, on whichever thread it comes, only says
// that the kernel has let go; everything else is the connection's thread.
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

bool handleEvents(const View& view, Clock::duration longest, int& woken)
{
    const auto time = std::chrono::ceil<std::chrono::microseconds>(longest).count();
    constexpr long kPerSecond = 1000000;
    timeval limit{time / kPerSecond, time % kPerSecond};
    const int result = libusb_handle_events_timeout_completed(view.context(), &limit, &woken);
    return result == LIBUSB_SUCCESS || result == LIBUSB_ERROR_INTERRUPTED;
}

void Transfer::cancel(const View& view)
{
    m_aborted = true;
    if (!m_inFlight)
        return;
    libusb_cancel_transfer(m_transfer); // fails where it has just ended
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
    clearHalt();
    m_owed = false;
    if (m_aborted || m_transfer->status != LIBUSB_TRANSFER_COMPLETED)
        return UsbStatus::failed;
    bytes =
        static_cast<std::uint32_t>(std::clamp(m_transfer->actual_length, 0, m_transfer->length));
    return UsbStatus::ok;
}

class LibusbConnection final : public UsbConnection {
public:
    LibusbConnection(ViewPtr view, Handle handle, Facts facts)
        : m_view(std::move(view)), m_facts(std::move(facts)), m_handle(std::move(handle))
    {
    }
    ~LibusbConnection() override;
    LibusbConnection(const LibusbConnection&) = delete;
    LibusbConnection& operator=(const LibusbConnection&) = delete;

    UsbStatus claim();

    bool configurationValue(std::uint8_t& value) override
    {
        value = m_facts.configuration;
        return true;
    }
    bool interfaceNumber(std::uint8_t& number) override
    {
        number = m_facts.number;
        return true;
    }
    bool alternateSetting(std::uint8_t& setting) override
    {
        setting = m_facts.alternate;
        return true;
    }
    bool pipeCount(std::uint8_t& count) override
    {
        count = static_cast<std::uint8_t>(m_facts.endpoints.size());
        return true;
    }
    bool pipe(std::uint8_t number, UsbPipe& properties) override;
    UsbStatus controlRequest(const UsbControlRequest& request, unsigned char* buffer,
                             std::uint32_t& transferred) override;
    bool startWrite(std::uint8_t pipe, const unsigned char* bytes, unsigned long length,
                    WriteDone done, void* reference) override;
    bool startRead(std::uint8_t pipe, unsigned char* buffer, unsigned long length, ReadDone done,
                   void* reference) override;
    bool wait(unsigned long seconds) override;
    void abort(std::uint8_t pipe) override;

private:
    [[nodiscard]] const Endpoint* endpoint(std::uint8_t pipe) const
    {
        return pipe > 0 && pipe <= m_facts.endpoints.size() ? &m_facts.endpoints[pipe - 1U]
                                                            : nullptr;
    }
    [[nodiscard]] const Endpoint* bulkEndpoint(std::uint8_t pipe, bool in) const;
    bool tellWrite();
    bool tellRead();

    ViewPtr m_view;
    Facts m_facts;
    int m_woken = 0; // the library's and ours, atomically: a transfer has ended
    Transfer m_write{m_woken};
    Transfer m_read{m_woken};
    unsigned long m_asked = 0; // bytes to write
    unsigned char* m_readInto = nullptr;
    WriteDone m_writeDone = nullptr;
    ReadDone m_readDone = nullptr;
    void* m_writeReference = nullptr;
    void* m_readReference = nullptr;
    bool m_claimed = false;
    Handle m_handle; // last, so that it is closed before the transfers go
};

// The kernel's driver is back once the interface is released; a device that was pulled out has
// none to give it back to.
LibusbConnection::~LibusbConnection()
{
    for (auto* transfer : {&m_write, &m_read}) {
        if (transfer->isOwed())
            transfer->cancel(*m_view);
        transfer->clearHalt();
    }
    if (m_claimed)
        libusb_release_interface(m_handle.get(), m_facts.number);
}

// With the driver's leave, and without taking it from another process. A driver that had to go for
// a claim that then failed is called back; where somebody else has the interface, that does
// nothing.
UsbStatus LibusbConnection::claim()
{
    libusb_set_auto_detach_kernel_driver(m_handle.get(), 1);
    const int result = libusb_claim_interface(m_handle.get(), m_facts.number);
    m_claimed = result == LIBUSB_SUCCESS;
    if (!m_claimed)
        libusb_attach_kernel_driver(m_handle.get(), m_facts.number);
    return statusOf(result);
}

bool LibusbConnection::pipe(std::uint8_t number, UsbPipe& properties)
{
    const auto* found = endpoint(number);
    if (found == nullptr)
        return false;
    properties = {found->isIn(), found->type()};
    return true;
}

const Endpoint* LibusbConnection::bulkEndpoint(std::uint8_t pipe, bool in) const
{
    const auto* found = endpoint(pipe);
    const bool fits =
        found != nullptr && found->isIn() == in && found->type() == UsbPipe::Type::bulk;
    return fits ? found : nullptr;
}

// The library has one time-out, for the whole of a request: the shorter one, since a reply of a few
// packets is either there within milliseconds or has not begun. Without any it would wait for ever.
UsbStatus LibusbConnection::controlRequest(const UsbControlRequest& request, unsigned char* buffer,
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

bool LibusbConnection::startWrite(std::uint8_t pipe, const unsigned char* bytes,
                                  unsigned long length, WriteDone done, void* reference)
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

bool LibusbConnection::startRead(std::uint8_t pipe, unsigned char* buffer, unsigned long length,
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

bool LibusbConnection::tellWrite()
{
    if (!m_write.isOver())
        return false;
    std::uint32_t bytes = 0;
    const auto status = m_write.take(bytes);
    m_writeDone(m_writeReference, bytes == m_asked ? status : UsbStatus::failed);
    return true;
}

bool LibusbConnection::tellRead()
{
    if (!m_read.isOver())
        return false;
    std::uint32_t bytes = 0;
    const auto status = m_read.take(bytes);
    std::memcpy(m_readInto, m_read.buffer(), bytes);
    m_readDone(m_readReference, status, bytes);
    return true;
}

bool LibusbConnection::wait(unsigned long seconds)
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

void LibusbConnection::abort(std::uint8_t pipe)
{
    const auto* found = endpoint(pipe);
    for (auto* transfer : {&m_write, &m_read}) {
        if (found != nullptr && transfer->uses(found->address))
            transfer->cancel(*m_view);
    }
}

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
        return openDevice(*m_device, handle) == LIBUSB_ERROR_ACCESS;
    }
    UsbStatus open(std::unique_ptr<UsbConnection>& connection) override;

private:
    bool read(std::uint8_t index, const char* attribute, std::string& text);
    bool readRecord(const char* attribute, std::string& text);

    ViewPtr m_view;
    Device m_device;
    libusb_device_descriptor m_record;
    Facts m_facts;
};

UsbStatus LibusbInterface::open(std::unique_ptr<UsbConnection>& connection)
{
    Handle handle;
    const int result = openDevice(*m_device, handle);
    if (result != LIBUSB_SUCCESS)
        return statusOf(result);
    auto opened = std::make_unique<LibusbConnection>(m_view, std::move(handle), m_facts);
    const auto status = opened->claim();
    if (status == UsbStatus::ok)
        connection = std::move(opened);
    return status;
}

bool LibusbInterface::read(std::uint8_t index, const char* attribute, std::string& text)
{
    if (index == 0)
        return false;
    Handle handle;
    const int opened = openDevice(*m_device, handle);
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

// What the kernel read when the device was plugged in, for whom may not ask the device.
bool LibusbInterface::readRecord(const char* attribute, std::string& text)
{
    std::array<std::uint8_t, kMostPorts> ports{};
    const int count = libusb_get_port_numbers(m_device.get(), ports.data(), kMostPorts);
    std::string name =
        "/sys/bus/usb/devices/" + std::to_string(libusb_get_bus_number(m_device.get()));
    char separator = '-';
    for (const auto port : counted(ports.data(), std::min<int>(count, kMostPorts))) {
        name += separator + std::to_string(port);
        separator = '.';
    }
    std::ifstream file(name + '/' + attribute);
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
    for (auto& facts : factsOf(device))
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
