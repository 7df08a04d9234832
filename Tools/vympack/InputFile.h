// SPDX-License-Identifier: MIT
// A regular file, open for reading at any position. Refuses pipes, folders and devices, since a
// package and its inputs are read more than once.
//
// Owns:    its descriptor.
// Threads: none of its own.
#pragma once
#include "Tools/vympack/UniqueFd.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <sys/types.h>

namespace vympack {

class InputFile {
public:
    // False with a reason if the file cannot be read.
    [[nodiscard]] bool open(const std::string& path, std::string& reason);
    [[nodiscard]] std::uint64_t size() const { return m_size; }
    // Reading is only for a file that was opened. Whether all length bytes were read.
    [[nodiscard]] bool readAt(std::uint64_t offset, void* buffer, std::size_t length) const;
    // Reads a range into text; the caller bounds its length.
    [[nodiscard]] bool readText(std::uint64_t offset, std::size_t length, std::string& text) const;
    // Whether path names the same file as this.
    [[nodiscard]] bool isSameFile(const std::string& path) const;
    // The SHA-256 of a range; empty if it cannot be read completely.
    [[nodiscard]] std::string digest(std::uint64_t offset, std::uint64_t length) const;

private:
    UniqueFd m_fd;
    std::uint64_t m_size = 0;
    dev_t m_device = 0;
    ino_t m_inode = 0;
};

} // namespace vympack
