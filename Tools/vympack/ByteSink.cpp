// SPDX-License-Identifier: MIT
#include "Tools/vympack/ByteSink.h"

#include "Tools/vympack/Interrupt.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace vympack {

namespace {

// Large enough that the disk, not the calls, sets the pace.
constexpr auto kPiece = std::size_t{256} * 1024;

} // namespace

bool ByteSink::fail(std::string reason, int exitCode)
{
    m_reason = std::move(reason);
    m_exitCode = exitCode;
    return false;
}

bool ByteSink::failWithErrno()
{
    return fail(std::generic_category().message(errno), kExitNoOutput);
}

bool ByteSink::put(const char* data, std::size_t length)
{
    assert(descriptor() >= 0 && (data != nullptr || length == 0));
    while (length > 0) {
        if (interrupted())
            return fail("interrupted", kExitInterrupted);
        const auto count = ::write(descriptor(), data, length);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return failWithErrno();
        data += count;
        length -= static_cast<std::size_t>(count);
    }
    return true;
}

bool ByteSink::write(const void* data, std::size_t length)
{
    if (!put(static_cast<const char*>(data), length))
        return false;
    addTo(m_digest, data, length);
    m_written += length;
    return true;
}

bool ByteSink::copy(const InputFile& from, std::uint64_t offset, std::uint64_t length,
                    Sha256* digest)
{
    std::vector<char> piece(static_cast<std::size_t>(std::min<std::uint64_t>(length, kPiece)));
    while (length > 0) {
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(length, piece.size()));
        if (!from.readAt(offset, piece.data(), count))
            return fail("a file cannot be read to its end, or it changed while it was being read",
                        kExitNoInput);
        if (!write(piece.data(), count))
            return false;
        if (digest != nullptr)
            addTo(*digest, piece.data(), count);
        offset += count;
        length -= count;
    }
    return true;
}

int StandardOutput::descriptor() const
{
    return STDOUT_FILENO;
}

} // namespace vympack
