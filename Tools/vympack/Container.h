// SPDX-License-Identifier: MIT
// Reads the table of a package container and names the defects of the container itself.
// Trusts no field: never reads or allocates more than the file can hold.
//
// Owns:    copies of the entries; the caller owns the file.
// Threads: none of its own.
#pragma once
#include "Tools/vympack/Defect.h"
#include "Tools/vympack/InputFile.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vympack {

struct Entry {
    std::string name; // up to its NUL; the whole field without a NUL
    std::uint32_t offset = 0;
    std::uint32_t size = 0;
    std::uint64_t place = 0; // the entry's own offset in the container
    bool terminated = false;
    bool padded = false; // only NULs after the name
};

struct Table {
    std::uint64_t offset = 0;
    std::vector<Entry> entries;
};

// The table; empty if a defect of the trailer or the table hides it. path is for the places.
std::optional<Table> readTable(const InputFile& file, const std::string& path, Defects& defects);
// Whether all of the entry's data lies inside the container.
bool isInside(const Entry& entry, const InputFile& file);
// Checks each entry's fields and data, but not the meaning of its name.
void checkEntries(const Table& table, const InputFile& file, const std::string& path,
                  Defects& defects);

} // namespace vympack
