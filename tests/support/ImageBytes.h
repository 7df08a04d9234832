// SPDX-License-Identifier: MIT
// Bytes of a firmware image for tests: they vary within the image and are the same at every call.
#pragma once
#include <cstdint>
#include <string>

inline std::string imageBytes(std::size_t size, unsigned seed = 1)
{
    std::string bytes(size, '\0');
    std::uint32_t state = seed * 2654435761U + 1;
    for (char& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}
