// SPDX-License-Identifier: MIT
// A parser that has read a description of these rows.
#pragma once
#include "VYM/vymParse.h"
#include "tests/support/Package.h"

#include <initializer_list>
#include <string_view>

class RowParser : public vymParse {
public:
    RowParser(std::initializer_list<std::string_view> texts, loadFile_type type = load_vyminfo)
    {
        const auto all = rows(texts);
        loadData(all.data(), all.size(), type);
    }
};
