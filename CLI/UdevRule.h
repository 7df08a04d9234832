// What lets people who sit at this computer open the maker's USB printers: one line in one file.
//
// Threads: any. Pure functions.
#pragma once
#include <string>

// Its number is below those of the rules that turn the tag into a permission.
std::string udevRuleFile();
std::string udevRuleLine(); // without its end
// How to put it there, as whole sentences; the line is shown beside them.
std::string udevAdvice();
