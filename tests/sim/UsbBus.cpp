// SPDX-License-Identifier: MIT
#include "tests/sim/UsbBus.h"

#include "DevConn/UsbPrinterSearch.h"
#include "tests/sim/World.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace sim {

namespace {

constexpr Micros kTransfer = 30; // of a packet on the bus
constexpr std::uint8_t kOut = 1;
constexpr std::uint8_t kIn = 2;

} // namespace

// One transfer of each direction at a time, as the seam demands.
class UsbBus::Connection : public UsbConnection {
public:
    explicit Connection(UsbBus& bus) : m_bus(bus) { ++s_open; }
    ~Connection() override { --s_open; }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    bool configurationValue(std::uint8_t& value) override { return give(value, 1); }
    bool interfaceNumber(std::uint8_t& number) override { return give(number, 0); }
    bool alternateSetting(std::uint8_t& setting) override { return give(setting, 0); }
    bool pipeCount(std::uint8_t& count) override { return give(count, 2); }
    bool pipe(std::uint8_t number, UsbPipe& properties) override
    {
        properties = {number == kIn, UsbPipe::Type::bulk};
        return true;
    }
    UsbStatus controlRequest(const UsbControlRequest& request, unsigned char* buffer,
                             std::uint32_t& transferred) override
    {
        constexpr std::string_view kDeviceId = "MFG:Acme;CMD:X;MDL:P1;";
        const auto length = kDeviceId.size() + 2;
        const auto reply = std::string{'\0', static_cast<char>(length)}.append(kDeviceId);
        transferred = static_cast<std::uint32_t>(std::min<std::size_t>(length, request.length));
        std::memcpy(buffer, reply.data(), transferred);
        return UsbStatus::ok;
    }
    bool startWrite(std::uint8_t /*pipe*/, const unsigned char* bytes, unsigned long length,
                    WriteDone done, void* reference) override
    {
        if (m_bus.m_cut && !m_bus.m_manners.standsStill)
            return false;
        m_bus.carryOut({reinterpret_cast<const char*>(bytes), length});
        m_write = {done, reference, m_bus.m_cut ? UsbStatus::failed : UsbStatus::ok, !stands()};
        return true;
    }
    bool startRead(std::uint8_t /*pipe*/, unsigned char* buffer, unsigned long length,
                   ReadDone done, void* reference) override
    {
        m_read = {done, reference, buffer, length, false};
        return !m_bus.m_cut || m_bus.m_manners.standsStill;
    }
    bool wait(unsigned long seconds) override
    {
        World::current().spend(kTransfer);
        if (endWrite() || endRead())
            return true;
        const bool isOutstanding = m_write.done != nullptr || m_read.done != nullptr;
        if (isOutstanding && seconds != 0)
            World::current().sleepMilliseconds(seconds * 1000);
        return false;
    }
    void abort(std::uint8_t pipe) override
    {
        if (pipe == kOut)
            m_write.status = UsbStatus::failed;
        m_write.ends = m_write.ends || pipe == kOut;
        m_read.aborted = m_read.aborted || pipe == kIn;
    }

private:
    static bool give(std::uint8_t& to, std::uint8_t value)
    {
        to = value;
        return true;
    }
    [[nodiscard]] bool stands() const { return m_bus.m_cut && m_bus.m_manners.standsStill; }
    bool endWrite()
    {
        if (m_write.done == nullptr || !m_write.ends)
            return false;
        std::exchange(m_write.done, nullptr)(m_write.reference, m_write.status);
        return true;
    }
    bool endRead()
    {
        if (m_read.done == nullptr)
            return false;
        std::string bytes;
        if (!m_read.aborted)
            bytes = m_bus.carryBack(m_read.length);
        const bool failed = m_read.aborted || (bytes.empty() && m_bus.m_cut && !stands());
        if (!failed && bytes.empty())
            return false;
        std::memcpy(m_read.buffer, bytes.data(), bytes.size());
        std::exchange(m_read.done, nullptr)(m_read.reference,
                                            failed ? UsbStatus::failed : UsbStatus::ok,
                                            static_cast<std::uint32_t>(bytes.size()));
        return true;
    }

    struct {
        WriteDone done = nullptr; // null: there is no transfer
        void* reference = nullptr;
        UsbStatus status = UsbStatus::ok;
        bool ends = true;
    } m_write;
    struct {
        ReadDone done = nullptr;
        void* reference = nullptr;
        unsigned char* buffer = nullptr;
        unsigned long length = 0;
        bool aborted = false;
    } m_read;
    UsbBus& m_bus;
};

class UsbBus::Interface : public UsbInterface {
public:
    explicit Interface(UsbBus& bus) : m_bus(bus) { }

    bool vendorId(std::uint16_t& id) override
    {
        id = usbPrinterSearch::makersVendorId();
        return true;
    }
    bool interfaceClass(std::uint8_t& value) override
    {
        value = 7; // of printers
        return true;
    }
    bool findParent() override { return true; }
    bool serialNumber(std::string& text) override { return !(text = "S1").empty(); }
    bool vendorName(std::string& text) override { return !(text = "Acme").empty(); }
    bool productName(std::string& text) override { return !(text = "P1").empty(); }
    bool isForbidden() override { return false; }
    UsbStatus open(std::unique_ptr<UsbConnection>& connection) override
    {
        connection = std::make_unique<Connection>(m_bus);
        return UsbStatus::ok;
    }

private:
    UsbBus& m_bus;
};

UsbBus::UsbBus(const UsbManners& manners, ModelPrinter& printer)
    : m_manners(manners), m_printer(printer)
{
    plugIn(this);
}

bool UsbBus::interfaces(InterfaceList& found)
{
    found.push_back(std::make_unique<Interface>(*this));
    return true;
}

void UsbBus::carryOut(std::string_view bytes)
{
    if (m_cut)
        return;
    const auto length = std::min<std::uint64_t>(bytes.size(), m_manners.bytesOut);
    m_cut = length < bytes.size();
    m_manners.bytesOut -= m_manners.bytesOut != UsbManners::kNever ? length : 0;
    m_line.add(bytes.substr(0, length));
    while (const auto packet = m_line.next()) {
        const auto reaction = m_printer.take(*packet);
        m_answers += reaction.answer;
        if (!reaction.answer.empty())
            m_printer.gave(reaction);
    }
}

// The last bytes before the cut still arrive, as a transfer that is shorter than its answer.
std::string UsbBus::carryBack(std::size_t most)
{
    const auto length = std::min<std::uint64_t>({m_answers.size(), most, m_manners.bytesBack});
    m_cut = m_cut || length < std::min<std::uint64_t>(m_answers.size(), most);
    m_manners.bytesBack -= m_manners.bytesBack != UsbManners::kNever ? length : 0;
    auto bytes = m_answers.substr(0, length);
    m_answers.erase(0, length);
    if (m_cut)
        m_answers.clear();
    return bytes;
}

} // namespace sim
