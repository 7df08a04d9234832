// SPDX-License-Identifier: MIT
// Unpacks embedded files into one folder and never outside it. Names and positions come from the
// package and are not trusted; an unsafe file is refused with a message.
//
// Threads: none of its own.
#pragma once
#include "Tools/vympack/Container.h"
#include "Tools/vympack/InputFile.h"

#include <string>
#include <vector>

namespace vympack {

struct ExtractionOrder {
    std::string folder = ".";
    std::vector<std::string> names; // empty: every file
    bool force = false; // replace existing files
};

struct ExtractionResult {
    std::vector<std::string> written; // embedded names
    std::vector<std::string> refusals; // one message each
    int exitCode = 0; // kExitDone, or that of the worst refusal
};

ExtractionResult extract(const InputFile& file, const Table& table, const ExtractionOrder& order);

} // namespace vympack
