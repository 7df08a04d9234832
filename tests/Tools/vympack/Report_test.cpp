// SPDX-License-Identifier: MIT
#include "Tools/vympack/Report.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <sstream>

using namespace vympack;
using testing::HasSubstr;

namespace {

constexpr DefectKind kKind{"a-kind", Severity::warning, "why it matters"};

} // namespace

TEST(VympackReport, ADefectHasPlaceMessageReasonAndRemedy)
{
    Defects defects;
    defects.add(kKind, {"file\x1B", "member", {}, 3, 4}, "message", "ROW 1");
    std::ostringstream out;
    writeDefects(out, "file", defects);
    EXPECT_EQ(out.str(),
              "file\\x1b(member):3:4: warning: message [a-kind]\n"
              "    why: why it matters\n    write: ROW 1\nfile: 0 errors, 1 warning\n");
}

TEST(VympackReport, WhatDoesNotApplyIsNullInJson)
{
    Defects defects;
    defects.add(kKind, {"file", {}, 17}, "message");
    std::ostringstream out;
    writeDefectsJson(out, "file", defects, 0);
    const auto defect = nlohmann::json::parse(out.str())["defects"].at(0);
    EXPECT_EQ(defect["offset"], 17);
    for (const char* key : {"member", "row", "column", "write"})
        EXPECT_TRUE(defect[key].is_null()) << key;
}

TEST(VympackReport, WhatWasMadeIsListedWithItsDigests)
{
    std::ostringstream out;
    writeMade(out, {"package", 0, 9, "aa"}, {{"one", 0, 1, "bb"}});
    EXPECT_EQ(out.str(), "package: 1 file, 9 bytes, SHA-256 aa\n         1  bb  one\n");
}
