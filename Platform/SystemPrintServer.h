// SPDX-License-Identifier: MIT
// The print system of this build, chosen when the build was configured; programs need not know
// which one it is.
//
// Owns:    nothing; the caller owns the server.
// Threads: any.
#pragma once
#include "Platform/PrintServer.h"

#include <memory>

// Never null. In a build without a print system every query fails with that as its reason.
std::unique_ptr<PrintServer> makeSystemPrintServer();
