// A file that appears under its name whole or not at all: written beside its place under a
// temporary name, flushed to the disk, then renamed. Without commit() no file is left and
// an existing file of that name stays as it was.
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
    // Existing::kept refuses (exit code 1) where the name is taken, even by a link that leads
    // nowhere; Existing::replaced replaces what has the name, a link too.
    enum class Existing { replaced, kept };
    AtomicFile(std::string path, Existing existing);
    ~AtomicFile() override;

    // Each is false with a reason() when it fails; open() comes first, commit() last.
    [[nodiscard]] bool open();
    [[nodiscard]] bool commit();

private:
    [[nodiscard]] int descriptor() const override { return m_fd.get(); }
    bool isFree();
    bool takeName();
    bool keepModeOfExisting();
    void discard();

    Existing m_existing;
    std::string m_path;
    std::string m_folder;
    std::string m_temporary; // empty when there is none to remove
    UniqueFd m_fd;
};

} // namespace vympack
