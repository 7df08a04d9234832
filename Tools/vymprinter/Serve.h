// SPDX-License-Identifier: MIT
// Opens the printers of the command line, and serves them until it is stopped.
//
// Threads:   blocks the caller's.
#pragma once
#include "Tools/vymprinter/Options.h"

namespace vymprinter {

constexpr int kExitCannotServe = 1; // an address, a controller or a folder cannot be used

// Returns the exit code when `stop` becomes readable or after the requested number of sessions.
[[nodiscard]] int serveTcp(const Options& options, int stop);
[[nodiscard]] int serveUsb(const Options& options, int stop);

} // namespace vymprinter
