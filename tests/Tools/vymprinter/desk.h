// SPDX-License-Identifier: MIT
// A printer without a carrier, for tests: a record in memory, a session and a clock that only a
// test advances.
//
// Owns:      all of them.
// Threads:   one.
// Invariant: after send() and due(), no reply that is due remains.
#pragma once
#include "Tools/vymprinter/PrinterSession.h"
#include "tests/Tools/vymprinter/requests.h"

#include <map>
#include <memory>

namespace vymprinter {

// Keeps everything in memory and can simulate a full disk.
class MemoryRecord : public PrinterRecord {
public:
    void packet(const PacketNote& note) override { notes.push_back(note); }
    void remark(const std::string&) override { }
    bool beginFirmware(const std::string& name) override
    {
        m_name = name;
        m_arriving.clear();
        return true;
    }
    bool appendFirmware(ByteView data) override
    {
        m_arriving.insert(m_arriving.end(), data.begin(), data.end());
        return !full;
    }
    bool commitFirmware() override
    {
        if (unwritable)
            return false;
        stored[m_name] = m_arriving;
        return true;
    }
    void abandonFirmware() override { ++abandoned; }

    std::vector<PacketNote> notes;
    std::map<std::string, Bytes> stored;
    int abandoned = 0;
    bool full = false;
    bool unwritable = false; // only the last step fails

private:
    std::string m_name;
    Bytes m_arriving;
};

// A printer, an updater's connection to it and a clock.
class Desk {
public:
    explicit Desk(PrinterModel model = {}, const std::vector<std::string>& faults = {})
    {
        printer = std::make_unique<Printer>(Printer{std::move(model), {}, record});
        for (const auto& spec : faults)
            printer->faults.push_back(parseFault(spec).fault.value());
        session = connect();
    }

    std::unique_ptr<PrinterSession> connect()
    {
        return std::make_unique<PrinterSession>(*printer, now);
    }
    // Sends bytes; returns the bytes that leave the printer at once.
    Bytes send(const Bytes& bytes) { return send(*session, bytes); }
    Bytes send(PrinterSession& to, const Bytes& bytes)
    {
        to.receive(bytes);
        return due(to);
    }
    // The bytes that are due by now.
    Bytes due() { return due(*session); }
    Bytes due(PrinterSession& of)
    {
        Bytes bytes;
        do {
            of.advance(now);
            auto& parts = of.outgoing();
            while (!parts.empty() && parts.front().due <= now) {
                if (parts.front().end != LinkEnd::none)
                    end = parts.front().end;
                const auto part = parts.unsent();
                bytes.insert(bytes.end(), part.begin(), part.end());
                parts.sent(part.size());
            }
        } while (of.hasWork());
        return bytes;
    }
    Desk& entered()
    {
        send(requests::enter());
        return *this;
    }
    std::string lastVerdict() const
    {
        for (auto note = record.notes.rbegin(); note != record.notes.rend(); ++note)
            if (note->direction == Direction::in)
                return note->verdict;
        return {};
    }

    MemoryRecord record;
    std::unique_ptr<Printer> printer;
    std::unique_ptr<PrinterSession> session;
    Millis now{1000};
    LinkEnd end = LinkEnd::none;
};

inline Bytes simple(std::uint16_t code, std::uint16_t status)
{
    return encodeSimpleReply(code, status);
}
inline Bytes sendReply(std::uint16_t status)
{
    return simple(command::kSendFile, status);
}

} // namespace vymprinter
