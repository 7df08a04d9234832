// SPDX-License-Identifier: MIT
// The destination of a package's bytes: a file or the standard output. Counts and digests the
// written bytes; checks before each piece whether the user wants to stop.
//
// Owns:    the counts and the digest.
// Threads: none of its own.
#pragma once
#include "Tools/vympack/Digest.h"
#include "Tools/vympack/ExitCodes.h"
#include "Tools/vympack/InputFile.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vympack {

class ByteSink {
public:
    ByteSink(const ByteSink&) = delete;
    ByteSink& operator=(const ByteSink&) = delete;
    virtual ~ByteSink() = default;

    // On failure returns false, and sets reason() and exitCode().
    [[nodiscard]] bool write(const void* data, std::size_t length);
    // Appends a range of another file, piece by piece; adds it to the digest, if given.
    [[nodiscard]] bool copy(const InputFile& from, std::uint64_t offset, std::uint64_t length,
                            Sha256* digest = nullptr);
    [[nodiscard]] const std::string& reason() const { return m_reason; }
    [[nodiscard]] int exitCode() const { return m_exitCode; }
    [[nodiscard]] std::uint64_t written() const { return m_written; }
    // The digest of all written bytes; must be called once, after the last byte.
    [[nodiscard]] std::string digest() { return hexOf(m_digest); }

protected:
    ByteSink() = default;
    bool fail(std::string reason, int exitCode);
    bool failWithErrno(); // with the system's message
    virtual int descriptor() const = 0;

private:
    bool put(const char* data, std::size_t length);

    std::string m_reason;
    int m_exitCode = kExitDone;
    std::uint64_t m_written = 0;
    Sha256 m_digest;
};

// The standard output, which stays open; bytes written before a failure cannot be taken back.
class StandardOutput final : public ByteSink {
private:
    [[nodiscard]] int descriptor() const override;
};

} // namespace vympack
