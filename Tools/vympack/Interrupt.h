// Lets a person stop a long write without leaving half a file behind: the signals that ask the
// program to end only raise a flag, and the writing of files ends when it is up.
//
// Threads: any; the flag is the only state.
#pragma once

namespace vympack {

void catchInterrupts();
[[nodiscard]] bool interrupted();

} // namespace vympack
