// SPDX-License-Identifier: MIT
#include "UI/Package/Minisign.h"

#include <algorithm>
#include <array>

namespace minisign {

namespace {

constexpr std::string_view kUntrusted = "untrusted comment: ";
constexpr std::string_view kTrusted = "trusted comment: ";
constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t kMark = 2; // bytes for the algorithm's name

// The lines of a text without their ends; no empty line after the last line feed.
std::vector<std::string_view> linesOf(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        auto line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(line);
    }
    return lines;
}

template <std::size_t Size>
void take(std::vector<unsigned char>::const_iterator& from, std::array<unsigned char, Size>& to)
{
    std::copy_n(from, Size, to.begin());
    from += static_cast<std::ptrdiff_t>(Size);
}

bool hasMark(const std::vector<unsigned char>& bytes, std::string_view mark)
{
    return bytes.size() >= kMark && bytes[0] == static_cast<unsigned char>(mark[0])
        && bytes[1] == static_cast<unsigned char>(mark[1]);
}

} // namespace

std::optional<std::vector<unsigned char>> fromBase64(std::string_view text)
{
    if (text.size() % 4 != 0)
        return std::nullopt;
    const auto end = text.size()
        - static_cast<std::size_t>(text.ends_with("==")      ? 2
                                       : text.ends_with('=') ? 1
                                                             : 0);
    std::vector<unsigned char> bytes;
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < end; ++i) {
        const auto value = kDigits.find(text[i]);
        if (value == std::string_view::npos)
            return std::nullopt;
        bits = bits << 6 | static_cast<std::uint32_t>(value);
        if (i % 4 != 0)
            bytes.push_back(static_cast<unsigned char>(bits >> (6 - 2 * (i % 4))));
    }
    // Bits beyond the last byte must be 0, so that each value has only one text.
    const auto unused = end % 4 == 2 ? 0xFU : end % 4 == 3 ? 3U : 0U;
    if ((bits & unused) != 0)
        return std::nullopt;
    return bytes;
}

std::optional<PublicKey> parsePublicKey(std::string_view text)
{
    const auto lines = linesOf(text);
    if (lines.empty() || lines.size() > 2
        || (lines.size() == 2 && !lines.front().starts_with(kUntrusted)))
        return std::nullopt;
    PublicKey key{};
    const auto bytes = fromBase64(lines.back());
    if (!bytes || bytes->size() != kMark + key.id.size() + key.bytes.size()
        || !hasMark(*bytes, "Ed"))
        return std::nullopt;
    auto from = bytes->begin() + kMark;
    take(from, key.id);
    take(from, key.bytes);
    return key;
}

std::optional<DetachedSignature> parseSignature(std::string_view text)
{
    const auto lines = linesOf(text);
    if (lines.size() != 4 || !lines[0].starts_with(kUntrusted) || !lines[2].starts_with(kTrusted))
        return std::nullopt;
    DetachedSignature found{};
    const auto bytes = fromBase64(lines[1]);
    const auto commentBytes = fromBase64(lines[3]);
    if (!bytes || bytes->size() != kMark + found.id.size() + found.bytes.size() || !commentBytes
        || commentBytes->size() != found.commentBytes.size())
        return std::nullopt;
    found.isPrehashed = hasMark(*bytes, "ED");
    if (!found.isPrehashed && !hasMark(*bytes, "Ed"))
        return std::nullopt;
    auto from = bytes->begin() + kMark;
    take(from, found.id);
    take(from, found.bytes);
    found.trustedComment = lines[2].substr(kTrusted.size());
    from = commentBytes->begin();
    take(from, found.commentBytes);
    return found;
}

} // namespace minisign
