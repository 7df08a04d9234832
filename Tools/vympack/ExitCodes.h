// SPDX-License-Identifier: MIT
// The program's exit codes. Documented in docs/makers.md; never changed once released.
//
// Threads: any; constants.
#pragma once

namespace vympack {

inline constexpr int kExitDone = 0;
inline constexpr int kExitDefects = 1; // defects or differences found, or something was refused
inline constexpr int kExitUsage = 64; // these four are numbers of sysexits.h
inline constexpr int kExitNoInput = 66;
inline constexpr int kExitBroken = 70;
inline constexpr int kExitNoOutput = 73;
inline constexpr int kExitInterrupted = 130; // a shell's code for Ctrl-C

} // namespace vympack
