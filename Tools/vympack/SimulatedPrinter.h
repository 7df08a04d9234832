// SPDX-License-Identifier: MIT
// An imaginary printer: its installed firmware and its TargetInfo.txt.
//
// Owns:    its texts, by value.
// Threads: any.
#pragma once
#include <optional>
#include <string>
#include <vector>

namespace vympack {

struct InstalledFirmware {
    std::string name;
    std::string version;
};

struct SimulatedPrinter {
    std::string model;
    std::vector<InstalledFirmware> installed;
    bool statusQuery = true; // it supports the status query
};

// The printer that a command line describes, with NAME=VERSION for each firmware. Empty, with an
// error message, if the words do not fit into a TargetInfo.txt.
std::optional<SimulatedPrinter> readPrinter(const std::string& model,
                                            const std::vector<std::string>& installed,
                                            std::string& wrong);
// The printer's TargetInfo.txt.
std::string targetInfoOf(const SimulatedPrinter& printer);

} // namespace vympack
