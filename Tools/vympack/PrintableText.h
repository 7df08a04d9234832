// SPDX-License-Identifier: MIT
// Makes texts of unknown origin and any length safe for a terminal and for JSON.
//
// Threads: any. Reads only its argument.
#pragma once
#include "UI/Text/PlainText.h"

namespace vympack {

inline std::string printable(std::string_view text)
{
    return plainText(text, std::string_view::npos);
}

} // namespace vympack
