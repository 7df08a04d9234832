// A file that appears under its name whole or not at all: written beside its place under a
// temporary name, flushed to the disk, then renamed. Without commit() nothing is left behind and
// an existing file of that name stays as it was.
//
// Owns:    the temporary file until commit() succeeds.
// Threads: none of its own.
#pragma once
#include "Tools/vympack/InputFile.h"
#include "Tools/vympack/UniqueFd.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vympack {

class AtomicFile {
public:
    explicit AtomicFile(std::string path);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    // Each is false with a reason() when it fails; open() comes first, commit() last.
    [[nodiscard]] bool open();
    [[nodiscard]] bool write(const void* data, std::size_t length);
    // Appends a stretch of another file, piece by piece.
    [[nodiscard]] bool copy(const InputFile& from, std::uint64_t offset, std::uint64_t length);
    [[nodiscard]] bool commit();
    [[nodiscard]] const std::string& reason() const { return m_reason; }

private:
    bool fail();
    bool keepModeOfExisting();
    void discard();

    std::string m_path;
    std::string m_folder;
    std::string m_temporary; // empty when there is none to remove
    std::string m_reason;
    UniqueFd m_fd;
};

} // namespace vympack
