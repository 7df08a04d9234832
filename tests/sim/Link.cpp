// SPDX-License-Identifier: MIT
#include "tests/sim/Link.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace sim {

namespace {

constexpr Micros kRetransmitted = 900 * kSecond; // how long a kernel retries without an answer
constexpr std::size_t kHostWindow = 1 << 20; // answers are small: never full

World& world()
{
    return World::current();
}

} // namespace

Micros Link::due(Micros& last, Micros delay) const
{
    last = std::max({last, world().now() + delay, m_silentUntil});
    return last;
}

int Link::connect()
{
    m_connecting = true;
    const auto roundTrip = m_manners.delayOut + m_manners.delayBack;
    switch (m_manners.opening) {
    case Opening::refuses:
        world().in(roundTrip, [this] { resetHost(ECONNREFUSED); });
        break;
    case Opening::accepts:
        if (m_manners.fate != Fate::none && m_manners.trigger == Trigger::time)
            world().in(m_manners.triggerAt, [this] { meetFate(); });
        world().in(roundTrip, [this] {
            if (m_silent || m_hostClosed)
                return;
            m_connecting = false;
            m_connected = true;
            world().trace("link     is open");
            if (onAccept)
                onAccept();
        });
        break;
    default:
        world().in(130 * kSecond, [this] { resetHost(ETIMEDOUT); }); // when the system gives up
        break;
    }
    errno = EINPROGRESS;
    return -1;
}

bool Link::readable() const
{
    return !m_hostQueue.empty() || m_hostEnd || m_error != 0;
}

bool Link::writable() const
{
    return m_error != 0 || (m_connected && unacknowledged() < m_manners.sendBuffer);
}

int Link::takeError()
{
    return std::exchange(m_error, 0);
}

long Link::send(const char* bytes, std::size_t length)
{
    if (m_error != 0) {
        errno = takeError();
        return -1;
    }
    if (!m_connected || m_hostReset || m_endQueued) {
        errno = EPIPE;
        return -1;
    }
    const auto room = m_manners.sendBuffer - std::min(unacknowledged(), m_manners.sendBuffer);
    auto taken = std::min(length, room);
    if (taken != 0 && oneIn100Times(m_manners.shortPercent))
        taken = m_random.below(taken + 1);
    if (taken == 0 && length != 0) {
        errno = EAGAIN;
        return -1;
    }
    m_outQueue.append(bytes, taken);
    pump();
    return static_cast<long>(taken);
}

long Link::receive(char* bytes, std::size_t length)
{
    if (!m_hostQueue.empty()) {
        auto taken = std::min(length, m_hostQueue.size());
        if (oneIn100Times(m_manners.shortPercent)) {
            errno = EINTR;
            return -1;
        }
        std::copy_n(m_hostQueue.data(), taken, bytes);
        m_hostQueue.erase(0, taken);
        return static_cast<long>(taken);
    }
    if (m_error != 0) {
        errno = takeError();
        return -1;
    }
    if (m_hostEnd || m_hostReset)
        return 0;
    errno = EAGAIN;
    return -1;
}

// Sends as much of the host's queue as fits into the printer's window.
void Link::pump()
{
    while (!m_outQueue.empty() && !m_silent && !m_hostReset) {
        const auto held = m_printerQueue.size() + m_inFlight;
        const auto room = m_manners.window - std::min(held, m_manners.window);
        const auto length = std::min({m_outQueue.size(), room, m_manners.segmentOut});
        if (length == 0)
            break;
        auto segment = m_outQueue.substr(0, length);
        m_outQueue.erase(0, length);
        m_inFlight += length;
        m_unacknowledged += length;
        const auto when =
            due(m_lastOut, m_manners.delayOut + m_manners.perKilobyte * length / 1024);
        world().at(when, [this, segment = std::move(segment)] { arriveAtPrinter(segment); });
    }
    if (m_outQueue.empty() && m_endQueued && !m_endSent && !m_hostReset)
        endOut();
}

void Link::endOut()
{
    m_endSent = true;
    world().at(due(m_lastOut, m_manners.delayOut), [this] {
        if (m_silent)
            return;
        m_endArrived = true;
        changed();
    });
}

void Link::arriveAtPrinter(const std::string& bytes)
{
    m_inFlight -= bytes.size();
    if (m_silent)
        return;
    if (m_printerGone || m_printerClosed) {
        world().at(due(m_lastBack, m_manners.delayBack), [this] { resetHost(ECONNRESET); });
        return;
    }
    if (m_printerCut)
        return;
    m_printerQueue += bytes;
    m_bytesOut += bytes.size();
    const auto length = bytes.size();
    world().at(due(m_lastBack, m_manners.delayBack), [this, length] {
        if (!m_silent)
            m_unacknowledged -= length;
    });
    checkFate(Trigger::bytesOut, m_bytesOut);
    changed();
}

