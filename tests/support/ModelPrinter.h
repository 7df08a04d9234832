// SPDX-License-Identifier: MIT
// A model of a printer: takes packets one at a time, returns for each how long the printer is busy
// and what it then answers, and keeps a ledger of both. Its manners are data, so that a seed, a
// fuzzer or a test can choose them. Knows no clock and no connection: the caller has both.
//
// Owns:      its ledger.
// Threads:   one at a time.
// Invariant: an answer enters the ledger when it has left (gave), not before.
#pragma once
#include "tests/support/PrinterLedger.h"

#include <cstdint>
#include <optional>
#include <string>

struct PrinterManners {
    // Milliseconds for which it is busy with a packet before it answers and reads the next.
    unsigned enterMs = 0;
    unsigned infoMs = 0;
    unsigned pieceMs = 0;
    unsigned lastMs = 0;
    unsigned queryMs = 0;
    unsigned exitMs = 0;

    unsigned answerEvery = 1; // answers every n-th piece; 0: only the last block
    unsigned answerCopies = 1; // more than one: not honest
    std::string unasked; // sent as soon as the connection is open: not honest
    std::optional<unsigned> garbledAnswer; // the n-th answer is replaced by garble: not honest
    std::string garble;

    std::uint16_t enterStatus = 0x80;
    std::string targetInfo;
    std::size_t infoBlock = 4096; // bytes of the description in one answer
    std::optional<unsigned> refusedPacket; // the n-th file packet of a firmware, from 0
    std::uint16_t refusal = 0x0803;
    unsigned refusalMs = 0; // busy for this much longer before it refuses
    unsigned writingAnswers = 0; // status queries answered with "writing" before "finished"
    std::uint16_t endStatus = 0x80; // of the query after those
    bool answersExit = true;
};

// The printer's reaction to one packet.
struct Reaction {
    unsigned busyMs = 0;
    std::string answer; // empty: it does not answer
    // For the ledger.
    unsigned command = 0;
    std::string firmware;
    bool last = false;
    std::uint16_t status = 0;
};

class ModelPrinter {
public:
    explicit ModelPrinter(PrinterManners manners) : m_manners(std::move(manners)) { }

    Reaction take(const std::string& packet);
    void gave(const Reaction& reaction); // call when its answer has left
    // The connection ended with these bytes of an incomplete packet.
    void lost(std::string_view rest) { m_ledger.leftOver(rest); }

    [[nodiscard]] const PrinterManners& manners() const { return m_manners; }
    [[nodiscard]] const PrinterLedger& ledger() const { return m_ledger; }

private:
    Reaction takeFile(const FilePacketView& piece);
    [[nodiscard]] std::string infoAnswer() const;
    std::string dressed(std::string answer);

    PrinterManners m_manners;
    PrinterLedger m_ledger;
    std::string m_firmware; // whose packets are arriving
    unsigned m_filePackets = 0; // of that firmware
    unsigned m_queries = 0; // of that firmware
    unsigned m_answers = 0;
    bool m_refused = false;
};
