// The print system of this build, chosen when the build was configured; programs ask here and need
// not know which one it is.
//
// Owns:    nothing; the server is its caller's.
// Threads: any.
#pragma once
#include "Platform/PrintServer.h"

#include <memory>

// Never null. In a build without a print system every question is answered with that as reason.
std::unique_ptr<PrintServer> makeSystemPrintServer();
