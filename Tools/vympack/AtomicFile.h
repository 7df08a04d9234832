// SPDX-License-Identifier: MIT
// A file that appears under its name completely or not at all: written in the same folder under a
// temporary name, flushed to the disk, then renamed. Without commit() no new file remains, and an
// existing file of that name stays unchanged.
//
// Owns:    the temporary file until commit() succeeds.
// Threads: none of its own.
#pragma once
#include "Tools/vympack/ByteSink.h"
#include "Tools/vympack/UniqueFd.h"

#include <string>

namespace vympack {

class AtomicFile final : public ByteSink {
public:
    // Existing::kept refuses (exit code 1) if the name is taken, even by a dangling link;
    // Existing::replaced replaces a file or link of that name.
    enum class Existing { replaced, kept };
    // A new file that can be run as a program has those permissions too, minus the bits of the
    // umask.
    enum class Kind { data, program };
    AtomicFile(std::string path, Existing existing, Kind kind = Kind::data);
    ~AtomicFile() override;

    // On failure each returns false, and reason() says why. open() comes first, commit() last.
    [[nodiscard]] bool open();
    [[nodiscard]] bool commit();

private:
    [[nodiscard]] int descriptor() const override { return m_fd.get(); }
    bool isFree();
    bool takeName();
    bool keepModeOfExisting();
    void discard();

    Existing m_existing;
    Kind m_kind;
    std::string m_path;
    std::string m_folder;
    std::string m_temporary; // empty if there is none to remove
    UniqueFd m_fd;
};

} // namespace vympack
