// SPDX-License-Identifier: MIT
// The record of a printer's end for a process that lacks the memory for a result: prepared while
// there is some, so that a later call knows of this printer also then.
//
// Owns:      its texts.
// Threads:   one at a time.
// Invariant: one end is recorded, by write or elsewhere before done.
#pragma once
#include "CLI/Fleet/MemberOrder.h"
#include "CLI/Fleet/ResultsFile.h"
#include "CLI/LastLine.h"

class LastRecord {
public:
    // Without an order, or without results in it, nothing is ever written.
    void prepare(const std::optional<MemberOrder>& order);
    void done() { m_file.reset(); } // the end is recorded already
    // Appends the line of these facts, whole or not at all. Allocates nothing.
    void write(const LastFacts& facts) noexcept;

private:
    std::optional<ResultsFile> m_file; // while the end is not recorded
    std::string m_printer; // its key in the line
};
