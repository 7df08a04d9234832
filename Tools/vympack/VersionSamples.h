// SPDX-License-Identifier: MIT
// Installed versions that show the effect of a package's version rule: older, the same, newer, and
// cases of its form and of COMPATIBLE.
//
// Owns:    its texts, by value.
// Threads: any.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace vympack {

struct VersionSample {
    const char* what; // "older"
    std::string version;
};

// The number of samples of each version; one that does not suit the form has an empty version.
inline constexpr std::size_t kSamples = 8;
// For an update's version and its compatible version, which may be empty.
std::vector<VersionSample> versionSamples(std::string_view update, std::string_view compatible);
// The form of a version in words.
const char* formText(std::string_view version);

} // namespace vympack
