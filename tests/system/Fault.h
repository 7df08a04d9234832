// SPDX-License-Identifier: MIT
// One fault of a printer, for tests of whole updates over any link.
#pragma once
#include <cctype>
#include <gtest/gtest.h>
#include <ostream>
#include <set>
#include <string>

struct Fault {
    const char* spec; // in the virtual printer's syntax
    std::set<int> exitCodes;
    bool bytesWentOut;
};

inline void PrintTo(const Fault& fault, std::ostream* out)
{
    *out << fault.spec;
}

inline std::string nameOf(const ::testing::TestParamInfo<Fault>& row)
{
    std::string name = row.param.spec;
    for (char& c : name)
        c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
    return name;
}
