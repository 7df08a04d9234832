// The udev rule that lets users at this computer open the maker's USB printers: one line in a file.
//
// Threads: any. Pure functions.
#pragma once
#include <string>

// Its number is lower than those of the rules that turn the tag into a permission.
std::string udevRuleFile();
std::string udevRuleLine(); // without a line end
// How to install it, as whole sentences; the line is shown beside them.
std::string udevAdvice();
