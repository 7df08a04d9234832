// SPDX-License-Identifier: MIT
// Remembers the container's bytes from the time of its check, as a digest of each part of the file.
// Later reads through the seal deliver the same bytes or fail. So a package that is overwritten
// during a run never reaches a printer half in one version, half in another.
//
// Owns:      the digests and room for one part.
// Threads:   none of its own; used like the container that embeds it, one thread at a time.
// Invariant: never delivers a byte of a part that has changed since the sealing.
#pragma once
#include "VYM/Sha256.h"

#include <functional>
#include <span>
#include <vector>

class ContainerSeal {
public:
    // Bytes per digest: large enough that the digests of the largest container take 8 MiB, small
    // enough to be read and hashed again for each piece of firmware, however small.
    static constexpr std::size_t kPart = 16384;
    // Receives each part in order; false ends the reading without a seal.
    using Watch = std::function<bool(std::span<const unsigned char>)>;

    // Reads bytes of the container from an offset; true only if every byte was read.
    using Read = std::function<bool(std::uint64_t, unsigned char*, unsigned long)>;

    // Reads a container of that size from its first byte to its last. False, without a seal, if a
    // byte cannot be read, memory is short, or the watch ends it. Passes on exceptions of the
    // watch.
    bool take(std::uint64_t size, const Read& container, const Watch& watch);
    [[nodiscard]] bool isTaken() const { return m_isTaken; }
    // False if the range is incomplete or one of its parts has changed.
    bool read(const Read& container, std::uint64_t offset, unsigned char* buffer,
              unsigned long length);

private:
    bool check(const Read& container, std::size_t part);

    std::vector<Sha256::Digest> m_digests;
    std::vector<unsigned char> m_bytes; // of the current part
    std::uint64_t m_size = 0; // of the container
    bool m_isTaken = false;
};
