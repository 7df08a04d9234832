// SPDX-License-Identifier: MIT
// Tables for people: the contents of a package, the outcome of each firmware, the printers. A table
// that is wider than so many columns becomes a list.
//
// Threads: any. Pure functions.
#pragma once
#include "CLI/Outcome.h"

#include <string>

std::string packageTable(const PackageFacts& package, std::size_t columns);
// Empty if no firmware was reached.
std::string firmwareTable(const Outcome& outcome, std::size_t columns);
// Empty for an empty list.
std::string printerTable(const PrinterFacts& printers, std::size_t columns);
std::string historyTable(const std::vector<PastRun>& runs, std::size_t columns);
// One paragraph for each: what helps is for copying, and never wrapped.
std::string findingTable(const std::vector<Finding>& findings);
