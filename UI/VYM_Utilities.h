// Small utilities of the interface: the address behind a print queue of the driver, what a port
// string means, how wide a text is, and which icon goes with a message.
//
// Owns:    nothing.
// Threads: any.
// Errors:  an absent argument or an unknown thing has an absent answer; only std::bad_alloc may be
//          thrown.
#pragma once
#include "UI/rlpd_conf_access.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

enum class StringEncoding : std::uint8_t { utf8 = 4 };

// The icons that a message may ask for, by the four letters that name them.
constexpr std::uint32_t kNoteIcon = 0x6E6F7465; // 'note'
constexpr std::uint32_t kCautionIcon = 0x63617574; // 'caut'

// An icon of the user's theme, named as freedesktop.org's icon themes name it; a window draws it.
struct SystemIcon {
    const char* name;
    unsigned size; // of its edges, in pixels
};

class VYM_Utilities {
public:
    using Text = std::optional<std::string>;

    // The port string of the driver's queue with this identifier, as the driver's configuration in
    // the folder has it.
    static Text getPrinterAddressFromID(const Text& identifier, const Text& folder);
    // type: one of the kConnection numbers. text: what was recognised, untouched where nothing was.
    static void getConnectionTypeFromURI(const Text& uri, int& type, std::string* text = nullptr);
    // In columns: a UTF-16 unit of printable ASCII takes one, every other unit two. A byte that is
    // no UTF-8 counts as one character beyond ASCII.
    static unsigned stringByteCount(std::string_view text);
    // Of texts that the system and its devices give.
    static StringEncoding systemEncoding() { return StringEncoding::utf8; }
    // Only 'note' and 'caut' have an icon.
    static std::optional<SystemIcon> getSystemIcon(std::uint32_t type, unsigned size);
};
