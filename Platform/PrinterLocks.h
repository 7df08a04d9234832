// SPDX-License-Identifier: MIT
// The seam to the system's locks, one for each printer: a program that updates a printer holds its
// lock, so that no other program on this computer, of any user, updates it at the same time. The
// lock ends with its process, however that ends. Without such locks every run goes on unlocked.
//
// Owns:    the caller owns a lock that it took.
// Threads: any; a lock may be given up on another thread than the one that took it.
// Errors:  are results. Taking may throw std::bad_alloc.
#pragma once
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

class PrinterLock {
public:
    virtual ~PrinterLock() = default; // gives it up
    PrinterLock(const PrinterLock&) = delete;
    PrinterLock& operator=(const PrinterLock&) = delete;

protected:
    PrinterLock() = default;
};

class PrinterLocks {
public:
    enum class Status : std::uint8_t {
        taken,
        held, // by another program, or by another run of this one
        unavailable, // the system has no such locks, or cannot make one now
    };
    struct Attempt {
        Status status = Status::unavailable;
        std::unique_ptr<PrinterLock> lock; // if it was taken
        int holder = 0; // the process that holds it; 0 if unknown
    };

    virtual ~PrinterLocks() = default;
    PrinterLocks(const PrinterLocks&) = delete;
    PrinterLocks& operator=(const PrinterLocks&) = delete;

    // One attempt, which never waits. The name is any text; equal names are one printer.
    virtual Attempt take(const std::string& name) = 0;

    // Sets the locks of this process. The caller keeps them alive during their use. Null: no locks.
    static void plugIn(PrinterLocks* locks) { s_plugged = locks; }
    static PrinterLocks* plugged() { return s_plugged; }

protected:
    PrinterLocks() = default;

private:
    inline static std::atomic<PrinterLocks*> s_plugged{nullptr};
};
