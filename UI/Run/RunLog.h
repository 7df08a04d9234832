// SPDX-License-Identifier: MIT
// The log of one run, for people: a text file that says which printer was updated with which
// package, how far the run got and how it ended. Written line by line, so that it survives a crash.
//
// Owns:      its file's descriptor. From the first log on, the process ignores SIGXFSZ: a file size
//            limit is an error of one write, never the end of a run.
// Threads:   one at a time.
// Invariant: texts from outside are made safe to show; each fills at most one line.
// Errors:    none once it has begun, not even for lack of memory. If a log cannot be made or
//            continued, problem() says why.
#pragma once
#include "UI/Run/LogFolder.h"
#include "VYM/vymThread.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The longest text of a line, in bytes: cuts the longest paths and hardly anything else.
constexpr std::size_t kLogLineLimit = 1000;

struct RunLogFirmware {
    std::string name;
    std::string version;
    std::string nameInPrinter = {}; // the name in the printer and in the status record
};

struct RunLogFacts {
    std::string program; // with its version
    std::string packageFolder;
    std::string model; // the package is for this model
    std::vector<RunLogFirmware> firmware; // all of the package, in order
    std::string printer; // its name, if it has one
    std::string address;
};

class RunLog {
public:
    explicit RunLog(const std::string& folder = logFolder());
    ~RunLog();
    RunLog(const RunLog&) = delete;
    RunLog& operator=(const RunLog&) = delete;

    void start(const RunLogFacts& facts);
    // Instead of all other calls: the package is bad, so little is known and there may be no run.
    void badPackage(const RunLogFacts& facts, std::string_view problem);
    void note(std::string_view text);
    void look(const tag_devinfo& record); // a line for each new stage or firmware
    // Of each firmware that was handled, once, in order.
    void outcome(const tag_entryoutcome& outcome);
    void end(std::string_view name, std::optional<int> code); // the result's
    // After the end: what a query of the printer's versions has shown.
    void verdict(std::string_view name);

    [[nodiscard]] const std::string& path() const { return m_path; } // empty: there is no log
    [[nodiscard]] const std::string& problem() const { return m_problem; } // empty: all is written

private:
    void begin(const RunLogFacts& facts);
    void line(std::string_view name, std::string_view text);
    void write(std::string_view text);

    int m_descriptor;
    std::string m_path;
    std::string m_problem;
    std::size_t m_firmwareCount = 0;
    std::size_t m_outcomeCount = 0;
    update_state m_state = state_initial;
    std::uint32_t m_firmwareNumber = 0;
};
