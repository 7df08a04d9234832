// SPDX-License-Identifier: MIT
// The reports of a command while it runs and when it has ended. There are two kinds: for people,
// and as JSON lines.
//
// Owns:      its output streams' waiting texts.
// Threads:   the command's own; engine threads use the error stream only through Display.
// Invariant: finish is called exactly once, last.
// Errors:    std::bad_alloc; a result that was not written whole was not begun.
#pragma once
#include "CLI/Conclusion.h"
#include "CLI/Display.h"
#include "UI/Run/UpdateRun.h"

#include <memory>

// One look at a running update.
struct StatusView {
    tag_devinfo record;
    std::string firmwareName; // from the record, safe to show
    std::string displayName; // the same firmware's name for people
    RunStep step;
    std::size_t firmwareCount;
    double seconds; // since the start of the program
};

class Report {
public:
    virtual ~Report() = default;
    virtual void waiting(const std::string& stage, double seconds) = 0; // for an answer
    virtual void status(const StatusView& view) = 0;
    virtual void warn(const std::string& text) = 0; // before the command begins
    // Nothing has changed for long enough to explain that to a person.
    virtual void quiet(double silence, double seconds) = 0;
    // A stop was requested; called again for each further request.
    virtual void stopping(StopCause cause, double seconds) = 0;
    virtual void finish(const Outcome& outcome) = 0;
    // In place of finish, or after one that failed: a line of LastLine. Throws nothing.
    virtual void finishBriefly(std::string_view line) = 0;

protected:
    Report() = default;
    Report(const Report&) = default;
    Report& operator=(const Report&) = default;
};

std::unique_ptr<Report> makeHumanReport(int outputDescriptor, Display& display,
                                        const Options& options);
std::unique_ptr<Report> makeJsonReport(int outputDescriptor);
// The JSON lines of a result and of a stop, without their ends.
std::string resultAsJson(const Outcome& outcome);
std::string stoppingAsJson(StopCause cause, double seconds);
