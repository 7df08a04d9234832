// SPDX-License-Identifier: MIT
#include "Tools/vympack/DecisionTable.h"
#include "Tools/vympack/EnginePackage.h"
#include "VYM/ProtocolResult.h"
#include "tests/Tools/vympack/support.h"
#include "tests/support/Package.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <sstream>

using namespace vympack;
using namespace vympack_test;
using testing::HasSubstr;

TEST(VympackDecisionTable, HasARowForEverySampleOfEveryFirmware)
{
    const TempFolder folder;
    auto text = goodDescription() + "VERSION BOOT=01.20 main.bin BOOT.BIN\r\n";
    folder.write("VYMBINDDATA", container({{"VYMINFO.txt", text}, {"main.bin", "x"}}));
    Package::openFolder(folder.path().string());
    const EnginePackage package(folder.path().string());
    ASSERT_NE(package.facts(), nullptr) << package.problem();
    const auto rows = decisionTable(*package.facts(), {"Model 100", {}, true});
    const auto count = [&](std::uint32_t number) {
        return std::count_if(rows.begin(), rows.end(),
                             [&](const auto& row) { return row.number == number; });
    };
    EXPECT_EQ(count(1), 6);
    EXPECT_EQ(count(2), 6);
    EXPECT_EQ(decisionTableJson(rows).size(), rows.size());
    std::ostringstream out;
    writeDecisionTable(out, rows);
    EXPECT_THAT(out.str(), HasSubstr("\nBOOT 01.20 (NN.NN)\n"));
    EXPECT_THAT(out.str(), HasSubstr("lower major number   00.20"));
}
