// SPDX-License-Identifier: MIT
// Writes a package container: the inputs' data back to back, the table, the trailer.
//
// Threads: none of its own.
#pragma once
#include "Tools/vympack/ByteSink.h"
#include "Tools/vympack/InputFile.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vympack {

// An open file that is to go into a package.
struct Input {
    std::string path;
    std::string name; // in the package: the file's name without folders
    InputFile file;
    std::optional<std::string> text; // replaces the file's bytes

    [[nodiscard]] std::uint64_t size() const { return text ? text->size() : file.size(); }
};

// A file that was written into a package.
struct PackedFile {
    std::string name;
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
    std::string sha256;
};

std::uint64_t containerSize(const std::vector<Input>& inputs);
// The inputs must have passed every check; packed must be empty, and gets the written files.
// False if writing fails, and then out has the reason.
[[nodiscard]] bool writeContainer(const std::vector<Input>& inputs, ByteSink& out,
                                  std::vector<PackedFile>& packed);

} // namespace vympack
