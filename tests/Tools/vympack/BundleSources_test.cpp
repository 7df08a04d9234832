// SPDX-License-Identifier: MIT
#include "Tools/vympack/BundleSources.h"
#include "tests/Tools/vympack/bundle.h"

#include <gmock/gmock.h>
#include <sstream>

using namespace vympack;
using namespace vympack_test;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class VympackBundleSources : public testing::Test {
protected:
    bool programs() { return findPrograms(m_desk.path("programs"), m_files, m_streams); }
    bool debs() { return findDebs(m_desk.path("debs"), m_files, m_names, m_streams); }

    BundleDesk m_desk;
    std::vector<BundledFile> m_files;
    std::vector<std::string> m_names;
    std::ostringstream m_errors;
    Streams m_streams{m_errors, m_errors};
};

} // namespace

TEST_F(VympackBundleSources, ABuildFolderHasTheFormBesideTheProgram)
{
    ASSERT_TRUE(programs()) << m_errors.str();
    EXPECT_EQ(m_files.size(), 3U);
    EXPECT_EQ(m_files[2].file.size(), 5U);
}

TEST_F(VympackBundleSources, AnInstallationHasTheFormInItsDataFolder)
{
    m_desk.make("share");
    m_desk.make("share/vymkit");
    m_desk.folder().write("share/vymkit/MainWindow.ui", "<ui>installed</ui>");
    std::filesystem::remove(m_desk.path("programs/MainWindow.ui"));
    ASSERT_TRUE(programs()) << m_errors.str();
    EXPECT_EQ(m_files[2].name, "MainWindow.ui");
}

TEST_F(VympackBundleSources, AMissingProgramIsNamed)
{
    std::filesystem::remove(m_desk.path("programs/vymkit"));
    EXPECT_FALSE(programs());
    EXPECT_THAT(m_errors.str(), HasSubstr("programs/vymkit: No such file or directory"));
    EXPECT_THAT(m_errors.str(), HasSubstr("or use --debs"));
}

TEST_F(VympackBundleSources, WithoutAFolderItIsThisProgramsOwn)
{
    EXPECT_FALSE(findPrograms({}, m_files, m_streams)); // the tests' folder has no wizard
    EXPECT_THAT(m_errors.str(), HasSubstr("/vymkit: No such file or directory"));
}

TEST_F(VympackBundleSources, BothDebianPackagesOfOneVersion)
{
    m_desk.folder().write("debs/vymkit-tools_1.0_amd64.deb", kDebBytes);
    m_desk.folder().write("debs/vymkit_1.0_amd64.changes", "");
    m_desk.folder().write("debs/vymkit_$(reboot)_amd64.deb", kDebBytes);
    ASSERT_TRUE(debs()) << m_errors.str();
    EXPECT_THAT(m_names, ElementsAre("vymkit_1.0_amd64.deb", "vymkit-cli_1.0_amd64.deb"));
    EXPECT_EQ(m_files.size(), 2U);
}

TEST_F(VympackBundleSources, TwoVersionsAreOneTooMany)
{
    m_desk.folder().write("debs/vymkit_2.0_amd64.deb", kDebBytes);
    EXPECT_FALSE(debs());
    EXPECT_THAT(m_errors.str(), HasSubstr("more than one"));
}

TEST_F(VympackBundleSources, AnotherVersionOfTheCommandLineIsNotTaken)
{
    std::filesystem::rename(m_desk.path("debs/vymkit-cli_1.0_amd64.deb"),
                            m_desk.path("debs/vymkit-cli_0.9_amd64.deb"));
    EXPECT_FALSE(debs());
    EXPECT_THAT(m_errors.str(), HasSubstr("vymkit-cli_1.0_amd64.deb: No such file"));
}

TEST_F(VympackBundleSources, OnlyTheNameOfADebianPackageIsNotEnough)
{
    for (const auto& bytes : {std::string(), std::string("!<arch>"), std::string(100, 'x')}) {
        m_desk.folder().write("debs/vymkit-cli_1.0_amd64.deb", bytes);
        m_errors.str({});
        EXPECT_FALSE(debs());
        EXPECT_THAT(m_errors.str(), HasSubstr("is no Debian package"));
    }
}

TEST_F(VympackBundleSources, AFolderThatCannotBeReadIsNamed)
{
    EXPECT_FALSE(findDebs(m_desk.path("none"), m_files, m_names, m_streams));
    EXPECT_THAT(m_errors.str(), HasSubstr("none: No such file or directory"));
}
