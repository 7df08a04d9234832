// SPDX-License-Identifier: MIT
// SHA-256 as the tools use it: of bytes from anywhere, shown in hexadecimal.
//
// Threads: any; the digest is the caller's.
#pragma once
#include "VYM/Sha256.h"

#include <cstddef>
#include <string>

namespace vympack {

inline void addTo(Sha256& digest, const void* data, std::size_t length)
{
    digest.add({static_cast<const unsigned char*>(data), length});
}

// Once, after the last byte.
inline std::string hexOf(Sha256& digest)
{
    return Sha256::toHex(digest.finish());
}

} // namespace vympack
