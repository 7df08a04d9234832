// SPDX-License-Identifier: MIT
// Compares the product's claims about a run with what the printer has really seen. Uses no part of
// the engine: a claim is a plain value, and each returned sentence names one untruth.
//
// Threads: any; has no state.
#pragma once
#include "tests/support/PrinterLedger.h"

#include <string>
#include <vector>

// A run's claims about one firmware.
struct FirmwareClaim {
    std::string name; // towards the printer
    std::string image; // its bytes in the package
    int result = 0; // the protocol's code, 1 for success
    bool sent = false; // the run says that it sent bytes of it
    bool confirmed = false; // the run says that the printer reported the end of its writing
};

// Facts about the peer that its ledger does not hold.
struct PeerTraits {
    // It answers each packet at most once, after reading it: only such a printer's answers can be
    // trusted.
    bool honest = true;
    // The line was undisturbed: no cut, no reset, no stall.
    bool undisturbed = true;
    // Its power failed or the line went dead without a sign. If it has answered one packet before
    // that, it looks like a printer that answers its last block alone.
    bool fellSilent = false;
    // It answered within the package's times, and memory did not run out: a run has to succeed.
    bool mustSucceed = false;
    // The run was stopped or had another reason to fail: it need not end with the refusal.
    bool interrupted = false;
};

// One sentence for each false claim; empty if all claims are true.
std::vector<std::string> untruths(const std::vector<FirmwareClaim>& claims,
                                  const PrinterLedger& ledger, const PeerTraits& peer);
