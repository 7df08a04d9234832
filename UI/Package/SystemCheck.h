// Whether a package is meant for the running system.
//
// Threads: any. Reads nothing but its arguments.
#pragma once
#include <cstdint>

// All three in the same BCD, compared as signed numbers. A minimum always counts; a negative
// maximum means that there is none.
constexpr bool isSystemSupported(std::int32_t system, std::int32_t maxVersion,
                                 std::int32_t minVersion)
{
    return system >= minVersion && (maxVersion < 0 || system <= maxVersion);
}
