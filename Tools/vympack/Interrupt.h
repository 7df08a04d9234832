// SPDX-License-Identifier: MIT
// Lets a user or a limit stop a long write without leaving a partial file: ending signals only set
// a flag, which stops the writing. A write beyond the file size limit or to a closed pipe fails
// like any other.
//
// Threads: any; the flag is the only state.
#pragma once

namespace vympack {

void catchInterrupts();
[[nodiscard]] bool interrupted();

} // namespace vympack
