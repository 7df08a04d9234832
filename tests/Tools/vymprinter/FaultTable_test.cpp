// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/FaultTable.h"
#include "Tools/vymprinter/Faults.h"
#include "tests/Tools/vymprinter/parsed_fault.h"

#include <gmock/gmock.h>
#include <set>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

TEST(VymprinterFaultTable, EveryNameParsesAndIsInTheList)
{
    const auto list = faultList();
    std::set<std::string_view> names;
    for (const auto& row : faultTable()) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        const auto fault = parsed(std::string(row.name) + (row.wantsValue ? "=7" : ""));
        EXPECT_EQ(fault.kind, row.kind) << row.name;
        EXPECT_EQ(fault.stage, row.usual) << row.name;
        EXPECT_THAT(list, HasSubstr("\n" + std::string(row.name)));
    }
}

} // namespace
