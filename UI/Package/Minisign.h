// SPDX-License-Identifier: MIT
// The two small text files of minisign: a public key and a detached signature. Strict: refuses
// every file that does not have exactly that form.
//
// Owns:    its values.
// Threads: any. Verifies no signature: PackageTrust does that.
#pragma once
#include "Platform/SignatureCheck.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace minisign {

using KeyId = std::array<unsigned char, 8>;

struct PublicKey {
    KeyId id;
    signature::Key bytes;
};

struct DetachedSignature {
    bool isPrehashed; // over the BLAKE2b sum; otherwise over the file itself, the form before 2020
    KeyId id; // of the key that it claims
    signature::Signature bytes; // over the file
    std::string trustedComment;
    signature::Signature commentBytes; // over the signature and the trusted comment
};

// A key file of two lines, or its second line alone.
std::optional<PublicKey> parsePublicKey(std::string_view text);
// A signature file of four lines.
std::optional<DetachedSignature> parseSignature(std::string_view text);
// The bytes of a Base64 text with its padding; no value for any other text.
std::optional<std::vector<unsigned char>> fromBase64(std::string_view text);

} // namespace minisign
