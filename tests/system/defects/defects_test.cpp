// SPDX-License-Identifier: MIT
// The linter's table against the programs: for every kind of defect, a package that has it, and the
// consequence that the kind's text claims.
#include "tests/system/defects/Defective.h"

#include <gmock/gmock.h>
#include <regex>

namespace {

using namespace defects;

std::vector<Row> allRows()
{
    auto all = containerRows();
    for (const auto& more : {settingRows(), versionRows()})
        all.insert(all.end(), more.begin(), more.end());
    return all;
}

// Kinds of one name differ in their severity.
std::string idOf(const vympack::DefectKind& kind)
{
    return (kind.severity == vympack::Severity::error ? "error " : "warning ")
        + std::string(kind.name);
}

class DefectOf : public ::testing::TestWithParam<Row> { };

TEST_P(DefectOf, IsNamedByTheLinterAndHasItsConsequence)
{
    const auto& row = GetParam();
    Defective package;
    Process linter({VYMPACK, "check", "--json", package.write(row)});
    linter.wait();
    const auto report = Json::parse(linter.out());
    std::set<std::string> named;
    std::set<std::string> reasons;
    for (const auto& defect : report["defects"]) {
        named.insert(defect["name"]);
        reasons.insert(defect["why"]);
    }
    auto wanted = row.also;
    wanted.emplace(row.kind.name);
    EXPECT_EQ(named, wanted) << linter.out();
    EXPECT_TRUE(reasons.contains(std::string(row.kind.why)));
    row.consequence(package);
}

INSTANTIATE_TEST_SUITE_P(APackage, DefectOf, ::testing::ValuesIn(allRows()),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(DefectTable, HasARowForEveryKindOfTheLinter)
{
    const auto source = readFile(VYMPACK_DEFECT_KINDS);
    const std::regex kind(R"(DefectKind k\w+\{\s*\"([a-z-]+)\",\s*Severity::(\w+))");
    std::set<std::string> declared;
    for (std::sregex_iterator found(source.begin(), source.end(), kind), end; found != end; ++found)
        declared.insert((*found)[2].str() + " " + (*found)[1].str());
    std::set<std::string> tested;
    for (const auto& row : allRows())
        tested.insert(idOf(row.kind));
    EXPECT_EQ(declared, tested);
}

} // namespace
