// SPDX-License-Identifier: MIT
// A virtual printer inside this process, on a free loopback port: takes an update like a real one,
// keeps the digest of every firmware and a record of the conversation.
//
// Owns:      its socket and its thread, which end with it.
// Threads:   made, stopped and read on one thread; in between serves on another.
// Invariant: received() and steps() are read only after stop().
// Shares no code with the engine: it decodes the wire itself.
#pragma once
#include "Tools/vympack/Digest.h"
#include "Tools/vympack/UniqueFd.h"
#include "Tools/vymprinter/TcpServer.h"

#include <cassert>
#include <cstdint>
#include <exception>
#include <string>
#include <thread>
#include <vector>

namespace vympack {

struct ReceivedFirmware {
    std::string name; // the updater's name for it
    std::uint64_t size = 0;
    std::string sha256; // empty until it is complete
};

// Consecutive packets of one kind.
struct PrinterStep {
    std::uint16_t command = 0;
    std::string name; // of a file or firmware; empty if the packet has none
    std::uint64_t packets = 0;
    std::uint64_t bytes = 0; // of firmware
};

class DeskPrinter {
public:
    explicit DeskPrinter(vymprinter::PrinterModel model);
    DeskPrinter(const DeskPrinter&) = delete;
    DeskPrinter& operator=(const DeskPrinter&) = delete;
    ~DeskPrinter();

    // Why it cannot serve; empty if it does.
    [[nodiscard]] const std::string& error() const { return m_error; }
    [[nodiscard]] std::uint16_t port() const { return m_port; }
    // Throws what ended the printer, such as std::bad_alloc.
    void stop();
    // Complete firmware, in the order of arrival.
    [[nodiscard]] const std::vector<ReceivedFirmware>& received() const
    {
        assert(!m_thread.joinable());
        return m_record.received;
    }
    [[nodiscard]] const std::vector<PrinterStep>& steps() const
    {
        assert(!m_thread.joinable());
        return m_record.steps;
    }

private:
    struct Record final : vymprinter::PrinterRecord {
        void packet(const vymprinter::PacketNote& note) override;
        void remark(const std::string& sentence) override;
        [[nodiscard]] bool beginFirmware(const std::string& name) override;
        [[nodiscard]] bool appendFirmware(vymprinter::ByteView data) override;
        [[nodiscard]] bool commitFirmware() override;
        void abandonFirmware() override;

        std::vector<ReceivedFirmware> received;
        std::vector<PrinterStep> steps;
        ReceivedFirmware arriving;
        Sha256 digest;
    };

    void serve();
    void join();

    Record m_record;
    std::string m_error;
    std::uint16_t m_port = 0;
    UniqueFd m_stop;
    vymprinter::TcpServer m_server;
    std::exception_ptr m_failure; // of the thread
    std::thread m_thread;
};

} // namespace vympack
