// The folder of the run logs: where it is, a new file in it, and the oldest files gone.
//
// Owns:      nothing; a new log's descriptor is its caller's.
// Threads:   any; several processes may use one folder at the same time.
// Invariant: the newest kKeptLogs stay, whatever their size and age; only regular files with a
// log's name are ever removed, never what a link points to,
//            and never the file that was made just now, whatever the clock says.
// Errors:    texts for people; a full disk or a read-only folder is nothing worse.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

constexpr std::size_t kKeptLogs = 50; // always kept: a few months of an office's updates
// Older ones stay for a quarter of a year, as long as all of them together are this small: a log
// has a few kilobytes, so that even a thousand updates fit.
constexpr int kKeptDays = 90;
constexpr std::uintmax_t kMostLogBytes = 64UL * 1024 * 1024;

// $XDG_STATE_HOME/vymkit, or .local/state/vymkit at home; empty where neither is known.
std::string logFolder();

// run-<date>T<time>.<milliseconds>Z-<process>.log, so that names sort by time.
bool isLogName(std::string_view name);

struct NewLog {
    int descriptor = -1;
    std::string path;
    std::string problem; // why there is none; empty when there is one
};
// The names of all logs, the newest first.
std::vector<std::string> logNames(const std::string& folder);
// Makes the folder where it is missing, and removes the oldest logs when there are too many or they
// are too large.
NewLog createLog(const std::string& folder);
