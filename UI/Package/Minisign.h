// The two small text files of minisign: a public key and a detached signature. Read strictly: a
// file that is not exactly of that form is not read at all.
//
// Owns:    its values.
// Threads: any. Checks nothing: whether a signature is a key's is PackageTrust's question.
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
    bool isPrehashed; // over the BLAKE2b sum; else over the file itself, the form before 2020
    KeyId id; // of the key that it says it is of
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
