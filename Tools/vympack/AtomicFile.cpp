#include "Tools/vympack/AtomicFile.h"

#include "Tools/vympack/Interrupt.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace vympack {

namespace {

// Large enough that the disk, not the calls, sets the pace.
constexpr auto kPiece = std::size_t{256} * 1024;
constexpr int kTries = 100; // temporary names that another run may have left behind
constexpr mode_t kNewFile = 0666; // less what the umask takes away
constexpr mode_t kPermissions = 07777;

std::string folderOf(const std::string& path)
{
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

} // namespace

AtomicFile::AtomicFile(std::string path) : m_path(std::move(path)), m_folder(folderOf(m_path)) { }

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

bool AtomicFile::fail()
{
    m_reason = std::generic_category().message(errno);
    return false;
}

bool AtomicFile::open()
{
    for (int i = 0; i < kTries; ++i) {
        const auto name =
            m_folder + ".vympack-" + std::to_string(::getpid()) + "-" + std::to_string(i) + ".tmp";
        m_fd = UniqueFd(::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFile));
        if (m_fd.isOpen()) {
            m_temporary = name;
            return true;
        }
        if (errno != EEXIST)
            break;
    }
    return fail();
}

bool AtomicFile::write(const void* data, std::size_t length)
{
    const auto* next = static_cast<const char*>(data);
    while (length > 0) {
        if (interrupted()) {
            m_reason = "interrupted";
            return false;
        }
        const auto written = ::write(m_fd.get(), next, length);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return fail();
        next += written;
        length -= static_cast<std::size_t>(written);
    }
    return true;
}

bool AtomicFile::copy(const InputFile& from, std::uint64_t offset, std::uint64_t length)
{
    std::vector<char> piece(static_cast<std::size_t>(std::min<std::uint64_t>(length, kPiece)));
    while (length > 0) {
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(length, piece.size()));
        if (!from.readAt(offset, piece.data(), count)) {
            m_reason = "a file cannot be read to its end, or it changed while it was being read";
            return false;
        }
        if (!write(piece.data(), count))
            return false;
        offset += count;
        length -= count;
    }
    return true;
}

// A file that is replaced keeps its permissions; anything but a file is not replaced.
bool AtomicFile::keepModeOfExisting()
{
    struct stat status { };
    if (::lstat(m_path.c_str(), &status) != 0)
        return errno == ENOENT || fail();
    if (S_ISLNK(status.st_mode))
        return true;
    if (!S_ISREG(status.st_mode)) {
        m_reason = "the name belongs to something that is not a file";
        return false;
    }
    return ::fchmod(m_fd.get(), status.st_mode & kPermissions) == 0 || fail();
}

bool AtomicFile::commit()
{
    if (!keepModeOfExisting())
        return false;
    if (::fsync(m_fd.get()) != 0 || std::rename(m_temporary.c_str(), m_path.c_str()) != 0)
        return fail();
    m_temporary.clear();
    m_fd.reset();
    // The new name itself reaches the disk with its folder; where that cannot be asked for, the
    // file is complete all the same.
    const UniqueFd folder(::open(m_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen())
        ::fsync(folder.get());
    return true;
}

} // namespace vympack
