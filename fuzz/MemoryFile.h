// SPDX-License-Identifier: MIT
// A file without a disk, for code that opens its input by path.
//
// Owns:    its descriptor.
// Threads: none of its own.
#pragma once
#include "fuzz/Fuzz.h"

#include <string>
#include <sys/mman.h>
#include <unistd.h>

class MemoryFile {
public:
    MemoryFile() : m_fd(memfd_create("input", MFD_CLOEXEC))
    {
        require(m_fd >= 0, "memory holds a file");
    }
    ~MemoryFile() { close(m_fd); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    void write(std::string_view bytes) const // replaces the content
    {
        const bool whole = ftruncate(m_fd, 0) == 0
            && pwrite(m_fd, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size());
        require(whole, "memory holds the input");
    }
    [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(m_fd); }

private:
    int m_fd;
};
