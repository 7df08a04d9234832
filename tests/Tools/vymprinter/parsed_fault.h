// SPDX-License-Identifier: MIT
// A fault from its text, for tests.
//
// Threads: any.
#pragma once
#include "Tools/vymprinter/Faults.h"

#include <gtest/gtest.h>

namespace vymprinter {

inline Fault parsed(const std::string& text)
{
    const auto result = parseFault(text);
    EXPECT_EQ(result.error, "") << text;
    return result.fault.value_or(Fault{});
}

} // namespace vymprinter
