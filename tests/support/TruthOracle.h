// Holds what the product claims about a run against what the printer has really seen. Knows no
// engine: a claim is a plain value, and each sentence that comes back names one untruth.
//
// Threads: any; keeps nothing.
#pragma once
#include "tests/support/PrinterLedger.h"

#include <string>
#include <vector>

// What a run claims about one firmware.
struct FirmwareClaim {
    std::string name; // towards the printer
    std::string image; // its bytes in the package
    int result = 0; // the protocol's code, 1 for success
    bool sent = false; // the run says that bytes of it went out
    bool confirmed = false; // the run says that the printer reported the end of its writing
};

// What is known about the peer beside its ledger.
struct PeerTraits {
    // It answers each packet at most once, after it has taken it: only such a printer can be held
    // to its word.
    bool honest = true;
    // Nothing came between it and the host: no cut, no reset, no stand-still.
    bool undisturbed = true;
    // Its answers came within the package's times, and no memory ran out: a run has to succeed.
    bool mustSucceed = false;
    // The run was stopped, or could fail for a reason of its own: a refusal need not be its end.
    bool interrupted = false;
};

// One sentence for each claim that is not true; empty when all of them are.
std::vector<std::string> untruths(const std::vector<FirmwareClaim>& claims,
                                  const PrinterLedger& ledger, const PeerTraits& peer);
