// SPDX-License-Identifier: MIT
#include "UI/Package/SystemCheck.h"

#include "UI/Package/PackageFacts.h"

#include <array>
#include <cstdio>

namespace {

// Two digits of major version, one of minor, one of patch.
std::string dotted(std::int32_t version)
{
    const auto bits = static_cast<std::uint32_t>(version);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%x.%x.%x", bits >> 8U, bits >> 4U & 0xFU, bits & 0xFU);
    return text.data();
}

std::string boundsText(SystemBounds bounds)
{
    if (bounds.highest < 0)
        return "from " + dotted(bounds.lowest) + " on";
    if (bounds.highest == 0 && bounds.lowest == 0)
        return "that it does not name (it has no PLATFORMVERSION row)";
    return "from " + dotted(bounds.lowest) + " to " + dotted(bounds.highest);
}

} // namespace

SystemBounds boundsOf(const PackageFacts& package)
{
    if (!package.lowestSystem.has_value())
        return {};
    return {static_cast<std::int32_t>(package.highestSystem.value_or(-1)),
            static_cast<std::int32_t>(*package.lowestSystem)};
}

std::string systemRemark(std::int32_t system, SystemBounds bounds)
{
    const auto number = system > 0 ? "version " + dotted(system) : "no version number";
    switch (judgeSystem(system, bounds)) {
    case SystemVerdict::supported:
        return {};
    case SystemVerdict::notCompared:
        return "This system has " + number
            + ". Only versions from 10 on are compared with the package's bounds, so it passes.";
    case SystemVerdict::unsupported:
        return "The package is for systems with a version " + boundsText(bounds)
            + ". This system has " + number + ".";
    }
    return {};
}
