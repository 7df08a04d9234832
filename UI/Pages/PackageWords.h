// SPDX-License-Identifier: MIT
// Why the package cannot be used, in the words of the window.
//
// Threads: the interface's own.
#pragma once
#include "UI/Package/PackageReason.h"

// The reason, and what to do on a line of its own; empty for none.
std::string packageWords(const PackageReason& reason);
