// SPDX-License-Identifier: MIT
// Takes personal values out of a text that is passed on: each gets a stand-in such as "<host-1>",
// the same one wherever the value occurs.
//
// A value is recognised in any case of its ASCII letters, and also percent-encoded or escaped as in
// JSON, even twice. Where values overlap, the longest one that begins first counts.
//
// A value counts as a whole word: "anna" is masked in "/home/anna", "anna@pc" and "anna-laptop",
// not in "susanna". Serial numbers of six characters or more are masked inside of words, too.
// A value of one or two characters ("a"), or one that is an ordinary word of such texts
// ("printer"), would make every sentence unreadable; it is masked only where it stands as a name:
// next to one of / @ = \ and quotation marks.
//
// Owns:      its values.
// Threads:   one at a time.
// Invariant: a stand-in never changes; the n-th value of a kind has the number n.
#pragma once
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

class Masking {
public:
    enum class Kind : std::uint8_t { user, home, computer, serial, host, address, package, folder };

    // Makes the value a secret. Ignores a value without a letter or digit.
    void hide(Kind kind, const std::string& value);
    // The same for several spellings of one value, which share a stand-in.
    void hide(Kind kind, const std::vector<std::string>& spellings);
    // Hides what a text itself marks as personal: hosts and serial numbers in port strings, IPv4
    // and IPv6 addresses, hardware addresses.
    void hideMarked(std::string_view text);
    [[nodiscard]] std::string masked(std::string_view text) const;

private:
    struct Secret {
        std::string standIn;
        bool isWeak; // masked only where it stands as a name
        bool isLoose; // masked inside of words, too
    };

    // The longest one that begins there, or null; length: its value's.
    [[nodiscard]] const Secret* secretAt(std::string_view text, std::size_t at,
                                         std::size_t& length) const;
    [[nodiscard]] static bool fits(std::string_view text, std::size_t at, std::size_t length,
                                   const Secret& secret);
    void add(Kind kind, std::string value, const std::string& standIn);
    [[nodiscard]] std::string nextStandIn(Kind kind);

    std::map<std::string, Secret, std::less<>> m_secrets; // by value: decoded, in lower case
    std::set<std::size_t, std::greater<>> m_lengths; // of the values
    std::map<Kind, std::size_t> m_counts;
};
