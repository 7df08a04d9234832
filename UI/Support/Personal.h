// SPDX-License-Identifier: MIT
// The names of the user and of this computer, as the system knows them.
//
// Owns:    its texts, by value.
// Threads: any.
#pragma once
#include <string>
#include <vector>

struct Personal {
    std::vector<std::string> users; // log-in names first, then the name of the person
    std::vector<std::string> homes;
    std::string computer;
};

Personal personalOfSystem();
