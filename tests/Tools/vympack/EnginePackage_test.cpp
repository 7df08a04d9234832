// SPDX-License-Identifier: MIT
#include "Tools/vympack/EnginePackage.h"
#include "tests/Tools/vympack/support.h"
#include "tests/support/Package.h"

#include <gmock/gmock.h>

using namespace vympack;
using namespace vympack_test;
using testing::HasSubstr;

namespace {

// Closes packages that earlier tests of this process opened.
class VympackEnginePackage : public testing::Test {
protected:
    void SetUp() override { Package::openFolder(m_folder.path().string()); }
    TempFolder m_folder;
};

} // namespace

TEST_F(VympackEnginePackage, OpensAFileOfAnyName)
{
    const EnginePackage package(m_folder.write("any", container(goodFiles())));
    ASSERT_NE(package.facts(), nullptr) << package.problem();
    EXPECT_EQ(package.facts()->model, "Model 100");
}

TEST_F(VympackEnginePackage, OpensTheFolder)
{
    m_folder.write("VYMBINDDATA", container(goodFiles()));
    const EnginePackage package(m_folder.path().string());
    EXPECT_NE(package.facts(), nullptr) << package.problem();
}

TEST_F(VympackEnginePackage, SaysWhyAPackageCannotBeUsed)
{
    const EnginePackage package(
        m_folder.write("any", container({{"VYMINFO.txt", goodDescription()}, {"other", "x"}})));
    EXPECT_EQ(package.facts(), nullptr);
    EXPECT_THAT(package.problem(), HasSubstr("main.bin"));
}
