// SPDX-License-Identifier: MIT
// Rows of a table of defects: what is changed in the good description, and what check then says.
//
// Threads: one.
#pragma once
#include "Tools/vympack/DescriptionCheck.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>

namespace vympack_test {

inline const std::vector<vympack::EmbeddedFile> kFiles{{"VYMINFO.txt", 400, {}},
                                                       {"main.bin", 8, {}}};

inline vympack::Defects check(const std::string& text,
                              const std::vector<vympack::EmbeddedFile>& files = kFiles)
{
    vympack::Defects defects;
    vympack::checkDescription(text, {"VYMINFO.txt", {}, {}}, &files, defects);
    return defects;
}

struct Row {
    const char* why;
    const char* from; // in the good description
    std::string to;
    std::vector<std::string> found;
    std::size_t row; // of the first defect
    std::size_t column;
};

inline void expectRows(const std::vector<Row>& rows)
{
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto defects = check(replaced(goodDescription(), row.from, row.to));
        EXPECT_THAT(namesOf(defects), testing::UnorderedElementsAreArray(row.found));
        if (row.found.empty() || defects.kept().empty())
            continue;
        EXPECT_EQ(defects.kept().front().place.row, row.row);
        EXPECT_EQ(defects.kept().front().place.column, row.column);
    }
}

inline const std::string kVersion =
    "VERSION MAIN=AB010203 main.bin MAIN.BIN COMPATIBLE=AB010100 DISPVER=1.2.3\r\n";

} // namespace vympack_test
