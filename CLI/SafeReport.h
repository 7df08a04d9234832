// SPDX-License-Identifier: MIT
// A report that never ends a command: what cannot be shown for lack of memory is left out. Only the
// result is never left out; see LastLine.
//
// Owns:    nothing; the caller owns the wrapped report.
// Threads: as the report.
#pragma once
#include "CLI/Report.h"

class SafeReport : public Report {
public:
    explicit SafeReport(Report& report) : m_report(report) { }
    void waiting(const std::string& stage, double seconds) override;
    void status(const StatusView& view) override;
    void warn(const std::string& text) override;
    void quiet(double silence, double seconds) override;
    void stopping(StopCause cause, double seconds) override;
    void finish(const Outcome& outcome) override; // may throw std::bad_alloc
    void finishBriefly(std::string_view line) override { m_report.finishBriefly(line); }

private:
    Report& m_report;
};
