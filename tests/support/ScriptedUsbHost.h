// SPDX-License-Identifier: MIT
// A bus with scripted printers: their names and descriptors, the results of their transfers, and a
// record of the calls. Plugged in as the process's host while it lives; time is scripted, too.
#pragma once
#include "DevConn/UsbPrinterSearch.h"
#include "Platform/UsbHost.h"
#include "tests/support/ScriptedTime.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

// One interface. Reading an unset field fails.
struct ScriptedPrinter {
    std::optional<std::uint16_t> vendorId = usbPrinterSearch::makersVendorId();
    std::optional<std::uint8_t> interfaceClass = 7;
    bool parent = true;
    std::optional<std::string> serial = "S1";
    std::optional<std::string> vendorName = "Record Vendor";
    std::optional<std::string> productName = "Record Product";
    std::optional<std::string> deviceId = "MFG:Acme;CMD:X;MDL:P1;"; // after the length prefix
    std::optional<std::string> wholeReply; // replaces prefix and device ID
    std::optional<std::uint32_t> claimedLength; // of the device ID, replaces the true one
    int busyFor = 0; // this many attempts to open find it busy
    bool opens = true;
    bool forbidden = false;
    std::optional<std::uint8_t> configuration = 1;
    std::optional<std::uint8_t> number = 0;
    std::optional<std::uint8_t> alternate = 0;
    std::vector<std::optional<UsbPipe>> pipes{UsbPipe{false, UsbPipe::Type::bulk},
                                              UsbPipe{true, UsbPipe::Type::bulk}};
    bool countsPipes = true;

    struct Read {
        std::string bytes;
        int waits; // this many waits end before it arrives
        UsbStatus status;
        std::optional<std::uint32_t> claimed; // replaces the number of bytes
    };
    enum class Write { ends, fails, hangs, refused };
    std::deque<Read> reads;
    std::deque<Write> writes; // when empty: ends
    bool readsStart = true;
    bool readsEndFirst = false;

    ScriptedPrinter& sends(std::string bytes, int after = 0)
    {
        reads.push_back({std::move(bytes), after, UsbStatus::ok, {}});
        return *this;
    }
    ScriptedPrinter& isLost(int after = 0)
    {
        reads.push_back({"", after, UsbStatus::failed, {}});
        return *this;
    }

    // The calls that arrived.
    int attempts = 0;
    int open = 0; // connections now
    std::vector<UsbControlRequest> requests;
    std::vector<std::string> written;
    std::vector<unsigned long> readSizes;
    std::vector<unsigned long> waits; // seconds
    std::vector<unsigned> aborted; // pipes
    std::vector<unsigned> usedPipes;
};

class ScriptedConnection : public UsbConnection {
public:
    ScriptedConnection(ScriptedPrinter& printer, ScriptedTime& time)
        : m_printer(printer), m_time(time)
    {
        ++m_printer.open;
    }
    ~ScriptedConnection() override { --m_printer.open; }
    ScriptedConnection(const ScriptedConnection&) = delete;
    ScriptedConnection& operator=(const ScriptedConnection&) = delete;

    bool configurationValue(std::uint8_t& value) override
    {
        return give(m_printer.configuration, value);
    }
    bool interfaceNumber(std::uint8_t& number) override { return give(m_printer.number, number); }
    bool alternateSetting(std::uint8_t& setting) override
    {
        return give(m_printer.alternate, setting);
    }
    bool pipeCount(std::uint8_t& count) override
    {
        count = static_cast<std::uint8_t>(m_printer.pipes.size());
        return m_printer.countsPipes;
    }
    bool pipe(std::uint8_t number, UsbPipe& properties) override
    {
        return give(m_printer.pipes.at(number - 1U), properties);
    }

    UsbStatus controlRequest(const UsbControlRequest& request, unsigned char* buffer,
                             std::uint32_t& transferred) override
    {
        m_printer.requests.push_back(request);
        if (!m_printer.deviceId && !m_printer.wholeReply)
            return UsbStatus::failed;
        const auto reply = m_printer.wholeReply.value_or(prefixed(m_printer.deviceId.value_or("")));
        const auto length = std::min<std::size_t>(reply.size(), request.length);
        std::memcpy(buffer, reply.data(), length);
        transferred = m_printer.claimedLength.value_or(static_cast<std::uint32_t>(length));
        return UsbStatus::ok;
    }

