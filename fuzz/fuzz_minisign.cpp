// SPDX-License-Identifier: MIT
// Any bytes as a key and as a signature file. The target writes accepted content again and compares
// it with the input: an accepted file has only one form.
#include "UI/Package/Minisign.h"
#include "fuzz/Fuzz.h"

#include <string>

namespace {

std::string toBase64(const std::vector<unsigned char>& bytes)
{
    constexpr std::string_view kDigits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const auto at = [&](std::size_t k) -> unsigned {
            return i + k < bytes.size() ? bytes[i + k] : 0;
        };
        const auto bits = at(0) << 16 | at(1) << 8 | at(2);
        for (unsigned digit = 0; digit < 4; ++digit)
            text += i + digit <= bytes.size() ? kDigits[bits >> (18 - 6 * digit) & 63] : '=';
    }
    return text;
}

template <class... Parts> std::string base64Of(const char* mark, const Parts&... parts)
{
    std::vector<unsigned char> bytes(mark, mark + 2);
    (bytes.insert(bytes.end(), parts.begin(), parts.end()), ...);
    return toBase64(bytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto text = asText(data, size);
    if (const auto bytes = minisign::fromBase64(text))
        require(toBase64(*bytes) == text, "one text for each value");
    if (const auto key = minisign::parsePublicKey(text))
        require(text.find(base64Of("Ed", key->id, key->bytes)) != std::string_view::npos,
                "the key is the file's");
    if (const auto found = minisign::parseSignature(text)) {
        const auto line = base64Of(found->isPrehashed ? "ED" : "Ed", found->id, found->bytes);
        require(text.find(line) != std::string_view::npos, "the signature is the file's");
        require(text.find("trusted comment: " + found->trustedComment) != std::string_view::npos,
                "the comment is the file's");
        require(found->trustedComment.find('\n') == std::string::npos, "one line");
    }
    return 0;
}
