// SPDX-License-Identifier: MIT
// One whole update of a printer on this computer, run by the engine's worker.
//
// Owns:    the worker, for the length of the call.
// Threads: blocks the caller's; the worker runs on its own.
#pragma once
#include "CLI/Conclusion.h"

#include <cstdint>

namespace vympack {

// While it lives, the engine makes no pauses, and its clock is so slow that a printer in this
// computer answers in time, however busy the computer is.
class WithoutPauses final : public TimeSource {
public:
    WithoutPauses() { setTimeSource(this); }
    ~WithoutPauses() override { setTimeSource(nullptr); }
    WithoutPauses(const WithoutPauses&) = delete;
    WithoutPauses& operator=(const WithoutPauses&) = delete;

    [[nodiscard]] std::uint64_t nowMilliseconds() const override;
    void sleepMilliseconds(unsigned long milliseconds) override;
    [[nodiscard]] unsigned long waitLimit(unsigned long milliseconds) const override;
};

// Runs to its end; an ending signal stops it early, as in the command line.
Outcome rehearse(const PackageFacts& package, std::uint16_t port);

} // namespace vympack
