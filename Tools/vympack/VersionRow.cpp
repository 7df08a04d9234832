// SPDX-License-Identifier: MIT
#include "Tools/vympack/VersionRow.h"

#include "Tools/vympack/DescriptionKeys.h"

#include <algorithm>
#include <iterator>

namespace vympack {

namespace {

constexpr std::string_view kTokenNames[] = {"COMPATIBLE", "HEADER", "DISPVER", "DISPFIRM"};

void takeToken(std::string_view token, bool first, VersionRow& version)
{
    const auto named = description::splitNamed(token);
    if (first)
        version.first = named;
    if (!named.value && version.image.empty())
        version.image = token;
    else if (!named.value)
        version.subFiles.push_back(token);
    else if (description::equalNoCase(named.name, "COMPATIBLE"))
        version.compatible = *named.value;
    else if (!first && !isTokenName(named.name))
        version.others.push_back(token);
}

} // namespace

bool isTokenName(std::string_view name)
{
    return std::any_of(std::begin(kTokenNames), std::end(kTokenNames),
                       [&](auto candidate) { return description::equalNoCase(name, candidate); });
}

std::string_view nearestTokenName(std::string_view name)
{
    return nearest(name, kTokenNames);
}

VersionRow parseVersionRow(std::string_view row)
{
    VersionRow version;
    description::Tokens tokens(description::afterToken(row));
    std::string_view token;
    for (bool first = true; tokens.next(token); first = false)
        takeToken(token, first, version);
    return version;
}

bool namesFirmware(const VersionRow& row)
{
    return row.first.value && !isTokenName(row.first.name);
}

std::string_view imageName(const VersionRow& row)
{
    const auto separator = row.image.find_last_of("/\\");
    return separator == std::string_view::npos ? row.image : row.image.substr(separator + 1);
}

} // namespace vympack
