// SPDX-License-Identifier: MIT
#include "Tools/vympack/CheckCommand.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <sstream>

using namespace vympack;
using namespace vympack_test;
using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

namespace {

class VympackCheck : public testing::Test {
protected:
    int check(const std::string& path, bool isJson = false, bool isStrict = false)
    {
        m_results.str({});
        return checkPackage({path, isJson, isStrict}, {m_results, m_errors});
    }

    TempFolder m_folder;
    std::ostringstream m_results;
    std::ostringstream m_errors;
};

} // namespace

TEST_F(VympackCheck, ADescriptionAloneIsCheckedWithoutItsImages)
{
    EXPECT_EQ(check(m_folder.write("VYMINFO.txt", goodDescription())), kExitDone);
    EXPECT_EQ(check(m_folder.write("other.TXT", replaced(goodDescription(), "48350", "0"))),
              kExitDefects);
    EXPECT_THAT(m_results.str(), HasSubstr("other.TXT:5:8: error: PORTNO"));
    EXPECT_THAT(m_results.str(), HasSubstr("\n    write: PORTNO 48350\n"));
}

TEST_F(VympackCheck, APackageMayHaveAnyName)
{
    EXPECT_EQ(check(m_folder.write("package.txt", container(goodFiles()))), kExitDone);
    EXPECT_EQ(check(m_folder.write("package.bin", goodDescription())), kExitDefects);
    EXPECT_THAT(m_results.str(), HasSubstr("[bad-trailer]"));
}

TEST_F(VympackCheck, OfAFolderTheDescriptionIsCheckedWithTheImagesBesideIt)
{
    m_folder.write("VYMINFO.txt", goodDescription());
    m_folder.write("README", "is no part of the package");
    EXPECT_EQ(check(m_folder.path().string()), kExitDefects);
    EXPECT_THAT(m_results.str(), HasSubstr("[image-missing]"));
    m_folder.write("main.bin", "firmware");
    EXPECT_EQ(check(m_folder.path().string()), kExitDone);
    EXPECT_THAT(m_results.str(), HasSubstr("0 errors, 0 warnings"));
}

TEST_F(VympackCheck, OfAFolderThePackageIsCheckedToo)
{
    m_folder.write("VYMBINDDATA", container(goodFiles()));
    EXPECT_EQ(check(m_folder.path().string()), kExitDone);
    m_folder.write("VYMBINDDATA", "broken");
    EXPECT_EQ(check(m_folder.path().string()), kExitDefects);
    for (const auto& [name, bytes] : goodFiles())
        m_folder.write(name, bytes);
    EXPECT_EQ(check(m_folder.path().string()), kExitDefects);
}

TEST_F(VympackCheck, AFolderWithoutEitherIsNoInput)
{
    EXPECT_EQ(check(m_folder.path().string()), kExitNoInput);
    EXPECT_THAT(m_errors.str(), HasSubstr("neither VYMINFO.txt nor VYMBINDDATA"));
}

TEST_F(VympackCheck, WarningsAreErrorsInStrictMode)
{
    const auto path =
        m_folder.write("VYMINFO.txt", replaced(goodDescription(), "ENTERTIME", "ENTRETIME"));
    EXPECT_EQ(check(path), kExitDone);
    EXPECT_EQ(check(path, false, true), kExitDefects);
    EXPECT_EQ(check(path, true, true), kExitDefects);
    EXPECT_EQ(json::parse(m_results.str())["exit_code"], kExitDefects);
}

TEST_F(VympackCheck, JsonHasASchemaVersionAndSaysWhyAndWhatToWrite)
{
    check(m_folder.write("VYMINFO.txt", replaced(goodDescription(), "48350", "0")), true);
    const auto report = json::parse(m_results.str());
    EXPECT_EQ(report["schema_version"], 1);
    EXPECT_EQ(report["command"], "check");
    const auto& defect = report["defects"].at(0);
    EXPECT_EQ(defect["write"], "PORTNO 48350");
    EXPECT_THAT(defect["why"].get<std::string>(), HasSubstr("vymkit-cli"));
}

TEST_F(VympackCheck, TheReasonIsGivenOnceForEachKind)
{
    check(m_folder.write("VYMINFO.txt", goodDescription() + "NOKEY\r\nNOKEY\r\n"));
    const auto text = m_results.str();
    const auto first = text.find("    why: ");
    ASSERT_NE(first, text.npos);
    EXPECT_EQ(text.find("    why: ", first + 1), text.npos);
}
