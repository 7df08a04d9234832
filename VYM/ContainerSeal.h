// What the container's bytes were when it was checked: a digest of each part of the file. Whatever
// is read through the seal later is the very same, or is not delivered at all. So a package that is
// written over while a run goes on never reaches a printer half in one version, half in another.
//
// Owns:      the digests and room for one part.
// Threads:   none of its own; used like the container that embeds it, one thread at a time.
// Invariant: no byte is delivered whose part differs from what was sealed.
#pragma once
#include "VYM/Sha256.h"

#include <functional>
#include <vector>

class vymBindInfo;

class ContainerSeal {
public:
    // Bytes that share a digest: large enough that the digests of the largest container take 8 MiB,
    // small enough to be read and summed again for each piece of firmware, however small.
    static constexpr std::size_t kPart = 16384;
    // Sees each part in order; false ends the reading, and there is no seal.
    using Watch = std::function<bool(std::span<const unsigned char>)>;

    // Reads the open container from its first byte to its last. False, and no seal, where a byte
    // cannot be read, memory is short, or the watch ended it. Throws what the watch throws.
    bool take(const vymBindInfo& container, const Watch& watch);
    [[nodiscard]] bool isTaken() const { return m_isTaken; }
    // False where the stretch is not wholly there or one of its parts has changed.
    bool read(const vymBindInfo& container, std::uint64_t offset, unsigned char* buffer,
              unsigned long length);

private:
    bool check(const vymBindInfo& container, std::size_t part);

    std::vector<Sha256::Digest> m_digests;
    std::vector<unsigned char> m_bytes; // of the part in hand
    std::uint64_t m_size = 0; // of the container
    bool m_isTaken = false;
};
