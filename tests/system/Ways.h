// SPDX-License-Identifier: MIT
// The ways in which a whole update goes, for tests of whole updates over any link.
#pragma once
#include <gtest/gtest.h>
#include <string>
#include <tuple>

// How many firmware, SPECIALCMDPATTERN, the printer's option of a status query, its --replies.
using Ways = std::tuple<std::size_t, const char*, const char*, const char*>;

inline std::string nameOfWay(const ::testing::TestParamInfo<Ways>& tested)
{
    const auto& [count, pattern, statusQuery, replies] = tested.param;
    const bool queried = std::string(statusQuery) == "--status-query";
    return std::to_string(count) + pattern + (queried ? "Queried" : "Unqueried") + replies;
}
