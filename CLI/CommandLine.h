// SPDX-License-Identifier: MIT
// The whole program except main: reads the command line, runs one command, reports its outcome,
// returns the exit code.
//
// Threads: the process's first, before any other runs. A process can open only one package: the
//          engine keeps the first.
#pragma once
#include "CLI/Terminal.h"
#include "Platform/PrintServer.h"

// printServer: null if the system has no print queues; the caller keeps it until the process ends.
int runCommandLine(int argc, char** argv, PrintServer* printServer,
                   const Console& console = Console());
// For a program that has no memory even to begin: writes a last line, returns its exit code.
int endWithoutMemory(int argc, char** argv);
