// What a package holds and what became of each firmware, as tables for people.
//
// Threads: any. Pure functions.
#pragma once
#include "CLI/Outcome.h"

#include <string>

std::string packageTable(const PackageFacts& package);
// Empty where no firmware was reached: there is nothing to tell then.
std::string firmwareTable(const Outcome& outcome);
