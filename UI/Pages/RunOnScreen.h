// SPDX-License-Identifier: MIT
// The run of the update in the progress window: starts it, looks at it and ends it, with its log
// and its message, and keeps the computer awake meanwhile.
//
// Owns:    the run. The controller owns the progress window and the list of firmware.
// Threads: the interface's own.
// Does not decide when to look, nor when to end the run.
#pragma once
#include "Platform/SleepInhibitor.h"
#include "UI/FirmwareList.h"
#include "UI/Pages/ProgressWindow.h"
#include "UI/Pages/ResultMessage.h"
#include "UI/PrinterInfo.h"
#include "UI/Run/InstalledCheck.h"
#include "UI/Run/RunRescue.h"
#include "UI/Run/WatchedRun.h"
#include "UI/Widgets/Alerts.h"

#include <QTimer>
#include <memory>
#include <optional>
#include <string>

class RunOnScreen {
public:
    // version: of the program.
    RunOnScreen(ProgressWindow& window, const FirmwareList& firmware, std::string version);
    ~RunOnScreen() = default;
    RunOnScreen(const RunOnScreen&) = delete;
    RunOnScreen& operator=(const RunOnScreen&) = delete;

    // Writes a log of its own: with such a package there may be no run.
    void logPackageProblem(const std::string& problem) const;
    // A line for the log of each run; empty: no line.
    void setRemark(std::string remark) { m_remark = std::move(remark); }

    // When the last update of the printer began, if it was cut off: its log has no end. Empty if
    // not, and while another update of the printer is running on this computer.
    static std::string cutOffAt(const PrinterInfo& printer);
    // Not during a run. Null: no printer was chosen. Returns the code with which the run has ended
    // at once, if no worker runs: a system error, or another program on this computer updates the
    // printer.
    [[nodiscard]] std::optional<int> begin(std::shared_ptr<PrinterInfo> printer);
    // Shows changes; returns the code with which the run has ended, if it has.
    std::optional<int> look();
    void refuseEnd(const std::string& what); // the source of the request, for the log
    // Waits for the worker: a transfer is never cut. The windows stay responsive meanwhile. Returns
    // the final message; also without a run.
    Alert end(int code);
    // After an end whose message offers it: queries the printer for its versions, and
    // returns a message about them. The user may give up meanwhile.
    Alert checkInstalled();

private:
    [[nodiscard]] RunLogFacts facts() const;
    void keepAwake();
    void watchQuiet();
    // Waits as end does. why: for the log.
    void endWithoutWindow(const char* why);
    ResultFacts takeResults();
    [[nodiscard]] std::string firmwareAt(std::uint32_t number) const;

    ProgressWindow& m_window;
    const FirmwareList& m_firmware;
    std::string m_version;
    std::string m_remark;
    std::shared_ptr<PrinterInfo> m_printer;
    RunTarget m_target; // empty without a printer
    std::optional<WatchedRun> m_run;
    std::optional<RunRescue> m_rescue; // during the run
    QTimer m_beat; // shows that the window is at work, also while it waits for the worker
    std::vector<SentEntry> m_sent; // of which bytes went out
    Alert m_end; // its message, after the end
    bool m_isQuiet = false; // the window says so
    std::optional<SleepInhibitor> m_inhibitor; // during the run
};
