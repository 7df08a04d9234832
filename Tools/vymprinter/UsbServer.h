// SPDX-License-Identifier: MIT
// Serves any number of printers on the USB bus with one thread: a poll loop over their files.
//
// Owns:      the printers.
// Threads:   one; run() blocks the caller's.
#pragma once
#include "Tools/vymprinter/UsbPrinter.h"

struct pollfd;

namespace vymprinter {

class UsbServer {
public:
    void add(std::unique_ptr<UsbPrinter> printer) { m_printers.push_back(std::move(printer)); }
    // Serves until `stop` becomes readable, or until that many sessions have ended (0: no limit).
    void run(int stop, std::uint64_t sessions = 0);

private:
    [[nodiscard]] std::vector<pollfd> pollList(int stop) const;
    [[nodiscard]] int waitTime(Millis now) const;
    [[nodiscard]] std::uint64_t sessionsEnded() const;

    std::vector<std::unique_ptr<UsbPrinter>> m_printers;
};

} // namespace vymprinter
