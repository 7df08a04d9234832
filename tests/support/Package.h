// SPDX-License-Identifier: MIT
// A package container for a test, written byte by byte without the product's own tool, and opened
// in the same way as by the engine.
#pragma once
#include "tests/support/ImageBytes.h"
#include "tests/support/TempFolder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// CR LF after every row.
std::string rows(std::initializer_list<std::string_view> texts);

class Package {
public:
    Package& file(std::string name, std::string bytes);
    Package& description(std::initializer_list<std::string_view> texts);
    Package& magic(std::string_view bytes); // replaces the trailer's
    Package& count(std::uint32_t entries); // replaces the true number
    Package& tableOffset(std::uint32_t offset);
    Package& entry(std::string name, std::uint32_t offset, std::uint32_t size); // as given

    [[nodiscard]] std::string bytes() const;
    // Writes the container into a folder of its own and makes the engine open it; a description is
    // loaded as the package description of this process.
    void open();
    [[nodiscard]] const TempFolder& folder() const { return m_folder; }
    // From now on the engine looks for its container in this folder.
    static void openFolder(const std::string& folder);

private:
    struct Entry {
        std::string name;
        std::uint32_t offset;
        std::uint32_t size;
    };
    TempFolder m_folder;
    std::string m_data;
    std::vector<Entry> m_entries;
    std::string m_magic = std::string("VYMBIND\0", 8);
    std::optional<std::uint32_t> m_count;
    std::optional<std::uint32_t> m_tableOffset;
};
