// SPDX-License-Identifier: MIT
// One connection to a printer: bytes from an updater go in, replies with their times come out.
// The carrier (a TCP socket, a USB gadget) only moves the bytes:
//   receive() the arrived bytes, advance() the printer, then send the due parts of outgoing().
//
// Owns:      bytes that are not handled yet, replies that are not sent yet, and download mode while
//            this session holds it.
// Threads:   one, the same for all sessions of a Printer.
// Invariant: a session that has broken off handles no more packets; at most one session of a
//            Printer holds download mode, and its end leaves that mode.
// Does no I/O and reads no clock: the caller gives the time.
#pragma once
#include "Tools/vymprinter/Download.h"
#include "Tools/vymprinter/FileBlocks.h"
#include "Tools/vymprinter/ReplyQueue.h"
#include "Tools/vymprinter/RequestBuffer.h"

namespace vymprinter {

class PrinterSession;
class SessionRecorder;

// One printer, shared by its sessions; must outlive them.
struct Printer {
    PrinterModel model;
    std::vector<Fault> faults;
    PrinterRecord& record;
    std::uint64_t faultyConnections = 0; // faults strike these first ones; 0: all
    std::uint64_t connections = 0; // ever made
    const PrinterSession* downloading = nullptr; // the session that is in download mode
    std::optional<Millis> backAt{}; // it is restarting until then; Millis::max(): for ever
    SessionRecorder* recorder = nullptr; // of the first connection, if requested
};

class PrinterSession {
public:
    PrinterSession(Printer& printer, Millis now);
    ~PrinterSession();
    PrinterSession(const PrinterSession&) = delete;
    PrinterSession& operator=(const PrinterSession&) = delete;

    // Bytes have arrived. While !wantsInput() they only wait. Must not be called after
    // inputEnded().
    void receive(ByteView bytes);
    // Handles as much as possible now.
    void advance(Millis now);
    // The updater will send no more bytes.
    void inputEnded() { m_inputEnded = true; }

    // Whether advance() has work to do, for example after leaving replies have made room.
    [[nodiscard]] bool hasWork() const;
    // The time until which it only works on a packet.
    [[nodiscard]] std::optional<Millis> busyUntil() const { return m_busyUntil; }
    // False while the printer does not read: it has stalled, has broken off, or is busy.
    [[nodiscard]] bool wantsInput() const;
    [[nodiscard]] bool stalled() const { return m_stalled; }
    // All work is done: the updater has finished and every reply has left.
    [[nodiscard]] bool finished() const;
    [[nodiscard]] ReplyQueue& outgoing() { return m_outgoing; }
    [[nodiscard]] const ReplyQueue& outgoing() const { return m_outgoing; }

private:
    [[nodiscard]] bool handleFront(Millis now);
    [[nodiscard]] bool worksOn(ByteView packet, Millis now);
    void handle(const Request& request, Millis now);
    void enter(const Request& request, const FaultSet& faults, Millis now);
    void getFile(const Request& request, const FaultSet& faults, Millis now);
    void sendFile(const Request& request, const FaultSet& faults, Millis now);
    void statusQuery(const Request& request, const FaultSet& faults, Millis now);
    void exit(const Request& request, const FaultSet& faults, Millis now);

    [[nodiscard]] FaultSet faultsAt(const Request& request);
    [[nodiscard]] bool repliesTo(const Request& request, std::uint16_t status,
                                 const FaultSet& faults) const;
    // Whether the piece is the first of a new tenth of its file.
    [[nodiscard]] bool reachesTenth(const Request& request);
    [[nodiscard]] std::uint32_t writtenBy(Millis now) const;
    [[nodiscard]] bool inDownloadMode() const { return m_printer.downloading == this; }
    void leaveDownloadMode();
    void restart(const FaultSet& faults, Millis now);
    // Performs close, reset and stall; returns whether one of them struck.
    bool breakOff(const FaultSet& faults, Millis now);
    void end(LinkEnd how, Millis now);
    void die(Millis now);
    void sendNextBlock(Millis now);
    void answer(const Request& request, const Verdict& verdict, const FaultSet& faults, Millis now);
    [[nodiscard]] PacketNote sentNote(std::uint16_t code, std::uint16_t status, Millis now) const;
    void reply(Bytes bytes, PacketNote note, const FaultSet& faults);
    void note(const Request& request, const std::string& verdict, const FaultSet& faults,
              Millis now);
    void remark(const std::string& sentence);

    Printer& m_printer;
    const std::uint64_t m_number; // this connection's, from 1
    const std::uint32_t m_packetLimit;
    FaultPlan m_plan;
    RequestBuffer m_input;
    ReplyQueue m_outgoing;
    Download m_download;
    std::optional<FileBlocks> m_blocks; // the file that is being sent
    FaultSet m_blockFaults;
    std::uint64_t m_firmwareBytes = 0; // received in handled packets
    std::uint32_t m_lastPercent = 0; // at the last piece of any file
    bool m_tenthReached = false; // by that piece
    Millis m_writingSince{0};
    std::optional<Millis> m_busyUntil; // with the packet at the front
    bool m_inputEnded = false;
    bool m_stalled = false;
    bool m_brokenOff = false;
};

} // namespace vymprinter
