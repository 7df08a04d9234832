// A regular file opened for reading at any position. Pipes, folders and devices are refused: a
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
    // False with a reason when the file cannot be read.
    [[nodiscard]] bool open(const std::string& path, std::string& reason);
    [[nodiscard]] std::uint64_t size() const { return m_size; }
    // True when all of the length bytes were read.
    [[nodiscard]] bool readAt(std::uint64_t offset, void* buffer, std::size_t length) const;
    // Reads a stretch into text, which the caller has bounded.
    [[nodiscard]] bool readText(std::uint64_t offset, std::size_t length, std::string& text) const;
    // True when path names the very file that is open here.
    [[nodiscard]] bool isSameFile(const std::string& path) const;
    // The SHA-256 of a stretch; empty when it cannot be read to its end.
    [[nodiscard]] std::string digest(std::uint64_t offset, std::uint64_t length) const;

private:
    UniqueFd m_fd;
    std::uint64_t m_size = 0;
    dev_t m_device = 0;
    ino_t m_inode = 0;
};

} // namespace vympack
