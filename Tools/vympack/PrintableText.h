// Texts of unknown origin made fit for a terminal and for JSON, however long they are.
//
// Threads: any. Reads nothing but its argument.
#pragma once
#include "UI/Text/PlainText.h"

namespace vympack {

inline std::string printable(std::string_view text)
{
    return plainText(text, std::string_view::npos);
}

} // namespace vympack
