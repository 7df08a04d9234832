// SPDX-License-Identifier: MIT
// The folder of the run logs: finds it, creates new logs, and removes the oldest ones.
//
// Owns:      nothing; the caller owns a new log's descriptor.
// Threads:   any; several processes may use one folder at the same time.
// Invariant: the newest kKeptLogs stay, whatever their size and age. Only regular files with a
//            log's name are removed, never the target of a link, and never the newly created file,
//            whatever the clock says.
// Errors:    texts for people, also for a full disk or a read-only folder.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

constexpr std::size_t kKeptLogs = 50; // always kept: a few months of an office's updates
// Older ones stay for a quarter of a year, as long as all logs together are no larger than this. A
// log has a few kilobytes, so even a thousand updates fit.
constexpr int kKeptDays = 90;
constexpr std::uintmax_t kMostLogBytes = 64UL * 1024 * 1024;

// $XDG_STATE_HOME/vymkit, or .local/state/vymkit at home; empty if neither is known.
std::string logFolder();

// run-<date>T<time>.<milliseconds>Z-<process>.log, so that names sort by time.
bool isLogName(std::string_view name);

struct NewLog {
    int descriptor = -1;
    std::string path;
    std::string problem; // why there is no log; empty if there is one
};
// The names of all logs, the newest first.
std::vector<std::string> logNames(const std::string& folder);
// Makes the folder if it is missing, and removes the oldest logs if there are too many or they are
// too large.
NewLog createLog(const std::string& folder);
