// SPDX-License-Identifier: MIT
// The program's command line: reads it, runs the command, gives the exit code.
//
// Threads: one.
#pragma once
#include "Tools/vympack/Commands.h"

namespace vympack {

int runProgram(int argc, const char* const* argv, Streams streams);

} // namespace vympack
