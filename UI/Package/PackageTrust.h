// Whether the container is the one that it should be: the one with this SHA-256, and one that is
// signed with a trusted key. Success is proved, never assumed: whatever cannot be read, is missing
// or is not understood leaves the package untrusted.
//
// The container is sealed in the same reading, so that what was checked is what is sent later.
//
// Owns:    nothing.
// Threads: the caller's; the container is used by one thread at a time.
#pragma once
#include "VYM/vymBindInfo.h"

#include <functional>
#include <optional>
#include <string>

// Keys that the administrator trusts, one file each, their names ending in ".pub".
constexpr const char* kKeyFolder = "/etc/vymkit/keys";
// Beside the container's name, the name of its signature.
constexpr const char* kSignatureSuffix = ".minisig";

struct TrustRequest {
    std::string sha256; // the container's, in hexadecimal; empty: any
    // A key file or the key's Base64 text; only a package signed with it is trusted then. Empty:
    // the keys of the folder decide, if there are any.
    std::string key;
    std::string keyFolder = kKeyFolder;
};

// Whose signature a package bears; both texts are fit to be shown.
struct PackageSignature {
    std::string key; // the key file's name
    std::string comment; // the trusted comment, which is signed as well
};

struct TrustResult {
    bool isTrusted = false;
    bool wasStopped = false;
    std::string problem; // why it is not trusted, and what to do
    std::optional<PackageSignature> signature; // where there was a key to check it with
};

// containerFile: the path that the open container was opened by.
TrustResult checkTrust(vymBindInfo& container, const std::string& containerFile,
                       const TrustRequest& request, const std::function<bool()>& shouldStop);
