// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/Store.h"
#include "tests/Tools/vymprinter/tcp_desk.h"

#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

TEST(VymprinterStore, NamesFromTheWireStayInsideTheFolder)
{
    const struct {
        const char *name, *file;
    } rows[] = {
        {"MAIN.BIN", "MAIN.BIN"},
        {"../../etc", "_._.._etc"},
        {"", "unnamed"},
        {".hidden", "_hidden"},
        {"transcript.txt", "_transcript.txt"},
        {"a b\n\xff", "a_b__"},
        {"..", "_."},
    };
    for (const auto& row : rows)
        EXPECT_EQ(safeFileName(row.name), row.file);
}

TEST(VymprinterStore, FolderThatCannotBeMadeIsAnError)
{
    EXPECT_THAT(Store("x", "/dev/null/folder", true).error(), HasSubstr("/dev/null/folder"));
}

} // namespace
