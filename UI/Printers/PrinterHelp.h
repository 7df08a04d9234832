// SPDX-License-Identifier: MIT
// Help for a user whose printer was found but cannot be listed. Words are the caller's.
//
// Owns:    nothing.
// Threads: any. Pure functions.
#pragma once
#include "UI/Printers/TargetPrinters.h"

#include <string>
#include <string_view>

enum class PrinterHelpKind : std::uint8_t {
    none,
    typeAddress, // a queue of another connection: the printer may be updated at its IPv4 address
    addRule, // the system has to permit this user to open the printer
};

struct PrinterHelp {
    PrinterHelpKind kind = PrinterHelpKind::none;
    std::string text; // the IPv4 address, empty if the queue does not name it; or the udev rule
};
PrinterHelp helpFor(const PrinterFinding& finding);

// The file for the rule. Its number is lower than those of the rules that turn the tag into a
// permission.
std::string udevRuleFile();
std::string udevRuleLine(); // without a line end

// The host that a network port string names, without its port: "10.0.0.5", "[::1]"; empty for
// another text.
std::string hostOf(std::string_view uri);
