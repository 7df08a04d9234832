// A printer that is only thought of: what it has installed and what it would say of itself.
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
    bool statusQuery = true; // it can be queried for how far it has written
};

// The printer that a command line describes, with NAME=VERSION for each firmware; none, with what
// is wrong, where the words do not fit into the printer's text about itself.
std::optional<SimulatedPrinter> readPrinter(const std::string& model,
                                            const std::vector<std::string>& installed,
                                            std::string& wrong);
// The text in which a printer describes itself.
std::string targetInfoOf(const SimulatedPrinter& printer);

} // namespace vympack
