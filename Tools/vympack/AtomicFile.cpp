// SPDX-License-Identifier: MIT
#include "Tools/vympack/AtomicFile.h"

#include <cassert>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vympack {

namespace {

constexpr int kTries = 100; // temporary names that another run may have left
constexpr mode_t kNewFile = 0666; // minus the bits of the umask, like the next one
constexpr mode_t kNewProgram = 0777;
constexpr mode_t kPermissions = 07777;

std::string folderOf(const std::string& path)
{
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

enum class Taken { no, byFile, byOther };

Taken takenBy(const std::string& path)
{
    struct stat status { };
    if (::lstat(path.c_str(), &status) != 0)
        return Taken::no;
    return S_ISREG(status.st_mode) || S_ISLNK(status.st_mode) ? Taken::byFile : Taken::byOther;
}

} // namespace

AtomicFile::AtomicFile(std::string path, Existing existing, Kind kind)
    : m_existing(existing), m_kind(kind), m_path(std::move(path)), m_folder(folderOf(m_path))
{
}

AtomicFile::~AtomicFile()
{
    discard();
}

void AtomicFile::discard()
{
    m_fd.reset();
    if (!m_temporary.empty())
        ::unlink(m_temporary.c_str());
    m_temporary.clear();
}

// Whether the name is free; only a file can be replaced, even with force.
bool AtomicFile::isFree()
{
    switch (takenBy(m_path)) {
    case Taken::no:
        return true;
    case Taken::byFile:
        return m_existing == Existing::replaced
            || fail("exists already; --force replaces it", kExitDefects);
    case Taken::byOther:
        return fail("the name belongs to something that is not a file", kExitNoOutput);
    }
    return false;
}

bool AtomicFile::open()
{
    assert(!m_fd.isOpen());
    if (!isFree())
        return false;
    for (int i = 0; i < kTries; ++i) {
        const auto name =
            m_folder + ".vympack-" + std::to_string(::getpid()) + "-" + std::to_string(i) + ".tmp";
        m_fd = UniqueFd(::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                               m_kind == Kind::program ? kNewProgram : kNewFile));
        if (m_fd.isOpen()) {
            m_temporary = name;
            return true;
        }
        if (errno != EEXIST)
            break;
    }
    return failWithErrno();
}

// A replaced file keeps its permissions.
bool AtomicFile::keepModeOfExisting()
{
    struct stat status { };
    if (::lstat(m_path.c_str(), &status) != 0)
        return errno == ENOENT || failWithErrno();
    if (!S_ISREG(status.st_mode))
        return true;
    return ::fchmod(m_fd.get(), status.st_mode & kPermissions) == 0 || failWithErrno();
}

// If the file system cannot refuse a taken name by itself, a check just before must suffice.
bool AtomicFile::takeName()
{
    if (m_existing == Existing::kept) {
        if (::renameat2(AT_FDCWD, m_temporary.c_str(), AT_FDCWD, m_path.c_str(), RENAME_NOREPLACE)
            == 0)
            return true;
        if (errno != EEXIST && errno != EINVAL && errno != ENOSYS)
            return failWithErrno();
        if (!isFree())
            return false;
    }
    return std::rename(m_temporary.c_str(), m_path.c_str()) == 0 || failWithErrno();
}

bool AtomicFile::commit()
{
    assert(m_fd.isOpen());
    if (!isFree() || (m_existing == Existing::replaced && !keepModeOfExisting()))
        return false;
    if (::fsync(m_fd.get()) != 0)
        return failWithErrno();
    if (!takeName())
        return false;
    m_temporary.clear();
    m_fd.reset();
    // Flushing the folder brings the new name to the disk; if that fails, the file is complete
    // nevertheless.
    const UniqueFd folder(::open(m_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen())
        ::fsync(folder.get());
    return true;
}

} // namespace vympack
