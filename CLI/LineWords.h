// The words of a command line before it is parsed: what can be said of a line that is wrong, and
// which known word an unknown one may have meant.
//
// Owns:    its texts, by value.
// Threads: any. Pure functions.
#pragma once
#include "CLI/Options.h"

#include <string>
#include <string_view>

struct LineWords {
    Command command = Command::none; // the first word that names one, also in a wrong line
    bool wantsHelp = false; // -h or --help stands anywhere
    bool wantsJson = false;
    std::string unknown; // the first word that is neither option nor command; as it was written
    std::string emptyOption; // the first option that ends in "=", without the sign
};
LineWords lineWords(int argc, const char* const* argv);

// "Did you mean ...?", or empty where nothing known is near.
std::string suggestionFor(std::string_view unknown);