    bool startWrite(std::uint8_t pipe, const unsigned char* bytes, unsigned long length,
                    WriteDone done, void* reference) override
    {
        m_printer.usedPipes.push_back(pipe);
        m_write = {pipe, done, reference, ScriptedPrinter::Write::ends, false};
        if (!m_printer.writes.empty()) {
            m_write.how = m_printer.writes.front();
            m_printer.writes.pop_front();
        }
        m_write.outstanding = m_write.how != ScriptedPrinter::Write::refused;
        if (m_write.outstanding)
            m_printer.written.emplace_back(reinterpret_cast<const char*>(bytes), length);
        return m_write.outstanding;
    }
    bool startRead(std::uint8_t pipe, unsigned char* buffer, unsigned long length, ReadDone done,
                   void* reference) override
    {
        m_printer.usedPipes.push_back(pipe);
        m_printer.readSizes.push_back(length);
        m_read = {pipe, buffer, length, done, reference, false, m_printer.readsStart};
        return m_printer.readsStart;
    }
    bool wait(unsigned long seconds) override
    {
        m_printer.waits.push_back(seconds);
        const bool ended =
            m_printer.readsEndFirst ? endRead() || endWrite() : endWrite() || endRead();
        if (!ended)
            m_time.advance(seconds * 1000);
        return ended;
    }
    void abort(std::uint8_t pipe) override
    {
        m_printer.aborted.push_back(pipe);
        if (m_write.outstanding && m_write.pipe == pipe)
            m_write.how = ScriptedPrinter::Write::fails;
        if (m_read.outstanding && m_read.pipe == pipe)
            m_read.aborted = true;
    }

private:
    template <typename Value> static bool give(const std::optional<Value>& from, Value& to)
    {
        to = from.value_or(to);
        return from.has_value();
    }
    static std::string prefixed(const std::string& text)
    {
        const auto length = text.size() + 2;
        return std::string{static_cast<char>(length >> 8), static_cast<char>(length)} + text;
    }
    bool endWrite()
    {
        if (!m_write.outstanding || m_write.how == ScriptedPrinter::Write::hangs)
            return false;
        m_write.outstanding = false;
        m_write.done(m_write.reference,
                     m_write.how == ScriptedPrinter::Write::ends ? UsbStatus::ok
                                                                 : UsbStatus::failed);
        return true;
    }
    bool endRead()
    {
        if (!m_read.outstanding)
            return false;
        if (m_read.aborted) {
            m_read.outstanding = false;
            m_read.done(m_read.reference, UsbStatus::failed, 0);
            return true;
        }
        if (m_printer.reads.empty() || m_printer.reads.front().waits-- > 0)
            return false;
        auto read = m_printer.reads.front();
        m_printer.reads.pop_front();
        const auto length = std::min<std::size_t>(read.bytes.size(), m_read.length);
        std::memcpy(m_read.buffer, read.bytes.data(), length);
        if (length < read.bytes.size())
            m_printer.reads.push_front({read.bytes.substr(length), 0, UsbStatus::ok, {}});
        m_read.outstanding = false;
        m_read.done(m_read.reference, read.status,
                    read.claimed.value_or(static_cast<std::uint32_t>(length)));
        return true;
    }

    struct OutstandingWrite {
        std::uint8_t pipe = 0;
        WriteDone done = nullptr;
        void* reference = nullptr;
        ScriptedPrinter::Write how = ScriptedPrinter::Write::ends;
        bool outstanding = false;
    };
    struct OutstandingRead {
        std::uint8_t pipe = 0;
        unsigned char* buffer = nullptr;
        unsigned long length = 0;
        ReadDone done = nullptr;
        void* reference = nullptr;
        bool aborted = false;
        bool outstanding = false;
    };
    ScriptedPrinter& m_printer;
    ScriptedTime& m_time;
    OutstandingWrite m_write;
    OutstandingRead m_read;
};

class ScriptedInterface : public UsbInterface {
public:
    ScriptedInterface(ScriptedPrinter& printer, ScriptedTime& time)
        : m_printer(printer), m_time(time)
    {
    }
    bool vendorId(std::uint16_t& id) override { return give(m_printer.vendorId, id); }
    bool interfaceClass(std::uint8_t& value) override
    {
        return give(m_printer.interfaceClass, value);
    }
    bool findParent() override { return m_printer.parent; }
    bool serialNumber(std::string& text) override { return give(m_printer.serial, text); }
    bool vendorName(std::string& text) override { return give(m_printer.vendorName, text); }
    bool productName(std::string& text) override { return give(m_printer.productName, text); }
    bool isForbidden() override { return m_printer.forbidden; }
    UsbStatus open(std::unique_ptr<UsbConnection>& connection) override
    {
        ++m_printer.attempts;
        if (m_printer.forbidden)
            return UsbStatus::notPermitted;
        if (m_printer.busyFor > 0) {
            --m_printer.busyFor;
            return UsbStatus::busy;
        }
        if (m_printer.open > 0) // another program holds it and never lets go
            return UsbStatus::busy;
        if (!m_printer.opens)
            return UsbStatus::failed;
        connection = std::make_unique<ScriptedConnection>(m_printer, m_time);
        return UsbStatus::ok;
    }

private:
    template <typename Value> static bool give(const std::optional<Value>& from, Value& to)
    {
        to = from.value_or(to);
        return from.has_value();
    }
    ScriptedPrinter& m_printer;
    ScriptedTime& m_time;
};

class ScriptedUsbHost : public UsbHost {
public:
    ScriptedUsbHost() { plugIn(this); }
    ~ScriptedUsbHost() override { plugIn(nullptr); }
    ScriptedUsbHost(const ScriptedUsbHost&) = delete;
    ScriptedUsbHost& operator=(const ScriptedUsbHost&) = delete;

    ScriptedPrinter& printer() { return m_printers.emplace_back(); }
    std::deque<ScriptedPrinter>& printers() { return m_printers; }
    void failWalks() { m_walkable = false; }
    // Changes the bus before the n-th walk from now (0: the next one).
    void beforeWalk(int walk, std::function<void()> change)
    {
        m_changeAt = m_walks + walk;
        m_change = std::move(change);
    }
    bool interfaces(InterfaceList& found) override
    {
        if (m_walks++ == m_changeAt)
            m_change();
        for (auto& printer : m_printers)
            found.push_back(std::make_unique<ScriptedInterface>(printer, time));
        return m_walkable;
    }
    ScriptedTime time;

private:
    std::deque<ScriptedPrinter> m_printers; // a deque, since it never moves its elements
    bool m_walkable = true;
    int m_walks = 0;
    int m_changeAt = -1;
    std::function<void()> m_change;
};
