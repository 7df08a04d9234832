// What a package holds, what became of each firmware, which printers there are, as tables for
// people.
//
// Threads: any. Pure functions.
#pragma once
#include "CLI/Outcome.h"

#include <string>

std::string packageTable(const PackageFacts& package);
// Empty where no firmware was reached: there is nothing to tell then.
std::string firmwareTable(const Outcome& outcome);
// Empty where the list is.
std::string printerTable(const PrinterFacts& printers);
std::string historyTable(const std::vector<PastRun>& runs);
