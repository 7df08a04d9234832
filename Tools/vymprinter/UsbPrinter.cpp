// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/UsbPrinter.h"

#include <algorithm>
#include <cassert>

namespace vymprinter {
namespace {

constexpr Millis kPulledOut{3000}; // until it is plugged in again
constexpr Millis kRestart{500}; // a restarting printer is away for a moment
constexpr Millis kSilence{10000}; // longer than any host waits for an answer

} // namespace

UsbPrinter::UsbPrinter(std::unique_ptr<UsbGadget> gadget, UsbIdentity identity, Printer printer)
    : m_gadget(std::move(gadget)), m_identity(std::move(identity)),
      m_function(m_gadget->files(), m_identity), m_printer(std::move(printer)),
      m_identifying(m_printer.faults)
{
}

std::string UsbPrinter::begin()
{
    if (!m_function.error().empty())
        return m_function.error();
    return m_gadget->plugIn() ? std::string() : m_gadget->error();
}

void UsbPrinter::serve(Millis now)
{
    if (m_plugAgainAt && *m_plugAgainAt <= now) {
        m_plugAgainAt.reset();
        m_printer.record.remark(m_gadget->plugIn() ? "is plugged in again" : m_gadget->error());
    }
    m_function.collect();
    handleEvents(now);
    receive(now);
    if (m_session) {
        m_session->advance(now);
        writeDue(now);
    }
    endQuietSession(now);
}

// While an answer is withheld, the kernel would take any read of the control pipe for a refusal.
void UsbPrinter::handleEvents(Millis now)
{
    if (m_silentUntil && *m_silentUntil <= now)
        m_silentUntil.reset();
    while (!m_silentUntil) {
        switch (m_function.nextEvent()) {
        case UsbFunction::Happened::nothing:
            return;
        case UsbFunction::Happened::configured:
            m_lastMoved = now;
            break;
        case UsbFunction::Happened::gone:
        case UsbFunction::Happened::resetAsked:
            endSession();
            break;
        case UsbFunction::Happened::deviceIdAsked:
            answerDeviceId(now);
            break;
        }
    }
}

void UsbPrinter::answerDeviceId(Millis now)
{
    const auto faults = m_identifying.atRequest(Stage::deviceId);
    m_printer.record.remark("is asked for its device ID"
                            + (faults.none() ? std::string() : "; fault " + faults.names()));
    if (faults.has(FaultKind::idHalt))
        m_function.refuseDeviceId();
    else if (faults.has(FaultKind::idSilent))
        m_silentUntil = now + kSilence;
    else
        m_function.answerDeviceId();
}

void UsbPrinter::receive(Millis now)
{
    while (!m_session || m_session->wantsInput()) {
        const auto bytes = m_function.take();
        if (bytes.empty())
            return;
        m_lastMoved = now;
        if (!m_session)
            m_session.emplace(m_printer, now);
        m_session->receive(bytes);
        m_session->advance(now);
    }
}

void UsbPrinter::writeDue(Millis now)
{
    while (m_session && !m_function.writing()) {
        auto& parts = m_session->outgoing();
        if (m_owesEmptyPacket) {
            m_owesEmptyPacket = false;
            static_cast<void>(m_function.write({}));
        } else if (parts.empty() || parts.front().due > now) {
            return;
        } else if (parts.front().end != LinkEnd::none) {
            endLink(parts.front().end, now);
        } else {
            m_lastMoved = now;
            writePart();
        }
    }
}

// One request of the bus; a packet that is not full shows the end to a host that reads more than
// there is.
void UsbPrinter::writePart()
{
    auto& parts = m_session->outgoing();
    const auto rest = parts.unsent();
    const auto bytes = rest.first(std::min<std::size_t>(rest.size(), kLongestTake));
    static_cast<void>(m_function.write(bytes)); // lost if there is no host to read it
    m_owesEmptyPacket = m_identity.emptyPacketEnds && !bytes.empty() && bytes.size() == rest.size()
        && bytes.size() % kBusPacket == 0;
    parts.sent(bytes.size());
}

void UsbPrinter::endLink(LinkEnd how, Millis now)
{
    endSession();
    if (how == LinkEnd::haltIn)
        return m_function.haltIn();
    if (how == LinkEnd::haltOut)
        return m_function.haltOut();
    m_gadget->pullOut();
    m_plugAgainAt = now + (how == LinkEnd::close ? kPulledOut : kRestart);
}

// Bytes that have arrived from it are dropped.
void UsbPrinter::endSession()
{
    m_owesEmptyPacket = false;
    if (!m_session)
        return;
    m_function.dropWrite();
    while (!m_function.take().empty()) { }
    m_session.reset();
    ++m_sessionsEnded;
}

// Whether it only waits for the updater to send or read.
bool UsbPrinter::quiet() const
{
    assert(m_session.has_value());
    return m_session->stalled() || m_function.writing()
        || (!m_session->hasWork() && !m_session->busyUntil() && m_session->outgoing().empty());
}

void UsbPrinter::endQuietSession(Millis now)
{
    if (m_session && quiet() && now >= m_lastMoved + m_identity.quiet)
        endSession();
}

std::optional<Millis> UsbPrinter::nextDue() const
{
    if (m_plugAgainAt)
        return m_plugAgainAt;
    if (!m_session)
        return m_silentUntil;
    auto due = m_session->busyUntil().value_or(Millis::max());
    if (const auto& parts = m_session->outgoing(); !parts.empty())
        due = std::min(due, parts.front().due);
    if (quiet())
        due = m_lastMoved + m_identity.quiet;
    else if (m_session->hasWork())
        due = Millis(0);
    return m_silentUntil ? std::min(due, *m_silentUntil) : due;
}

} // namespace vymprinter
