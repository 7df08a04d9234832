// One whole update of a printer on this computer by the engine's own worker.
//
// Owns:    the worker, for the length of the call.
// Threads: blocks its caller's; the worker runs on a thread of its own.
#pragma once
#include "CLI/Conclusion.h"

#include <cstdint>

namespace vympack {

// Takes every pause out of the engine while it lives. For a printer that needs none.
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

// Runs to its end; a signal that ends the program stops it early, as the command line would.
Outcome rehearse(const PackageFacts& package, std::uint16_t port);

} // namespace vympack
