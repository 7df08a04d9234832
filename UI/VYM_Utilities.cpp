// SPDX-License-Identifier: MIT
#include "UI/VYM_Utilities.h"

#include "UI/Text/Utf8.h"

namespace {

// A text with a NUL in it would pass for another, shorter one.
bool isPlain(const VYM_Utilities::Text& text)
{
    return text.has_value() && text->find('\0') == std::string::npos;
}

unsigned columnsOf(Utf8Character character)
{
    if (character.code >= 0x20 && character.code <= 0x7E)
        return 1;
    return character.code > 0xFFFF ? 4 : 2; // characters beyond U+FFFF have two units
}

} // namespace

VYM_Utilities::Text VYM_Utilities::getPrinterAddressFromID(const Text& identifier,
                                                           const Text& folder)
{
    if (!isPlain(identifier) || !isPlain(folder))
        return std::nullopt;
    char* foundAddress = nullptr;
    char* foundSignature = nullptr;
    GetPrinterAddress(folder->c_str(), identifier->c_str(), &foundAddress, &foundSignature);
    const HeldText address(foundAddress);
    const HeldText signature(foundSignature);
    if (address == nullptr || signature == nullptr)
        return std::nullopt;
    return std::string(signature.get()) + address.get();
}

void VYM_Utilities::getConnectionTypeFromURI(const Text& uri, int& type, std::string* text)
{
    char* found = nullptr;
    ::getConnectionTypeFromURI(uri ? uri->c_str() : nullptr, &type, &found);
    const HeldText kept(found);
    if (kept != nullptr && text != nullptr)
        *text = kept.get();
}

unsigned VYM_Utilities::stringByteCount(std::string_view text)
{
    unsigned columns = 0;
    while (!text.empty()) {
        const auto character = firstCharacter(text);
        columns += columnsOf(character);
        text.remove_prefix(character.length == 0 ? 1 : character.length);
    }
    return columns;
}

std::optional<SystemIcon> VYM_Utilities::getSystemIcon(std::uint32_t type, unsigned size)
{
    switch (type) {
    case kNoteIcon:
        return SystemIcon{"dialog-information", size};
    case kCautionIcon:
        return SystemIcon{"dialog-warning", size};
    default:
        return std::nullopt;
    }
}
