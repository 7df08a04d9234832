// SPDX-License-Identifier: MIT
#include "Tools/vympack/InputFile.h"

#include "Tools/vympack/Digest.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

namespace vympack {

bool InputFile::open(const std::string& path, std::string& reason)
{
    // Without O_NONBLOCK, opening a pipe would wait for its writer.
    m_fd = UniqueFd(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status { };
    if (!m_fd.isOpen() || ::fstat(m_fd.get(), &status) != 0) {
        reason = std::generic_category().message(errno);
        return false;
    }
    if (!S_ISREG(status.st_mode)) {
        reason = "not a regular file";
        return false;
    }
    m_size = static_cast<std::uint64_t>(status.st_size);
    m_device = status.st_dev;
    m_inode = status.st_ino;
    return true;
}

bool InputFile::readAt(std::uint64_t offset, void* buffer, std::size_t length) const
{
    assert(m_fd.isOpen());
    auto* next = static_cast<char*>(buffer);
    while (length > 0) {
        const auto got = ::pread(m_fd.get(), next, length, static_cast<off_t>(offset));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        next += got;
        offset += static_cast<std::uint64_t>(got);
        length -= static_cast<std::size_t>(got);
    }
    return true;
}

bool InputFile::readText(std::uint64_t offset, std::size_t length, std::string& text) const
{
    text.resize(length);
    return readAt(offset, text.data(), length);
}

std::string InputFile::digest(std::uint64_t offset, std::uint64_t length) const
{
    constexpr auto kDigestPiece = std::size_t{256} * 1024; // the disk, not the calls, sets the pace
    Sha256 digest;
    std::string piece;
    while (length > 0) {
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(length, kDigestPiece));
        if (!readText(offset, count, piece))
            return {};
        addTo(digest, piece.data(), count);
        offset += count;
        length -= count;
    }
    return hexOf(digest);
}

bool InputFile::isSameFile(const std::string& path) const
{
    struct stat status { };
    return ::stat(path.c_str(), &status) == 0 && status.st_dev == m_device
        && status.st_ino == m_inode;
}

} // namespace vympack
