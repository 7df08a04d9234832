// SPDX-License-Identifier: MIT
// A folder that is filled completely or not at all: its files are written into a hidden folder
// inside it and moved up when all of them are there. Without commit() nothing new remains, and a
// folder that existed before stays, empty. The hidden folder lies inside, not beside, since a
// mounted disk can be filled only from within.
//
// Owns:      the new folder and the files in it until commit() succeeds.
// Threads:   none of its own.
// Invariant: names the files in the order in which they are moved up.
#pragma once
#include "Tools/vympack/AtomicFile.h"

#include <string>
#include <vector>

namespace vympack {

class StagedFolder {
public:
    explicit StagedFolder(std::string path);
    StagedFolder(const StagedFolder&) = delete;
    StagedFolder& operator=(const StagedFolder&) = delete;
    ~StagedFolder();

    // On failure each returns false, and sets reason() and exitCode(). open() comes first, commit()
    // last. open() makes the folder if its parent exists, and refuses (exit code 1) one that is not
    // empty. The name passed to add() must have no path separator.
    [[nodiscard]] bool open();
    [[nodiscard]] bool add(const std::string& name, const InputFile& from, AtomicFile::Kind kind);
    [[nodiscard]] bool add(const std::string& name, const std::string& text,
                           AtomicFile::Kind kind = AtomicFile::Kind::data);
    [[nodiscard]] bool commit();

    [[nodiscard]] const std::string& reason() const { return m_reason; }
    [[nodiscard]] int exitCode() const { return m_exitCode; }

private:
    bool fail(std::string reason, int exitCode);
    bool failWithErrno();
    bool isEmpty();
    bool keep(AtomicFile& file, const std::string& name, bool isWritten);
    void discard();

    std::string m_path;
    std::string m_staging; // empty if there is none to remove
    std::vector<std::string> m_names;
    std::size_t m_moved = 0; // of the names
    bool m_isNew = false;
    std::string m_reason;
    int m_exitCode = kExitDone;
};

} // namespace vympack
