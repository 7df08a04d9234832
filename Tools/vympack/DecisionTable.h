// SPDX-License-Identifier: MIT
// A table of installed versions and their decisions, for every firmware of the engine's open
// package.
//
// Owns:    its texts, by value; all are safe to show.
// Threads: one, the one that opened the package.
#pragma once
#include "Tools/vympack/SimulatedPrinter.h"
#include "UI/Package/PackageFacts.h"
#include "VYM/ModelDependCheckVer.h"

#include <nlohmann/json_fwd.hpp>
#include <ostream>
#include <string>
#include <vector>

namespace vympack {

struct TableRow {
    std::uint32_t number; // the firmware's, from 1
    std::string firmware;
    std::string update;
    std::string form;
    std::string what; // "older"
    std::string installed;
    VersionDecision decision;
};

std::vector<TableRow> decisionTable(const PackageFacts& package, SimulatedPrinter printer);
void writeDecisionTable(std::ostream& out, const std::vector<TableRow>& rows);
nlohmann::ordered_json decisionTableJson(const std::vector<TableRow>& rows);

} // namespace vympack
