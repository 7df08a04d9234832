// Writes a package container: the inputs' data back to back, the table, the trailer.
//
// Threads: none of its own.
#pragma once
#include "Tools/vympack/AtomicFile.h"
#include "Tools/vympack/InputFile.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vympack {

// A file that is to go into a package, opened.
struct Input {
    std::string path;
    std::string name; // as embedded: the file's name without its folders
    InputFile file;
};

std::uint64_t containerSize(const std::vector<Input>& inputs);
// The inputs have passed every check. False when writing fails; out then has the reason and must
// not be committed.
[[nodiscard]] bool writeContainer(const std::vector<Input>& inputs, AtomicFile& out);

} // namespace vympack
