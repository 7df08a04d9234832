// SPDX-License-Identifier: MIT
// The words of a bundle: a text for customers in the languages of the window, and the script that
// opens the wizard. Without a display the script shows that text in the user's language, so that
// there is only one place that says how to use the command line.
//
// Threads: any.
#pragma once
#include <string>
#include <vector>

namespace vympack {

inline constexpr const char* kReadMe = "README.txt";

struct BundleWords {
    std::string model; // safe to show
    std::vector<std::string> debs; // file names of the Debian packages; empty: bare programs
};

std::string readMe(const BundleWords& words);
std::string startScript(const BundleWords& words);
// The licence of the programs, which has to go with every copy.
std::string licenceText();

} // namespace vympack
