// Reads the table of a package container and names what is wrong with the container itself.
// Trusts no field: nothing is read or kept beyond what the file can hold.
//
// Owns:    copies of the entries; the file stays the caller's.
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
    std::string name; // up to its NUL; all of the field when there is none
    std::uint32_t offset = 0;
    std::uint32_t size = 0;
    std::uint64_t place = 0; // where the entry itself stands in the container
    bool terminated = false;
    bool padded = false; // nothing but NULs after the name
};

struct Table {
    std::uint64_t offset = 0;
    std::vector<Entry> entries;
};

// The table, or none when a defect of the trailer or the table hides it; path is for the places.
std::optional<Table> readTable(const InputFile& file, const std::string& path, Defects& defects);
// True when all of the entry's data lies inside the container.
bool isInside(const Entry& entry, const InputFile& file);
// Each entry's fields and data, but not what its name means.
void checkEntries(const Table& table, const InputFile& file, const std::string& path,
                  Defects& defects);

} // namespace vympack
