// SPDX-License-Identifier: MIT
// The message at the end of a run.
//
// Owns:    nothing.
// Threads: the interface's own.
#pragma once
#include "UI/PrinterInfo.h"
#include "UI/Run/InstalledCheck.h"
#include "UI/Widgets/Alerts.h"

#include <optional>
#include <string>
#include <vector>

struct SentFirmware {
    std::string name; // as the user knows it
    bool isWhole; // every byte went out
    bool isConfirmed; // the printer reported that it has finished writing
};

// Details that technical help needs besides the result.
struct ResultFacts {
    std::vector<SentFirmware> sent; // of which bytes went out, in order
    PrinterInfo printer;
    std::string packageFolder;
    std::optional<int> heldBy; // the process of another update of the printer; 0: it is unknown
    std::string log; // its path; empty: there is no log
};

// automaticEnd: the printer leaves its update mode without a user's help.
// Has a button to query the printer if it has not confirmed something that was sent.
Alert resultMessage(int code, bool automaticEnd, const ResultFacts& facts);
// After such a query; has the button again unless all is well.
Alert installedMessage(InstalledState state);
