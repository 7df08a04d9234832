// SPDX-License-Identifier: MIT
// The three standard streams, for a program that was started without some of them: a file or a
// socket that is opened later would take such a number, and messages would be written into it.
//
// Owns:    nothing; what it opens stays open until the process ends.
// Threads: the process's first, before anything else is opened.
#pragma once

// Opens /dev/null in place of each standard stream that is closed.
void occupyStandardStreams();
