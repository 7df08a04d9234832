// SPDX-License-Identifier: MIT
// The system's clock without the pauses that printers need: a run then consists of the engine's
// own work alone.
//
// Owns:    nothing; while it lives, it is the engine's source of time.
// Threads: as setTimeSource.
#pragma once
#include "VYM/vymMac.h"

#include <ctime>

class NoPauses : public TimeSource {
public:
    NoPauses() { setTimeSource(this); }
    ~NoPauses() override { setTimeSource(nullptr); }
    NoPauses(const NoPauses&) = delete;
    NoPauses& operator=(const NoPauses&) = delete;

    [[nodiscard]] std::uint64_t nowMilliseconds() const override
    {
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC, &now);
        return static_cast<std::uint64_t>(now.tv_sec) * 1000
            + static_cast<std::uint64_t>(now.tv_nsec) / 1000000;
    }
    void sleepMilliseconds(unsigned long /*milliseconds*/) override { }
    [[nodiscard]] unsigned long waitLimit(unsigned long milliseconds) const override
    {
        return milliseconds;
    }
};
