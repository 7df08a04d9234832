// SPDX-License-Identifier: MIT
// Decides whether the container can be trusted: it has the given SHA-256, and it is signed with a
// trusted key. Success is proved, never assumed: an unreadable, missing or malformed file leaves
// the package untrusted.
//
// The same reading seals the container, so that only checked bytes are sent later.
//
// Owns:    nothing.
// Threads: the caller's; the container is used by one thread at a time.
#pragma once
#include "UI/Package/PackageReason.h"
#include "VYM/vymBindInfo.h"

#include <functional>
#include <optional>
#include <string>

// Keys that the administrator trusts, one file each, their names ending in ".pub".
constexpr const char* kKeyFolder = "/etc/vymkit/keys";
// Added to the container's name, this is the name of its signature.
constexpr const char* kSignatureSuffix = ".minisig";

struct TrustRequest {
    std::string sha256; // the container's, in hexadecimal; empty: any
    // A key file or the key's Base64 text; then only a package signed with it is trusted. Empty:
    // the keys of the folder decide, if there are any.
    std::string key;
    std::string keyFolder = kKeyFolder;
    bool wantsSum = false; // also where nothing is required; a package without one stays trusted
};

// The signer of a package; both texts are safe to show.
struct PackageSignature {
    std::string key; // the key file's name
    std::string comment; // the trusted comment, which is also signed
};

struct TrustResult {
    bool isTrusted = false;
    bool wasStopped = false;
    PackageReason reason; // why it is not trusted
    std::optional<PackageSignature> signature; // if there was a key to verify it
    std::string sha256; // of the container that is trusted, if it was read for a proof or wanted
};

// containerFile: the path with which the container was opened.
TrustResult checkTrust(vymBindInfo& container, const std::string& containerFile,
                       const TrustRequest& request, const std::function<bool()>& shouldStop);
