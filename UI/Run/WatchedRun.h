// SPDX-License-Identifier: MIT
// One run of the update worker, from its start to its collected outcomes, with its log. The caller
// looks at it about once in kLookInterval, until the run has ended by itself or has to stop.
//
//   WatchedRun run(facts);                    // the log begins
//   if (run.start(target, portNumber))        // otherwise endCode() says why not
//       while (!run.endCode()) run.look();    // once a second: a timer, a loop
//   run.stop();                               // after a start that failed it does nothing
//   run.takeOutcomes();  run.finish(name, code);
//
// Owns:      the worker, the port string and the queue that the worker points to, the log.
// Threads:   one thread at a time, except for stop: that waits for the worker for as long as a
//            transfer takes, so it may run on another thread while the first goes on looking.
// Invariant: the worker ends before any data that it points to is destroyed.
// Knows no words, and never stops a run by itself.
#pragma once
#include "UI/Run/RunLock.h"
#include "UI/Run/RunLog.h"
#include "UI/Run/RunTarget.h"
#include "UI/Run/UpdateRun.h"

#include <atomic>
#include <cassert>
#include <optional>
#include <vector>

class WatchedRun {
public:
    static constexpr unsigned kLookInterval = 1000; // milliseconds between two looks

    // Milliseconds without a change after which a person wants to know that this can be normal.
    static constexpr std::uint64_t kQuietHint = 60000;

    explicit WatchedRun(const RunLogFacts& facts);
    ~WatchedRun(); // stops the worker, and waits for it
    WatchedRun(const WatchedRun&) = delete;
    WatchedRun& operator=(const WatchedRun&) = delete;

    // Takes over the printer's lock, if the caller already has it; otherwise start takes it. Only
    // before start.
    void keep(RunLock lock)
    {
        assert(m_worker == nullptr);
        m_lock = std::move(lock);
    }
    // Call once. False: no worker runs, and the run has ended with the code of a system error, also
    // for a target without a printer; or with that of a busy printer, if another program on this
    // computer updates it.
    bool start(const RunTarget& target, unsigned short portNumber, const EntryChoice& choice = {});

    // Reads the record and returns what to show; also writes a line to the log if that is new.
    const RunStep& look();
    // The record of the last look. Number and name always belong to the same firmware.
    [[nodiscard]] const tag_devinfo& record() const { return m_record; }
    // How long the record had not changed at the last look, in milliseconds.
    [[nodiscard]] std::uint64_t quietMilliseconds() const { return m_quiet; }
    // Whether that is so long that a person should know that it can be normal.
    [[nodiscard]] bool isLongQuiet() const { return m_quiet >= kQuietHint; }
    // The code with which the run ended by itself, before a stop request.
    [[nodiscard]] std::optional<int> endCode() const { return m_endCode; }

    // The model that the printer says it is, made plain; empty if it was not queried for it.
    [[nodiscard]] std::string printerModel() const;

    // After a start that failed: another program on this computer updates the printer. Its process;
    // 0 if that is unknown.
    [[nodiscard]] std::optional<int> heldBy() const { return m_heldBy; }

    // From now on endCode stays unchanged: the record no longer says how the run would have ended.
    void willStop() { m_isStopping = true; }
    // The same, and waits until the worker has ended. A second call, also on another thread, waits
    // for the same end.
    void stop();

    // Only after a stop request. True: the worker has sent no firmware and never will; it may be
    // left waiting for a printer that does not answer. This object must then live until the process
    // ends.
    [[nodiscard]] bool refuseFirmware();

    // Call once, when no further firmware can be handled: after stop, a start that failed, or
    // refuseFirmware. The outcome of each firmware that was handled; also writes the log.
    std::vector<tag_entryoutcome> takeOutcomes();
    void finish(std::string_view resultName, std::optional<int> code); // the last lines of the log
    [[nodiscard]] RunLog& log() { return m_log; }

private:
    bool lock(unsigned short portNumber);

    void* m_worker = nullptr;
    RunTarget m_target;
    RunLock m_lock;
    std::vector<tag_entryoutcome> m_outcomes; // has room for all before the run begins
    std::vector<std::string> m_names; // of the firmware in the printer, in the package's order
    tag_devinfo m_record{};
    RunStep m_step;
    std::optional<int> m_endCode;
    std::optional<int> m_heldBy;
    std::atomic<bool> m_isStopping{false};
    std::atomic<bool> m_isWaitedFor{false}; // a thread waits for the worker's end
    std::atomic<bool> m_hasStopped{false};
    std::atomic<bool> m_mayHandleMore{false}; // firmware, so that outcomes may still be added
    std::uint64_t m_changedAt = 0; // on tickMilliseconds
    std::uint64_t m_quiet = 0;
    RunLog m_log;
};