std::string Link::printerRead(std::size_t most)
{
    auto taken = m_printerQueue.substr(0, most);
    m_printerQueue.erase(0, taken.size());
    // The window opens again when the news reaches the host.
    world().at(due(m_lastBack, m_manners.delayBack), [this] { pump(); });
    return taken;
}

bool Link::printerSend(const std::string& bytes)
{
    if (m_printerCut || m_printerClosed)
        return false;
    for (std::size_t at = 0; at < bytes.size(); at += m_manners.fragmentBack) {
        const auto part = bytes.substr(at, m_manners.fragmentBack);
        const auto gap = at == 0 ? 0 : m_manners.fragmentGap;
        const auto when = std::max(due(m_lastBack, m_manners.delayBack), m_lastBack + gap);
        m_lastBack = when;
        world().at(when, [this, part] { arriveAtHost(part); });
    }
    return true;
}

void Link::arriveAtHost(const std::string& bytes)
{
    if (m_silent || m_hostReset || m_answersEnd)
        return;
    if (m_hostClosed) { // they can no longer be read: the kernel resets the connection
        world().at(due(m_lastOut, m_manners.delayOut),
                   [this] { resetPrinter("bytes for a closed socket"); });
        m_hostReset = true;
        return;
    }
    m_hostQueue.append(bytes, 0, kHostWindow);
    m_bytesBack += bytes.size();
    checkFate(Trigger::bytesBack, m_bytesBack);
}

void Link::shutDown()
{
    m_endQueued = true;
    pump();
}

void Link::close()
{
    m_hostClosed = true;
    if (m_connecting || m_hostReset)
        return;
    if (!m_hostQueue.empty()) {
        world().trace(
            "link     is reset by our close: %zu answers' bytes unread, %zu bytes not gone",
            m_hostQueue.size(), unacknowledged());
        m_hostReset = true;
        m_outQueue.clear();
        world().at(due(m_lastOut, m_manners.delayOut),
                   [this] { resetPrinter("the host's close with unread bytes"); });
        return;
    }
    shutDown();
}

void Link::resetPrinter(const char* why)
{
    if (m_silent || m_printerCut)
        return;
    world().trace("link     resets the printer, which loses %zu bytes: %s", m_printerQueue.size(),
                  why);
    m_printerQueue.clear();
    m_printerCut = true;
    changed();
}

void Link::resetHost(int error)
{
    if (m_hostReset || m_silent)
        return;
    world().trace("link     fails for the host: error %d", error);
    m_connecting = false;
    m_hostReset = true;
    m_outQueue.clear();
    m_error = error;
}

void Link::printerClose()
{
    if (m_printerCut || m_printerClosed)
        return;
    m_printerClosed = true;
    if (!m_printerQueue.empty()) {
        m_printerQueue.clear();
        world().at(due(m_lastBack, m_manners.delayBack), [this] { resetHost(ECONNRESET); });
        return;
    }
    world().at(due(m_lastBack, m_manners.delayBack), [this] {
        if (!m_silent)
            m_hostEnd = true;
    });
}

void Link::checkFate(Trigger trigger, std::uint64_t count)
{
    if (m_manners.fate != Fate::none && m_manners.trigger == trigger
        && count >= m_manners.triggerAt)
        meetFate();
}

void Link::meetFate()
{
    if (std::exchange(m_fateMet, true))
        return;
    m_disturbed = true;
    world().trace("link     meets its fate (%d) with %zu bytes unread at the printer",
                  static_cast<int>(m_manners.fate), m_printerQueue.size());
    switch (m_manners.fate) {
    case Fate::silence:
        m_silent = true;
        world().in(kRetransmitted, [this] {
            m_silent = false;
            resetHost(ETIMEDOUT);
            m_silent = true;
        });
        break;
    case Fate::reset:
        resetPrinter("the line");
        resetHost(ECONNRESET);
        break;
    case Fate::printerDies:
        m_printerQueue.clear();
        m_printerCut = true;
        m_silent = true;
        changed();
        world().in(m_manners.fateTakes, [this] {
            m_silent = false;
            m_printerGone = true;
            if (unacknowledged() != 0) // the kernel retries
                resetHost(ECONNRESET);
        });
        break;
    case Fate::printerCloses:
        m_answersEnd = m_manners.trigger == Trigger::bytesBack;
        printerClose();
        changed();
        break;
    case Fate::standstill:
        m_silentUntil = world().now() + m_manners.fateTakes;
        break;
    case Fate::none:
        break;
    }
}

void Link::changed()
{
    if (onChange)
        onChange();
}

} // namespace sim
