// SPDX-License-Identifier: MIT
// The past runs with a log, for people who want to know what was updated when.
//
// Owns:    its texts, by value.
// Threads: any. Reads files; leaves out a log that is removed meanwhile.
// Invariant: every text is safe to show; at most kMostHistoryBytes of a log are read.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

// A log has a few kilobytes; no run writes a longer one.
constexpr std::size_t kMostHistoryBytes = 256UL * 1024;

struct PastRun {
    std::size_t number; // from 1, the newest
    std::string file; // with its folder
    std::string started; // local time, from the log
    std::string program;
    std::string printer; // its name, if it has one
    std::string address;
    std::string package; // the folder
    std::string result; // "1 updated"; empty for a run that has not ended
    bool hasEnded;
    // Of a query after the end: "verified"; empty without one, and in the logs of older programs.
    std::string verdict = {};
};

std::vector<PastRun> pastRuns(const std::string& folder); // the newest first
// The newest run of the printer at this address, if that has not ended: it was cut off, or is still
// going on. Looks at the newest kKeptLogs only.
std::optional<PastRun> unfinishedRun(const std::string& folder, const std::string& address);
std::string logText(const PastRun& run); // whole lines; empty if it cannot be read
