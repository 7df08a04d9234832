// SPDX-License-Identifier: MIT
// The options of the wizard, read from its command line.
//
// Owns:    its texts, by value.
// Threads: any. Opens no package.
#pragma once
#include <optional>
#include <string>

struct WizardOptions {
    std::optional<std::string> package; // a file, or the folder that holds VYMBINDDATA
    bool help = false;
    bool version = false;
    std::string usageError; // empty if the line is right
};

WizardOptions parseWizardOptions(int argc, const char* const* argv);
std::string wizardHelpText();
