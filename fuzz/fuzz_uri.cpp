// SPDX-License-Identifier: MIT
// Any text as a port string, and as an address that a person types.
#include "UI/VYM_Utilities.h"
#include "fuzz/Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(asText(data, size));
    int type = -1;
    std::string found = "none";
    VYM_Utilities::getConnectionTypeFromURI(text, type, &found);
    require(type >= kConnectionUnknown && type <= kConnectionBonjour, "a type of the table");
    require((type == kConnectionUnknown) == (found == "none"), "type and text belong together");
    require(found == "none" || text.find(found) != std::string::npos, "the text is in the URI");

    const auto columns = VYM_Utilities::stringByteCount(text);
    require(columns <= 2 * size, "no more than two columns a byte");
    require(2 * columns >= size, "a character of four bytes takes four, one of three two");
    require(VYM_Utilities::stringByteCount(text + 'x') == columns + 1, "a letter adds a column");
    return 0;
}
