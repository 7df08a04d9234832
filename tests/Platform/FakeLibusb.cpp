// SPDX-License-Identifier: MIT
#include "tests/Platform/FakeLibusb.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <thread>

struct libusb_context { };
struct libusb_device { };
struct libusb_device_handle { };

namespace {

FakeLibusb* s_current = nullptr;
libusb_device s_device;

// A look sometimes returns early, as in the library.
constexpr std::chrono::microseconds kSlice{1000};

std::chrono::microseconds timeOf(const timeval& time)
{
    return std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_usec);
}

FakeLibusb& fake()
{
    return FakeLibusb::current();
}

} // namespace

FakeLibusb& FakeLibusb::current()
{
    if (s_current == nullptr)
        std::abort(); // use of the library after its end
    return *s_current;
}

FakeLibusb::FakeLibusb()
{
    s_current = this;
    record.idVendor = 0x1209;
    record.iManufacturer = 1;
    record.iProduct = 2;
    record.iSerialNumber = 3;
    texts = {{}, "Acme", "P1", "S1"};
    const auto endpoint = [](std::uint8_t address, std::uint8_t attributes) {
        libusb_endpoint_descriptor one{};
        one.bDescriptorType = LIBUSB_DT_ENDPOINT;
        one.bEndpointAddress = address;
        one.bmAttributes = attributes;
        return one;
    };
    endpoints = {endpoint(0x01, 2), endpoint(0x82, 2), endpoint(0x83, 3)};
    libusb_interface_descriptor setting{};
    setting.bInterfaceClass = 7;
    setting.bInterfaceNumber = 4;
    settings = {setting};
    configuration.bConfigurationValue = 1;
    configuration.bNumInterfaces = 1;
    describe();
}

FakeLibusb::~FakeLibusb()
{
    s_current = nullptr;
}

void FakeLibusb::describe()
{
    for (auto& setting : settings) {
        setting.endpoint = endpoints.data();
        setting.bNumEndpoints = static_cast<std::uint8_t>(endpoints.size());
    }
    interface = {settings.data(), static_cast<int>(settings.size())};
    configuration.interface = &interface;
}

int FakeLibusb::submit(libusb_transfer* transfer)
{
    const std::lock_guard hold(m_mutex);
    if (submitResult != 0)
        return submitResult;
    FakeEnd end;
    end.never = true;
    if (!ends.empty()) {
        end = ends.front();
        ends.pop_front();
    }
    if ((transfer->endpoint & LIBUSB_ENDPOINT_IN) != 0)
        readSizes.push_back(transfer->length);
    else
        written.emplace_back(reinterpret_cast<char*>(transfer->buffer),
                             static_cast<std::size_t>(transfer->length));
    m_inFlight.push_back({transfer, end});
    return 0;
}

int FakeLibusb::cancel(libusb_transfer* transfer)
{
    const std::lock_guard hold(m_mutex);
    for (auto& flight : m_inFlight) {
        if (flight.transfer != transfer || !cancels)
            continue;
        flight.end.never = false;
        flight.end.status = LIBUSB_TRANSFER_CANCELLED;
        return 0;
    }
    return LIBUSB_ERROR_NOT_FOUND;
}

// Reports one transfer per call, outside the lock as in the library; if none has ended, the time
// passes.
int FakeLibusb::handleEvents(const timeval& limit, int* completed)
{
    Flight ended{};
    {
        const std::lock_guard hold(m_mutex);
        if (eventsResult != 0)
            return eventsResult;
        const auto found = std::find_if(m_inFlight.begin(), m_inFlight.end(),
                                        [](const Flight& one) { return !one.end.never; });
        if (found != m_inFlight.end()) {
            ended = *found;
            m_inFlight.erase(found);
        }
    }
    if (ended.transfer == nullptr) {
        if (std::atomic_ref(*completed).load() != 0)
            return 0;
        const auto slice = std::min(timeOf(limit), kSlice);
        std::this_thread::sleep_for(slice);
        const std::lock_guard hold(m_mutex);
        waited += slice;
        return 0;
    }
    auto& transfer = *ended.transfer;
    const bool in = (transfer.endpoint & LIBUSB_ENDPOINT_IN) != 0;
    const auto length = std::min(static_cast<std::size_t>(transfer.length), ended.end.bytes.size());
    std::memcpy(transfer.buffer, ended.end.bytes.data(), in ? length : 0);
    transfer.status = ended.end.status;
    transfer.actual_length =
        ended.end.moved.value_or(in ? static_cast<int>(length) : transfer.length);
    transfer.callback(&transfer);
    return 0;
}

void FakeLibusb::forget(const libusb_device_handle* handle)
{
    const std::lock_guard hold(m_mutex);
    m_inFlight.erase(
        std::remove_if(m_inFlight.begin(), m_inFlight.end(),
                       [&](const Flight& one) { return one.transfer->dev_handle == handle; }),
        m_inFlight.end());
}

int libusb_init(libusb_context** context)
{
    if (fake().initResult != 0)
        return fake().initResult;
    ++fake().contexts;
    *context = new libusb_context;
    return 0;
}

void libusb_exit(libusb_context* context)
{
    --fake().contexts;
    delete context;
}

ssize_t libusb_get_device_list(libusb_context* /*context*/, libusb_device*** list)
{
    const auto count = fake().listResult;
    if (count < 0)
        return count;
    *list = new libusb_device* [2] {};
    if (count > 0)
        **list = libusb_ref_device(&s_device);
    return count;
}

