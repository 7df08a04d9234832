// SPDX-License-Identifier: MIT
#include "UI/Support/WholeFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string inWords(int error)
{
    return std::strerror(error);
}

// 0, or the reason.
int writeAll(int descriptor, std::string_view text)
{
    while (!text.empty()) {
        const auto count = write(descriptor, text.data(), text.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count < 0 ? errno : EIO;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return fsync(descriptor) == 0 ? 0 : errno;
}

// Follows a link to the file that is replaced: the link stays.
std::string resolved(const std::string& path)
{
    char* whole = realpath(path.c_str(), nullptr);
    std::string target = whole != nullptr ? whole : path;
    std::free(whole);
    return target;
}

} // namespace

std::string writeWholeFile(const std::string& path, std::string_view text)
{
    const auto target = resolved(path);
    struct stat status { };
    if (stat(target.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
        return "the name belongs to something that is not a file";
    auto temporary = target + ".XXXXXX"; // readable by its owner only, as the report should be
    const int descriptor = mkostemp(temporary.data(), O_CLOEXEC);
    if (descriptor < 0)
        return inWords(errno);
    int error = writeAll(descriptor, text);
    if (close(descriptor) != 0 && error == 0)
        error = errno;
    if (error == 0 && std::rename(temporary.c_str(), target.c_str()) != 0)
        error = errno;
    if (error == 0)
        return {};
    unlink(temporary.c_str());
    return inWords(error);
}
