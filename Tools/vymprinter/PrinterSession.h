// One connection to a printer: bytes from an updater go in, replies with their times come out.
// The carrier (a TCP socket, a USB gadget) moves the bytes and nothing else:
//   receive() what arrived, advance() the printer, then send what outgoing() says is due.
//
// Owns:      what arrived and is not handled yet, what is not sent yet, and download mode while
//            this session holds it.
// Threads:   one, the same for all sessions of a Printer.
// Invariant: a session that has broken off handles nothing more; download mode is held by at most
//            one session of a Printer and is left when that one ends.
// Does no I/O and reads no clock: the time is what its caller says.
#pragma once
#include "Tools/vymprinter/Download.h"
#include "Tools/vymprinter/FileBlocks.h"
#include "Tools/vymprinter/ReplyQueue.h"
#include "Tools/vymprinter/RequestBuffer.h"

namespace vymprinter {

class PrinterSession;
class SessionRecorder;

// One printer on the desk, shared by its sessions and outliving them.
struct Printer {
    PrinterModel model;
    std::vector<Fault> faults;
    PrinterRecord& record;
    std::uint64_t faultyConnections = 0; // faults strike these first ones; 0: all
    std::uint64_t connections = 0; // ever made
    const PrinterSession* downloading = nullptr; // the session that is in download mode
    SessionRecorder* recorder = nullptr; // of the first connection, where one is wanted
};

class PrinterSession {
public:
    PrinterSession(Printer& printer, Millis now);
    ~PrinterSession();
    PrinterSession(const PrinterSession&) = delete;
    PrinterSession& operator=(const PrinterSession&) = delete;

    // Bytes arrived. Not to be called while !wantsInput().
    void receive(ByteView bytes);
    // Handles what can be handled now.
    void advance(Millis now);
    // The updater will send nothing more.
    void inputEnded() { m_inputEnded = true; }

    // Whether advance() would do something; so after replies have made room by leaving.
    [[nodiscard]] bool hasWork() const;
    // It works on a packet until then, and does nothing else.
    [[nodiscard]] std::optional<Millis> busyUntil() const { return m_busyUntil; }
    // False while the printer does not read: it has stalled, broken off, or has enough to do.
    [[nodiscard]] bool wantsInput() const;
    [[nodiscard]] bool stalled() const { return m_stalled; }
    // Nothing is left to do: the updater has finished and every reply has left.
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
    // Acts on close, reset and stall; says whether one of them struck.
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
    std::optional<FileBlocks> m_blocks; // the file that is being handed out
    FaultSet m_blockFaults;
    std::uint64_t m_firmwareBytes = 0; // received in packets that are handled
    std::uint32_t m_lastPercent = 0; // at the last piece, of whichever file
    bool m_tenthReached = false; // by it
    Millis m_writingSince{0};
    std::optional<Millis> m_busyUntil; // with the packet at the front
    bool m_inputEnded = false;
    bool m_stalled = false;
    bool m_brokenOff = false;
};

} // namespace vymprinter
