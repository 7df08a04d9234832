// SPDX-License-Identifier: MIT
// The lock of one printer on this computer, for the length of a run: two programs never update one
// printer at the same time, whichever user started them. A USB printer is known by its serial
// number, a network printer by its host as written and its TCP port.
//
// Owns:    the system's lock, once it was taken.
// Threads: one at a time; release may come from another one.
// Invariant: where the system has no locks, nothing is ever refused.
#pragma once
#include "Platform/PrinterLocks.h"
#include "UI/Run/RunTarget.h"

#include <string>

class RunLock {
public:
    using Status = PrinterLocks::Status;

    // One attempt; may be repeated while another program holds it. Taken again, it stays taken.
    Status take(const RunTarget& target, unsigned short portNumber);
    void release() { m_lock.reset(); }
    [[nodiscard]] bool isTaken() const { return m_lock != nullptr; }
    // The process that holds it, after such an attempt; 0 if unknown.
    [[nodiscard]] int holder() const { return m_holder; }
    // "another update of this printer is running here (process 12)", after an attempt that found it
    // held.
    [[nodiscard]] std::string heldText() const;

    // Equal for two targets that are the same printer, as far as their texts alone can say.
    static std::string nameOf(const RunTarget& target, unsigned short portNumber);

private:
    std::unique_ptr<PrinterLock> m_lock;
    int m_holder = 0; // the process; 0 if unknown
};
