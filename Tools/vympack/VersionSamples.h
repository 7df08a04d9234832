// Installed versions that show what a package's version rule does: older, the same, newer, and what
// its form and COMPATIBLE make of others.
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

// How many samples each version has; a sample that the form does not have has an empty version.
inline constexpr std::size_t kSamples = 8;
// For an update's version and its compatible version, which may be empty.
std::vector<VersionSample> versionSamples(std::string_view update, std::string_view compatible);
// The form of a version in words.
const char* formText(std::string_view version);

} // namespace vympack
