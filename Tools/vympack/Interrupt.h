// Lets a person or a limit stop a long write without leaving half a file: the signals that ask the
// program to end only raise a flag, and the writing of files ends when it is up. A write beyond the
// limit of file size, or to a closed pipe, fails like any other.
//
// Threads: any; the flag is the only state.
#pragma once

namespace vympack {

void catchInterrupts();
[[nodiscard]] bool interrupted();

} // namespace vympack
