// SPDX-License-Identifier: MIT
// Small utilities of the interface: the address of a print queue of the driver, the meaning of a
// port string, the width of a text, and the icon of a message.
//
// Owns:    nothing.
// Threads: any.
// Errors:  an absent or unknown argument gives an absent result; throws only std::bad_alloc.
#pragma once
#include "UI/rlpd_conf_access.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

enum class StringEncoding : std::uint8_t { utf8 = 4 };

// The icons for messages; each code consists of four letters.
constexpr std::uint32_t kNoteIcon = 0x6E6F7465; // 'note'
constexpr std::uint32_t kCautionIcon = 0x63617574; // 'caut'

// An icon of the user's theme, by its freedesktop.org name; a window draws it.
struct SystemIcon {
    const char* name;
    unsigned size; // of its edges, in pixels
};

class VYM_Utilities {
public:
    using Text = std::optional<std::string>;

    // The port string of the driver's queue with this identifier, from the driver's configuration
    // in the folder.
    static Text getPrinterAddressFromID(const Text& identifier, const Text& folder);
    // type: one of the kConnection numbers. text: the recognised part, untouched if there is none.
    static void getConnectionTypeFromURI(const Text& uri, int& type, std::string* text = nullptr);
    // In columns: a UTF-16 unit of printable ASCII takes one, every other unit two. An invalid byte
    // counts as one character beyond ASCII.
    static unsigned stringByteCount(std::string_view text);
    // For texts from the system and its devices.
    static StringEncoding systemEncoding() { return StringEncoding::utf8; }
    // Only 'note' and 'caut' have an icon.
    static std::optional<SystemIcon> getSystemIcon(std::uint32_t type, unsigned size);
};
