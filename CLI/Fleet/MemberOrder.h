// SPDX-License-Identifier: MIT
// The message from a fleet's call to the process of one printer, in an environment variable: under
// which name the printer was asked for, where its end is recorded, and the print queue that the
// call has found for it already.
//
// Owns:    its texts, by value.
// Threads: any; reads the environment, which no code writes.
#pragma once
#include "Platform/PrintServer.h"

#include <optional>
#include <string>

struct MemberOrder {
    std::string printer;
    std::optional<std::string> results;
    std::optional<PrintQueue> queue; // so that not every process searches for printers again
};

std::string asEnvironment(const MemberOrder& order); // NAME=VALUE
// No value in a process that a user started.
std::optional<MemberOrder> orderFromEnvironment();
