// SPDX-License-Identifier: MIT
// One TCP connection between the host's kernel and the printer, with the properties of TCP that
// matter for an update: written bytes may still be in the host's queue or unread in the printer's
// window; both are bounded; a side that closes with unread bytes, or receives bytes after its
// close, resets the connection, and the other side then loses its unread bytes.
//
// Owns:      the bytes on their way.
// Threads:   one. Its events refer to it, so it must outlive the world's last event.
// Invariant: bytes arrive in order, once, or not at all.
#pragma once
#include "tests/sim/Random.h"
#include "tests/sim/World.h"

#include <functional>
#include <string>

namespace sim {

enum class Opening { accepts, refuses, silent, noSocket };
enum class Fate {
    none,
    silence, // no more bytes get through
    reset, // both ends notice it
    printerDies, // its power fails: unread bytes are lost; it resets after its restart
    // It ends the connection: cleanly, or by a reset if bytes are unread. After a number of bytes
    // back, these are all: it has written no more of its answer.
    printerCloses,
    standstill, // no bytes get through for a while, and then all of them
};
enum class Trigger { time, bytesOut, bytesBack };

struct LinkManners {
    Opening opening = Opening::accepts;
    Micros delayOut = 0;
    Micros delayBack = 0;
    Micros perKilobyte = 0; // on the way out
    std::size_t segmentOut = 1460;
    std::size_t fragmentBack = 1460; // an answer arrives in pieces of this size
    Micros fragmentGap = 0; // the time between two of them
    std::size_t sendBuffer = 65536; // the host's
    std::size_t window = 65536; // the printer's receive buffer
    unsigned shortPercent = 0; // of calls that are incomplete or interrupted
    Fate fate = Fate::none;
    Trigger trigger = Trigger::time;
    std::uint64_t triggerAt = 0;
    Micros fateTakes = kSecond; // until the printer is back, or the line goes on
};

class Link {
public:
    Link(const LinkManners& manners, Random random) : m_manners(manners), m_random(random) { }

    // The host's side, for its system calls: -1 with errno.
    int connect();
    [[nodiscard]] bool connecting() const { return m_connecting; }
    long send(const char* bytes, std::size_t length);
    long receive(char* bytes, std::size_t length);
    [[nodiscard]] bool readable() const;
    [[nodiscard]] bool writable() const;
    [[nodiscard]] bool failed() const { return m_error != 0; }
    int takeError();
    [[nodiscard]] std::size_t unacknowledged() const
    {
        return m_outQueue.size() + m_unacknowledged;
    }
    [[nodiscard]] std::size_t waiting() const { return m_outQueue.size(); }
    void setSendBuffer(std::size_t bytes) { m_manners.sendBuffer = bytes; }
    void shutDown();
    void close();
    [[nodiscard]] bool closedByHost() const { return m_hostClosed; }
    bool oneIn100Times(unsigned percent) { return m_random.chance(percent); }
    [[nodiscard]] const LinkManners& manners() const { return m_manners; }

    // The printer's side.
    std::function<void()> onAccept;
    std::function<void()> onChange; // bytes, the end or a reset arrived
    std::string printerRead(std::size_t most);
    [[nodiscard]] std::size_t printerUnread() const { return m_printerQueue.size(); }
    [[nodiscard]] bool printerSeesEnd() const { return m_endArrived && m_printerQueue.empty(); }
    [[nodiscard]] bool printerIsCut() const { return m_printerCut; }
    bool printerSend(const std::string& bytes); // false: there is no peer
    void printerClose();

    // The link's fate has happened; a stand-still is one, too.
    [[nodiscard]] bool disturbed() const { return m_disturbed; }

private:
    void pump();
    void arriveAtPrinter(const std::string& bytes);
    void arriveAtHost(const std::string& bytes);
    void endOut();
    void resetPrinter(const char* why);
    void resetHost(int error);
    void checkFate(Trigger trigger, std::uint64_t count);
    void meetFate();
    void changed();
    [[nodiscard]] Micros due(Micros& last, Micros delay) const;

    LinkManners m_manners;
    Random m_random;
    bool m_connecting = false;
    bool m_connected = false;
    bool m_hostClosed = false;
    bool m_endQueued = false; // the host's end of the stream waits after its queue
    bool m_endSent = false;
    bool m_endArrived = false;
    bool m_silent = false; // nothing goes through
    Micros m_silentUntil = 0; // no bytes get through before
    bool m_printerCut = false; // reset, or dead
    bool m_printerClosed = false;
    bool m_printerGone = false; // it answers everything with a reset
    bool m_hostReset = false;
    bool m_hostEnd = false; // the printer's end of the stream has arrived
    bool m_answersEnd = false; // no byte of an answer arrives any more
    bool m_disturbed = false;
    bool m_fateMet = false;
    int m_error = 0;
    std::string m_outQueue; // written, not on its way
    std::size_t m_inFlight = 0;
    std::size_t m_unacknowledged = 0; // on its way, or arrived and not acknowledged yet
    std::string m_printerQueue; // arrived, not read
    std::string m_hostQueue;
    std::uint64_t m_bytesOut = 0;
    std::uint64_t m_bytesBack = 0;
    Micros m_lastOut = 0;
    Micros m_lastBack = 0;
};

} // namespace sim
