// The runs that left a log, for people who want to know what was updated when.
//
// Owns:    its texts, by value.
// Threads: any. Reads files; a log that goes meanwhile is left out.
// Invariant: every text is made fit to be shown; of a log no more than kMostHistoryBytes is read.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

// A log has a few kilobytes; what is longer was not written by a run.
constexpr std::size_t kMostHistoryBytes = 256UL * 1024;

struct PastRun {
    std::size_t number; // from 1, the newest
    std::string file; // with its folder
    std::string started; // local time, as the log has it
    std::string program;
    std::string printer; // its name, where it has one
    std::string address;
    std::string package; // the folder
    std::string result; // "1 updated"; empty for a run that has not ended
    bool hasEnded;
};

std::vector<PastRun> pastRuns(const std::string& folder); // the newest first
std::string logText(const PastRun& run); // whole lines; empty where it cannot be read
