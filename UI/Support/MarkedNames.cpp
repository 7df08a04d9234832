// SPDX-License-Identifier: MIT
#include "UI/Support/MarkedNames.h"

#include "UI/Support/DecodedText.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>

namespace {

using Kind = MarkedName::Kind;

// The text with the knowledge which of its characters were percent-encoded: such a one ends no part
// of a port string.
class Scan {
public:
    explicit Scan(std::string_view original)
        : m_original(original), m_decoded(decodedText(original))
    {
    }
    std::vector<MarkedName> names()
    {
        for (std::size_t at = 0; at < text().size(); ++at)
            lookAt(at);
        return std::move(m_names);
    }

private:
    [[nodiscard]] std::string_view text() const { return m_decoded.text; }
    void lookAt(std::size_t at);
    void addNumbers(std::size_t at);
    void addHost(std::string_view authority);
    [[nodiscard]] std::string_view upTo(std::size_t at, std::string_view ends) const;

    std::string_view m_original;
    DecodedText m_decoded;
    std::vector<MarkedName> m_names;
};

constexpr std::string_view kHexDigits = "0123456789abcdef";
// Longer than every name and address of a computer; keeps the work in proportion to the text.
constexpr std::size_t kLongestName = 512;

bool isAddress(int family, std::string_view text)
{
    std::array<unsigned char, sizeof(in6_addr)> bytes{};
    return inet_pton(family, std::string(text).c_str(), bytes.data()) == 1;
}

// Six pairs of hexadecimal digits with the same sign between them.
bool isHardwareAddress(std::string_view text)
{
    constexpr std::size_t kLength = 17;
    if (text.size() != kLength || (text[2] != ':' && text[2] != '-'))
        return false;
    for (std::size_t i = 0; i < kLength; ++i) {
        const bool isSign = i % 3 == 2;
        if (isSign ? text[i] != text[2] : kHexDigits.find(text[i]) == std::string_view::npos)
            return false;
    }
    return true;
}

std::string_view Scan::upTo(std::size_t at, std::string_view ends) const
{
    auto end = at;
    while (end < text().size() && end - at < kLongestName
           && (ends.find(text()[end]) == std::string_view::npos
               || m_original[m_decoded.begins[end]] == '%'))
        ++end;
    return text().substr(at, end - at);
}

void Scan::addHost(std::string_view authority)
{
    if (const auto at = authority.rfind('@'); at != std::string_view::npos)
        authority.remove_prefix(at + 1);
    if (authority.starts_with('['))
        authority = authority.substr(1, authority.find(']') - 1);
    else if (std::count(authority.begin(), authority.end(), ':') == 1)
        authority = authority.substr(0, authority.find(':'));
    while (authority.ends_with('.')) // of a sentence, or of a complete name
        authority.remove_suffix(1);
    const bool isNumber = isAddress(AF_INET, authority) || isAddress(AF_INET6, authority);
    if (!authority.empty() && authority != "localhost")
        m_names.push_back({isNumber ? Kind::address : Kind::host, std::string(authority)});
}

// Addresses in numbers, wherever they stand.
void Scan::addNumbers(std::size_t at)
{
    const auto run = [this, at](std::string_view allowed) {
        const auto part = text().substr(at, kLongestName);
        return part.substr(0, part.find_first_not_of(allowed));
    };
    auto digits = run("0123456789.");
    while (digits.ends_with('.'))
        digits.remove_suffix(1);
    const auto isWhole = [this](std::size_t end) {
        return end == text().size() || !isOfWord(text()[end]);
    };
    if (isWhole(at + digits.size()) && isAddress(AF_INET, digits))
        m_names.push_back({Kind::address, std::string(digits)});
    auto groups = run("0123456789abcdef:-.");
    while (groups.ends_with('.') || (groups.ends_with(':') && !groups.ends_with("::")))
        groups.remove_suffix(1);
    if (isWhole(at + groups.size()) && (isAddress(AF_INET6, groups) || isHardwareAddress(groups)))
        m_names.push_back({Kind::address, std::string(groups)});
}

void Scan::lookAt(std::size_t at)
{
    constexpr std::string_view kEnds = " \t\r\n\"'<>(),;/?#&";
    const auto rest = text().substr(at);
    const bool isFirst = at == 0 || !isOfWord(text()[at - 1]);
    if (rest.starts_with("://")) {
        if (!text().substr(0, at).ends_with("usb")) // there the maker follows
            addHost(upTo(at + 3, kEnds));
        return;
    }
    if (!isFirst)
        return;
    if (rest.starts_with("net:") && !rest.starts_with("net://"))
        addHost(upTo(at + 4, kEnds));
    for (const std::string_view mark : {"serial=", "uuid="}) {
        if (rest.starts_with(mark)) {
            const auto value = upTo(at + mark.size(), " \t\r\n\"'<>(),;&");
            m_names.push_back({Kind::serial, std::string(value)});
        }
    }
    addNumbers(at);
}

} // namespace

std::vector<MarkedName> markedNames(std::string_view text)
{
    return Scan(text).names();
}
