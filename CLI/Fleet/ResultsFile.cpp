// SPDX-License-Identifier: MIT
#include "CLI/Fleet/ResultsFile.h"

#include <cassert>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

constexpr mode_t kForEveryReader = 0644; // less the user's mask

class OpenFile {
public:
    explicit OpenFile(const std::string& path)
        : m_descriptor(open(path.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, kForEveryReader))
    {
    }
    ~OpenFile()
    {
        if (m_descriptor >= 0)
            close(m_descriptor); // drops the lock, too
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    [[nodiscard]] int descriptor() const { return m_descriptor; }
    [[nodiscard]] bool lock() const
    {
        int locked = -1;
        do {
            locked = flock(m_descriptor, LOCK_EX);
        } while (locked != 0 && errno == EINTR);
        return locked == 0;
    }

private:
    int m_descriptor;
};

iovec piece(std::string_view text)
{
    return {const_cast<char*>(text.data()), text.size()}; // the call only reads it
}

bool endsInsideALine(int descriptor, off_t size)
{
    char last = '\n';
    return size > 0 && pread(descriptor, &last, 1, size - 1) == 1 && last != '\n';
}

} // namespace

std::map<std::string, MemberEnd> ResultsFile::ends(std::string_view command) const
{
    std::map<std::string, MemberEnd> found;
    std::ifstream file(m_path, std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        if (auto end = memberEnd(line); end && !end->printer.empty() && end->command == command)
            found[end->printer] = std::move(*end);
    }
    return found;
}

std::string ResultsFile::prepare() const
{
    const OpenFile file(m_path);
    if (file.descriptor() < 0)
        return std::strerror(errno);
    struct stat facts { };
    const bool isFile = fstat(file.descriptor(), &facts) == 0 && S_ISREG(facts.st_mode);
    return isFile ? "" : "it is no ordinary file";
}

std::string ResultsFile::append(std::string_view line) const
{
    assert(line.find('\n') == std::string_view::npos);
    const auto written = appendParts({line, {}, {}});
    std::string reason;
    if (written.error != 0)
        reason = std::strerror(written.error);
    else if (written.isCutOff)
        reason = "the disk is full";
    if (written.staysCutOff)
        reason += ", and a part of the line stays";
    return reason;
}

ResultsFile::Written ResultsFile::appendParts(const Parts& parts) const noexcept
{
    const OpenFile file(m_path);
    struct stat facts { };
    if (file.descriptor() < 0 || !file.lock() || fstat(file.descriptor(), &facts) != 0)
        return {errno, true, false};
    // A line that was cut off earlier stays a bad line of its own.
    const std::string_view before = endsInsideALine(file.descriptor(), facts.st_size) ? "\n" : "";
    const std::array<iovec, 5> pieces = {
        {piece(before), piece(parts[0]), piece(parts[1]), piece(parts[2]), piece("\n")}};
    std::size_t size = 0;
    for (const auto& each : pieces)
        size += each.iov_len;
    const auto length = writev(file.descriptor(), pieces.data(), pieces.size());
    if (length == static_cast<ssize_t>(size))
        return {};
    Written written{length < 0 ? errno : 0, true, false};
    written.staysCutOff = length > 0 && ftruncate(file.descriptor(), facts.st_size) != 0;
    return written;
}
