// SPDX-License-Identifier: MIT
// Decides whether a package is meant for the running system. The window refuses a system out of
// bounds, the command line only warns.
//
// A distribution with version numbers below 10 (9.4, 5, 3.19), or with none, cannot be compared
// with the bounds of packages (10.4, 22.04): it passes, with a remark for the log.
//
// Threads: any. Reads only its arguments.
#pragma once
#include <cstdint>
#include <string>

// All versions in the same BCD (0x1058 for 10.5.8), compared as signed numbers.
struct SystemBounds {
    std::int32_t highest = 0; // negative: no upper bound
    std::int32_t lowest = 0; // always applies; both are 0 if the package has no such row
};

struct PackageFacts;
// Those that the package's description sets.
SystemBounds boundsOf(const PackageFacts& package);

enum class SystemVerdict : std::uint8_t {
    supported,
    notCompared, // the system's number is below 10 or unknown, and outside the bounds: it passes
    unsupported,
};

// Whether the bounds include the system, even if its numbers cannot be compared.
constexpr bool isSystemSupported(std::int32_t system, std::int32_t maxVersion,
                                 std::int32_t minVersion)
{
    return system >= minVersion && (maxVersion < 0 || system <= maxVersion);
}

constexpr SystemVerdict judgeSystem(std::int32_t system, SystemBounds bounds)
{
    constexpr std::int32_t kLowestCompared = 0x1000; // 10.0.0
    if (isSystemSupported(system, bounds.highest, bounds.lowest))
        return SystemVerdict::supported;
    return system < kLowestCompared ? SystemVerdict::notCompared : SystemVerdict::unsupported;
}

// The verdict as one English sentence for a log or a warning; empty for a supported system.
std::string systemRemark(std::int32_t system, SystemBounds bounds);
