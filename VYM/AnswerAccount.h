// SPDX-License-Identifier: MIT
// Compares the number of a printer's answers with that of the file packets sent. Answers carry no
// number: the first one after a last block may belong to an earlier piece. This account says
// whether that is possible, how long to wait for a further answer, and whether silence may end the
// wait.
//
// Threads:   the update worker's.
// Invariant: due() is the number of packets that were sent and not answered; an answer when none is
//            due shows that the printer sends too many.
// Reads no clock: the caller gives the time.
#pragma once
#include <cstdint>

class AnswerAccount {
public:
    // The first packet of a firmware follows. Answers due from earlier ones stay due.
    void beginFile();
    // A packet is about to leave; percent: the part of its file before it (100: a last block).
    void sent(std::uint64_t now, unsigned percent);
    // An answer arrived. early: before the last packet had reached the printer, so it cannot be
    // that packet's own.
    void heard(std::uint64_t now, bool early = false);
    // An answer to a later request arrived: since answers arrive in order, these are no longer due.
    void settle();

    [[nodiscard]] std::uint32_t due() const { return m_due; }
    // Packets and answers match, so the last answer is the last block's own.
    [[nodiscard]] bool isComplete() const { return m_due == 0 && !m_surplus && !m_early; }
    // The printer's answers lag behind, or one took longer than the longest wait, so silence does
    // not prove that there are no more. False for a printer that answers only its last block, the
    // pieces that begin a new tenth, or every tenth piece, and has answered all of these.
    [[nodiscard]] bool isLagging(unsigned long longestMs) const;
    // Milliseconds of silence after which no further answer is expected; at most longestMs.
    [[nodiscard]] unsigned long patience(unsigned long longestMs) const;
    // The same where an answer came in spite of such a silence: its slowest answer counts.
    [[nodiscard]] unsigned long longPatience(unsigned long longestMs) const;
    // The last block has left, so that only answers may be missing.
    [[nodiscard]] bool lastIsOut() const { return m_lastIsOut; }

private:
    [[nodiscard]] bool keepsToTenths() const;
    [[nodiscard]] bool missesTenths() const;
    [[nodiscard]] std::uint64_t pace() const { return keepsToTenths() ? m_lastGap : m_longestGap; }

    std::uint32_t m_due = 0;
    bool m_surplus = false;

    // For the file that is being sent.
    bool m_lastIsOut = false;
    std::uint32_t m_pieces = 0;
    unsigned m_percent = 0; // of the last piece
    std::uint32_t m_newTenths = 0; // pieces that began one
    bool m_isTenth = false; // printers that answer few pieces would answer the last one
    std::uint32_t m_heardPieces = 0; // before the last block
    std::uint32_t m_besideTenths = 0; // of these
    std::uint32_t m_heardAfterLast = 0;
    bool m_early = false; // the last answer cannot be the last packet's own
    std::uint64_t m_sentAt = 0; // the last packet
    std::uint64_t m_busySince = 0; // the printer has an answer to send but has sent none
    std::uint64_t m_longestGap = 0; // milliseconds between having an answer to send and sending it
    std::uint64_t m_lastGap = 0; // between the last block and the first answer after it
};
