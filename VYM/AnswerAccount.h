// Counts a printer's answers against the file packets that went out. Answers carry no number: the
// first one after a last block may be that to an earlier piece. This account says whether it can
// be, how long a further answer is worth waiting for, and whether silence may end the wait.
//
// Threads:   the update worker's.
// Invariant: due() is the number of packets that were sent and not answered; an answer that comes
//            when none is due shows that the printer sends more of them than it should.
// Reads no clock: the time is what its caller says.
#pragma once
#include <cstdint>

class AnswerAccount {
public:
    // The first packet of a firmware follows. What is due from earlier ones stays due.
    void beginFile();
    // A packet is about to leave, so many percent of its file before it (100: a last block).
    void sent(std::uint64_t now, unsigned percent);
    // An answer came. early: before the last packet sent had reached the printer, so that it
    // cannot be that packet's own.
    void heard(std::uint64_t now, bool early = false);
    // An answer to a later request came: as answers come in order, none of these is due any more.
    void settle();

    [[nodiscard]] std::uint32_t due() const { return m_due; }
    // Every packet is answered, and no answer is without its packet: the last one heard is the
    // last block's own.
    [[nodiscard]] bool isComplete() const { return m_due == 0 && !m_surplus && !m_early; }
    // The printer answers later than it is asked, so that silence does not show that it has
    // nothing more to say. False for one that answers its last block alone, or the pieces that
    // begin a new tenth or are each tenth one.
    [[nodiscard]] bool isLagging() const;
    // Milliseconds of silence after which no further answer is expected; at most longestMs.
    [[nodiscard]] unsigned long patience(unsigned long longestMs) const;

private:
    [[nodiscard]] bool keepsToTenths() const;

    std::uint32_t m_due = 0;
    bool m_surplus = false;

    // Of the file that is being sent.
    bool m_lastIsOut = false;
    std::uint32_t m_pieces = 0;
    unsigned m_percent = 0; // of the last piece
    bool m_isTenth = false; // the last piece is one that printers of few answers would answer
    std::uint32_t m_heardPieces = 0; // before the last block
    std::uint32_t m_besideTenths = 0; // of these
    std::uint32_t m_heardAfterLast = 0;
    bool m_early = false; // the last answer heard cannot be the last packet's own
    std::uint64_t m_sentAt = 0; // the last packet
    std::uint64_t m_busySince = 0; // the printer has had something to answer, and has said nothing
    std::uint64_t m_longestGap = 0; // milliseconds between having something to answer and answering
    std::uint64_t m_lastGap = 0; // between the last block and the first answer after it
};
