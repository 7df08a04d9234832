// SPDX-License-Identifier: MIT
// The end of a fleet's call as values: which printers are in which class, what that means for the
// exit code, and the words for it.
//
// Owns:    its texts, by value.
// Threads: any. Pure functions.
#pragma once
#include "CLI/Fleet/MemberEnd.h"

#include <array>
#include <string>
#include <vector>

struct SummaryEntry {
    std::string printer;
    std::string message; // shown to people for printers that need attention
};

struct FleetSummary {
    std::array<std::vector<SummaryEntry>, kMemberClasses> classes;
    bool wasStopped = false; // by the user, or by the time limit of the call
    bool isCanaryBad = false; // one of the first printers did not end well
    bool hadTooManyFailures = false;

    [[nodiscard]] const std::vector<SummaryEntry>& of(MemberClass memberClass) const
    {
        return classes.at(static_cast<std::size_t>(memberClass));
    }
    void add(MemberClass memberClass, std::string printer, std::string message = {})
    {
        classes.at(static_cast<std::size_t>(memberClass))
            .push_back({std::move(printer), std::move(message)});
    }
};

int exitCodeOf(const FleetSummary& summary);
// "980 updated, 3 in need of nothing, 17 failed."; one sentence more where not all were started.
std::string countsText(const FleetSummary& summary);
// A line for each printer that did not end well, with the reason.
std::string attentionText(const FleetSummary& summary);
