// Where the bytes of a package go: a file or the standard output. Counts and digests what was
// written; a person's wish to stop is heard before each piece.
//
// Owns:    the counts and the digest.
// Threads: none of its own.
#pragma once
#include "Tools/vympack/ExitCodes.h"
#include "Tools/vympack/InputFile.h"
#include "Tools/vympack/Sha256.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vympack {

class ByteSink {
public:
    ByteSink(const ByteSink&) = delete;
    ByteSink& operator=(const ByteSink&) = delete;
    virtual ~ByteSink() = default;

    // False with a reason() and an exitCode() when it fails.
    [[nodiscard]] bool write(const void* data, std::size_t length);
    // Appends a stretch of another file, piece by piece; adds it to the digest, if there is one.
    [[nodiscard]] bool copy(const InputFile& from, std::uint64_t offset, std::uint64_t length,
                            Sha256* digest = nullptr);
    [[nodiscard]] const std::string& reason() const { return m_reason; }
    [[nodiscard]] int exitCode() const { return m_exitCode; }
    [[nodiscard]] std::uint64_t written() const { return m_written; }
    // The digest of all that was written; called once, after the last byte.
    [[nodiscard]] std::string digest() { return m_digest.finish(); }

protected:
    ByteSink() = default;
    bool fail(std::string reason, int exitCode);
    bool failWithErrno(); // the system's word for it
    virtual int descriptor() const = 0;

private:
    bool put(const char* data, std::size_t length);

    std::string m_reason;
    int m_exitCode = kExitDone;
    std::uint64_t m_written = 0;
    Sha256 m_digest;
};

// The standard output, which stays open; what was written before a failure has gone out.
class StandardOutput final : public ByteSink {
private:
    [[nodiscard]] int descriptor() const override;
};

} // namespace vympack