void libusb_free_device_list(libusb_device** list, int unref)
{
    if (unref != 0 && *list != nullptr)
        libusb_unref_device(*list);
    delete[] list;
}

libusb_device* libusb_ref_device(libusb_device* device)
{
    ++fake().references;
    return device;
}

void libusb_unref_device(libusb_device* /*device*/)
{
    --fake().references;
}

int libusb_get_device_descriptor(libusb_device* /*device*/, libusb_device_descriptor* record)
{
    *record = fake().record;
    return fake().recordResult;
}

int libusb_get_active_config_descriptor(libusb_device* /*device*/,
                                        libusb_config_descriptor** configuration)
{
    if (fake().configurationResult != 0)
        return fake().configurationResult;
    ++fake().configurations;
    *configuration = &fake().configuration;
    return 0;
}

void libusb_free_config_descriptor(libusb_config_descriptor* /*configuration*/)
{
    --fake().configurations;
}

std::uint8_t libusb_get_bus_number(libusb_device* /*device*/)
{
    return 255; // the system has no record with that number
}

int libusb_get_port_numbers(libusb_device* /*device*/, std::uint8_t* ports, int length)
{
    std::fill_n(ports, length, std::uint8_t{1});
    return length;
}

int libusb_open(libusb_device* /*device*/, libusb_device_handle** handle)
{
    if (fake().openResult != 0)
        return fake().openResult;
    ++fake().handles;
    *handle = new libusb_device_handle;
    return 0;
}

void libusb_close(libusb_device_handle* handle)
{
    --fake().handles;
    fake().forget(handle);
    delete handle;
}

int libusb_set_auto_detach_kernel_driver(libusb_device_handle* /*handle*/, int enable)
{
    fake().autoDetach = enable != 0;
    return 0;
}

int libusb_kernel_driver_active(libusb_device_handle* /*handle*/, int /*number*/)
{
    return fake().driverActive ? 1 : 0;
}

int libusb_claim_interface(libusb_device_handle* /*handle*/, int number)
{
    if (number != fake().settings.front().bInterfaceNumber)
        return LIBUSB_ERROR_NOT_FOUND;
    if (fake().claimResult == 0)
        ++fake().claims;
    return fake().claimResult;
}

int libusb_release_interface(libusb_device_handle* handle, int number)
{
    if (fake().claims == 0)
        return LIBUSB_ERROR_NOT_FOUND;
    --fake().claims;
    return fake().autoDetach ? libusb_attach_kernel_driver(handle, number) : 0;
}

int libusb_attach_kernel_driver(libusb_device_handle* /*handle*/, int /*number*/)
{
    ++fake().attachedAgain;
    return 0;
}

int libusb_clear_halt(libusb_device_handle* /*handle*/, unsigned char endpoint)
{
    fake().haltsCleared.push_back(endpoint);
    if (fake().haltedPipe == endpoint)
        fake().haltedPipe = 0;
    return 0;
}

int libusb_bulk_transfer(libusb_device_handle* /*handle*/, unsigned char endpoint,
                         unsigned char* data, int length, int* transferred, unsigned /*timeout*/)
{
    if (fake().haltedPipe == endpoint)
        return LIBUSB_ERROR_PIPE;
    if (fake().oldAnswers.empty())
        return LIBUSB_ERROR_TIMEOUT;
    const auto& answer = fake().oldAnswers.front();
    *transferred = std::min(static_cast<int>(answer.size()), length);
    std::memcpy(data, answer.data(), static_cast<std::size_t>(*transferred));
    if (!fake().repeatsOldAnswer)
        fake().oldAnswers.pop_front();
    return 0;
}

int libusb_control_transfer(libusb_device_handle* /*handle*/, std::uint8_t type,
                            std::uint8_t /*request*/, std::uint16_t /*value*/, std::uint16_t index,
                            unsigned char* buffer, std::uint16_t length, unsigned timeout)
{
    constexpr std::uint8_t kToEndpoint = 0x82;
    if (type == kToEndpoint) {
        std::memset(buffer, 0, length);
        buffer[0] = fake().haltedPipe == index ? 1 : 0;
        return length;
    }
    fake().timeouts.push_back(timeout);
    if (!fake().reply)
        return LIBUSB_ERROR_TIMEOUT;
    const auto came = std::min<std::size_t>(fake().reply->size(), length);
    std::memcpy(buffer, fake().reply->data(), came);
    return static_cast<int>(came);
}

int libusb_get_string_descriptor_ascii(libusb_device_handle* /*handle*/, std::uint8_t index,
                                       unsigned char* buffer, int length)
{
    const auto& text = fake().texts.at(index);
    if (!text)
        return LIBUSB_ERROR_PIPE;
    const auto came = std::min<std::size_t>(text->size(), static_cast<std::size_t>(length));
    std::memcpy(buffer, text->data(), came);
    return static_cast<int>(came);
}

libusb_transfer* libusb_alloc_transfer(int /*packets*/)
{
    ++fake().transfers;
    return static_cast<libusb_transfer*>(std::calloc(1, sizeof(libusb_transfer)));
}

void libusb_free_transfer(libusb_transfer* transfer)
{
    --fake().transfers;
    std::free(transfer);
}

int libusb_submit_transfer(libusb_transfer* transfer)
{
    return fake().submit(transfer);
}

int libusb_cancel_transfer(libusb_transfer* transfer)
{
    return fake().cancel(transfer);
}

int libusb_handle_events_timeout_completed(libusb_context* /*context*/, timeval* limit,
                                           int* completed)
{
    return fake().handleEvents(*limit, completed);
}
