// SPDX-License-Identifier: MIT
// Locks of printers that a test scripts, plugged in while this object lives. A lock must be
// given up before that ends.
//
// Threads: one at a time.
#pragma once
#include "Platform/PrinterLocks.h"
#include "VYM/vymMac.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

class ScriptedLocks final : public PrinterLocks {
public:
    ScriptedLocks() { plugIn(this); }
    ~ScriptedLocks() override
    {
        EXPECT_EQ(holding, 0) << "a lock was not given up";
        plugIn(nullptr);
    }
    ScriptedLocks(const ScriptedLocks&) = delete;
    ScriptedLocks& operator=(const ScriptedLocks&) = delete;

    std::optional<int> heldBy; // a process: every attempt fails
    int freeAfter = -1; // so many attempts; -1: never
    bool canLock = true;
    unsigned long attemptTakes = 0; // milliseconds, on the clock of vymMac
    int attempts = 0;
    int holding = 0; // locks that were taken and not yet given up
    std::vector<std::string> names;

    Attempt take(const std::string& name) override
    {
        names.push_back(name);
        if (attemptTakes != 0)
            pauseMilliseconds(attemptTakes);
        if (!canLock)
            return {};
        if (heldBy && (freeAfter < 0 || attempts++ < freeAfter))
            return {Status::held, nullptr, *heldBy};
        attempts += heldBy ? 0 : 1;
        return {Status::taken, std::make_unique<Held>(holding), 0};
    }

private:
    class Held final : public PrinterLock {
    public:
        explicit Held(int& count) : m_count(count) { ++m_count; }
        ~Held() override { --m_count; }
        Held(const Held&) = delete;
        Held& operator=(const Held&) = delete;

    private:
        int& m_count;
    };
};
