// Opens the printers that the command line asks for, and serves them until asked to end.
//
// Threads:   the caller's, which it keeps.
#pragma once
#include "Tools/vymprinter/Options.h"

namespace vymprinter {

constexpr int kExitCannotServe = 1; // an address, a controller or a folder cannot be used

// The exit code. Ends when `stop` becomes readable, or after so many sessions as asked.
[[nodiscard]] int serveTcp(const Options& options, int stop);
[[nodiscard]] int serveUsb(const Options& options, int stop);

} // namespace vymprinter
