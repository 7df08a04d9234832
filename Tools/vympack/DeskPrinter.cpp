// SPDX-License-Identifier: MIT
#include "Tools/vympack/DeskPrinter.h"

#include <cerrno>
#include <cstdint>
#include <sys/eventfd.h>
#include <system_error>

namespace vympack {

namespace {

constexpr std::uint32_t kLoopback = 0x7F000001; // 127.0.0.1
constexpr std::uint16_t kAnyPort = 0;

} // namespace

DeskPrinter::DeskPrinter(vymprinter::PrinterModel model) : m_stop(::eventfd(0, EFD_CLOEXEC))
{
    auto listening = vymprinter::listenOn({kLoopback, kAnyPort});
    m_error = listening.error;
    if (m_error.empty() && !m_stop.isOpen())
        m_error = std::generic_category().message(errno);
    if (!m_error.empty())
        return;
    m_port = listening.endpoint.port;
    m_server.add(std::move(listening), {std::move(model), {}, m_record});
    m_thread = std::thread([this] { serve(); });
}

DeskPrinter::~DeskPrinter()
{
    join();
}

void DeskPrinter::serve()
{
    try {
        m_server.run(m_stop.get());
    } catch (const std::exception&) {
        m_failure = std::current_exception();
    }
    m_server = {}; // closes its connections, so that the update does not wait for an answer
}

void DeskPrinter::join()
{
    if (!m_thread.joinable())
        return;
    ::eventfd_write(m_stop.get(), 1);
    m_thread.join();
}

void DeskPrinter::stop()
{
    join();
    if (m_failure != nullptr)
        std::rethrow_exception(m_failure);
}

void DeskPrinter::Record::packet(const vymprinter::PacketNote& note)
{
    if (note.direction != vymprinter::Direction::in)
        return;
    const bool isSame =
        !steps.empty() && steps.back().command == note.command && steps.back().name == note.name;
    if (!isSame)
        steps.push_back({note.command, note.name, 0, 0});
    ++steps.back().packets;
    steps.back().bytes += note.count;
}

void DeskPrinter::Record::remark(const std::string& /*sentence*/) { }

bool DeskPrinter::Record::beginFirmware(const std::string& name)
{
    arriving = {name, 0, {}};
    digest = {};
    return true;
}

bool DeskPrinter::Record::appendFirmware(vymprinter::ByteView data)
{
    addTo(digest, data.data(), data.size());
    arriving.size += data.size();
    return true;
}

bool DeskPrinter::Record::commitFirmware()
{
    arriving.sha256 = hexOf(digest);
    received.push_back(std::move(arriving));
    return true;
}

void DeskPrinter::Record::abandonFirmware()
{
    arriving = {};
}

} // namespace vympack
