// SPDX-License-Identifier: MIT
#include "tests/support/ModelPrinter.h"

#include "tests/support/Printer.h"

Reaction ModelPrinter::take(const std::string& packet)
{
    m_ledger.took(packet);
    Reaction reaction;
    reaction.command = commandOf(packet);
    switch (reaction.command) {
    case wire::kEnter:
        reaction.busyMs = m_manners.enterMs;
        reaction.answer = dressed(printer::enter(m_manners.enterStatus));
        break;
    case wire::kGetFile:
        reaction.busyMs = m_manners.infoMs;
        reaction.answer = dressed(infoAnswer());
        break;
    case wire::kSendFile:
        if (const auto piece = FilePacketView::of(packet))
            return takeFile(*piece);
        break;
    case wire::kQuery: {
        const bool writes = m_queries++ < m_manners.writingAnswers;
        reaction.busyMs = m_manners.queryMs;
        reaction.status = writes ? wire::kWriting : m_manners.endStatus;
        reaction.answer = dressed(printer::progress(reaction.status, 100, writes ? 50 : 100));
        break;
    }
    case wire::kLeave:
        reaction.busyMs = m_manners.exitMs;
        if (m_manners.answersExit)
            reaction.answer = dressed(printer::exit());
        break;
    default:
        break;
    }
    return reaction;
}

Reaction ModelPrinter::takeFile(const FilePacketView& piece)
{
    if (piece.name != m_firmware || piece.start == 0) {
        m_firmware = piece.name;
        m_filePackets = 0;
        m_queries = 0;
        m_refused = false;
    }
    Reaction reaction;
    reaction.command = wire::kSendFile;
    reaction.firmware = piece.name;
    reaction.last = piece.last();
    reaction.status = piece.last() ? wire::kFinished : wire::kWriting;
    reaction.busyMs = piece.last() ? m_manners.lastMs : m_manners.pieceMs;
    const unsigned number = m_filePackets++;
    const auto every = m_manners.answerEvery;
    bool answers = piece.last() || (every != 0 && number % every == every - 1);
    if (m_refused || m_manners.refusedPacket == number
        || (m_manners.refusedPacket && piece.last() && number < *m_manners.refusedPacket)) {
        answers = !m_refused || piece.last();
        reaction.busyMs += m_refused ? 0 : m_manners.refusalMs;
        reaction.status = m_manners.refusal;
        m_refused = true;
    }
    if (answers)
        reaction.answer = dressed(printer::piece(reaction.status));
    return reaction;
}

std::string ModelPrinter::infoAnswer() const
{
    const auto& text = m_manners.targetInfo;
    const auto total = static_cast<std::uint32_t>(text.size());
    std::string answer;
    for (std::size_t at = 0; at == 0 || at < text.size(); at += m_manners.infoBlock) {
        const auto data = text.substr(at, m_manners.infoBlock);
        const bool last = at + m_manners.infoBlock >= text.size();
        answer += printer::fileBlock({static_cast<std::uint16_t>(last ? wire::kFinished : 0),
                                      static_cast<std::uint32_t>(at), total,
                                      printer::byteSum(last ? text : data), data});
    }
    return answer;
}

// Applies the manners to an answer: garbled, or repeated.
std::string ModelPrinter::dressed(std::string answer)
{
    if (m_manners.garbledAnswer == m_answers++)
        return m_manners.garble;
    std::string all;
    for (unsigned i = 0; i < m_manners.answerCopies; ++i)
        all += answer;
    return all;
}

void ModelPrinter::gave(const Reaction& reaction)
{
    if (reaction.answer.empty())
        return;
    if (reaction.command == wire::kSendFile)
        m_ledger.answeredFile(reaction.firmware, reaction.last, reaction.status);
    else if (reaction.command == wire::kQuery)
        m_ledger.answeredQuery(reaction.status);
}
