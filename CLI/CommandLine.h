// The whole program behind its main: reads the command line, runs one command, reports how it
// ended, gives the exit code.
//
// Threads: the process's first, before any other runs. Once in a process as far as a package is
//          concerned: the engine keeps the first one that it opened.
#pragma once
#include "CLI/Terminal.h"
#include "Platform/PrintServer.h"

// printServer: null where the system has no print queues; stays the caller's, until the process
// ends.
int runCommandLine(int argc, char** argv, PrintServer* printServer,
                   const Console& console = Console());
