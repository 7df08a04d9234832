// SPDX-License-Identifier: MIT
#include "VYM/AnswerAccount.h"

#include <algorithm>
#include <cassert>

namespace {

// The wait for a printer that always answers within this time is no longer than this.
constexpr unsigned long kLeastPatienceMs = 500;
// A printer's next answer may be slower than its slowest so far, but hardly twice as slow.
constexpr std::uint64_t kPatienceFactor = 2;
constexpr unsigned kTenth = 10; // percent, and pieces
constexpr unsigned kWholeFile = 100;
constexpr std::uint32_t kPattern = 2; // answers at tenths that cannot be an accident

// With a printer that takes so many milliseconds for an answer.
unsigned long patienceWith(std::uint64_t pace, unsigned long longestMs)
{
    if (pace <= kLeastPatienceMs)
        return std::min(kLeastPatienceMs, longestMs);
    return static_cast<unsigned long>(std::min<std::uint64_t>(pace * kPatienceFactor, longestMs));
}

} // namespace

void AnswerAccount::beginFile()
{
    const auto due = m_due;
    const bool surplus = m_surplus;
    *this = {};
    m_due = due;
    m_surplus = surplus;
}

void AnswerAccount::sent(std::uint64_t now, unsigned percent)
{
    assert(percent <= kWholeFile);
    if (m_due == 0)
        m_busySince = now;
    ++m_due;
    ++m_pieces;
    m_sentAt = now;
    m_lastIsOut = percent >= kWholeFile;
    const bool isNewTenth = percent % kTenth == 0 && percent != m_percent;
    m_newTenths += isNewTenth && !m_lastIsOut ? 1 : 0;
    m_isTenth = isNewTenth || m_pieces % kTenth <= 1;
    m_percent = percent;
}

void AnswerAccount::heard(std::uint64_t now, bool early)
{
    m_longestGap = std::max(m_longestGap, now - std::min(now, m_busySince));
    m_busySince = now;
    m_early = early;
    m_surplus = m_surplus || m_due == 0;
    m_due -= m_due != 0 ? 1 : 0;
    if (!m_lastIsOut) {
        ++m_heardPieces;
        m_besideTenths += m_isTenth ? 0 : 1;
    } else if (m_heardAfterLast++ == 0) {
        m_lastGap = now - std::min(now, m_sentAt);
    }
}

void AnswerAccount::settle()
{
    m_due = 0;
    m_surplus = false;
    m_early = false;
}

bool AnswerAccount::isLagging(unsigned long longestMs) const
{
    return m_surplus || m_early || m_heardAfterLast > 1 || m_besideTenths != 0 || missesTenths()
        || pace() > longestMs;
}

bool AnswerAccount::keepsToTenths() const
{
    return m_heardPieces >= kPattern && m_besideTenths == 0 && !missesTenths();
}

// It has answered tenths of this file, but fewer than there are: new multiples of 10 %, or every
// tenth piece (the 10th, 20th, ... or the 11th, 21st, ...).
bool AnswerAccount::missesTenths() const
{
    const auto before = m_pieces - std::min(m_pieces, m_lastIsOut ? 2U : 1U);
    return m_heardPieces != 0 && m_heardPieces < std::min(m_newTenths, before / kTenth);
}

unsigned long AnswerAccount::patience(unsigned long longestMs) const
{
    return patienceWith(pace(), longestMs);
}

unsigned long AnswerAccount::longPatience(unsigned long longestMs) const
{
    return patienceWith(m_longestGap, longestMs);
}
