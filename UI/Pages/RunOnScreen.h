// The run of the update as the progress window shows it: begun, looked at, ended, with its log, its
// message, and the computer kept awake meanwhile.
//
// Owns:    the run. The progress window and the list of firmware are the controller's.
// Threads: the interface's own.
// Does not decide when it is looked at, nor that it ends.
#pragma once
#include "Platform/SleepInhibitor.h"
#include "UI/FirmwareList.h"
#include "UI/Pages/ProgressWindow.h"
#include "UI/PrinterInfo.h"
#include "UI/Run/WatchedRun.h"
#include "UI/Widgets/Alerts.h"

#include <memory>
#include <optional>
#include <string>

class RunOnScreen {
public:
    // version: of the program.
    RunOnScreen(ProgressWindow& window, const FirmwareList& firmware, std::string version);
    ~RunOnScreen();
    RunOnScreen(const RunOnScreen&) = delete;
    RunOnScreen& operator=(const RunOnScreen&) = delete;

    // A log of its own: with such a package there may never be a run.
    void logPackageProblem(const std::string& problem) const;

    // False: no worker runs, and the run has to be ended with the code of a system error. Null:
    // no printer was chosen.
    [[nodiscard]] bool begin(std::shared_ptr<PrinterInfo> printer);
    // Shows what is new; the code with which the run has ended, if it has.
    std::optional<int> look();
    void refuseEnd(const std::string& what); // that asks for it, in words for the log
    // Waits for the worker: a transfer is never cut. The windows go on living meanwhile. Gives the
    // message about it; also without a run.
    Alert end(int code);
    // Without a window: a toolkit that loses its display ends the process. Waits as end does.
    void endWithoutDisplay();

private:
    [[nodiscard]] RunLogFacts facts() const;
    void keepAwake();
    [[nodiscard]] std::string firmwareAt(std::uint32_t number) const;

    ProgressWindow& m_window;
    const FirmwareList& m_firmware;
    std::string m_version;
    std::shared_ptr<PrinterInfo> m_printer;
    std::optional<WatchedRun> m_run;
    std::optional<SleepInhibitor> m_inhibitor; // while the run goes on
};
