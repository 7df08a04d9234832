// SPDX-License-Identifier: MIT
#include "Tools/vympack/BundleCommand.h"
#include "Tools/vympack/BundleText.h"
#include "tests/Tools/vympack/bundle.h"
#include "tests/Tools/vympack/program.h"
#include "tests/support/Package.h"

#include <gmock/gmock.h>
#include <sstream>

using namespace vympack;
using namespace vympack_test;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class VympackBundle : public testing::Test {
protected:
    // Closes packages that earlier tests of this process opened.
    void SetUp() override { Package::openFolder(m_desk.path("")); }
    int bundle(const std::string& package = "VYMBINDDATA", const std::string& debs = {})
    {
        return bundlePackage({m_desk.path("out"), m_desk.path(package),
                              debs.empty() ? debs : m_desk.path(debs), m_desk.path("programs")},
                             {m_results, m_errors});
    }

    BundleDesk m_desk;
    std::ostringstream m_results;
    std::ostringstream m_errors;
};

} // namespace

TEST_F(VympackBundle, BarePrograms)
{
    ASSERT_EQ(bundle(), kExitDone) << m_errors.str();
    EXPECT_THAT(m_desk.names("out"),
                UnorderedElementsAre("LICENSE", "MainWindow.ui", "README.txt", "VYMBINDDATA",
                                     "start", "vymkit", "vymkit-cli"));
    EXPECT_EQ(readFile(m_desk.folder() / "out/VYMBINDDATA"), container(goodFiles()));
    EXPECT_THAT(readFile(m_desk.folder() / "out/LICENSE"), HasSubstr("MIT License"));
    EXPECT_THAT(readFile(m_desk.folder() / "out/README.txt"), HasSubstr("Model 100"));
    EXPECT_EQ(m_results.str(), m_desk.path("out") + ": ready for the printer Model 100\n");
    for (const char* name : {"start", "vymkit", "vymkit-cli"})
        EXPECT_EQ(::access(m_desk.path(std::string("out/") + name).c_str(), X_OK), 0) << name;
}

TEST_F(VympackBundle, DebianPackagesInsteadOfBarePrograms)
{
    ASSERT_EQ(bundle("VYMBINDDATA", "debs"), kExitDone) << m_errors.str();
    EXPECT_THAT(m_desk.names("out"),
                UnorderedElementsAre("LICENSE", "README.txt", "VYMBINDDATA", "start",
                                     "vymkit-cli_1.0_amd64.deb", "vymkit_1.0_amd64.deb"));
    EXPECT_THAT(readFile(m_desk.folder() / "out/README.txt"),
                HasSubstr("apt install ./vymkit_1.0_amd64.deb ./vymkit-cli_1.0_amd64.deb"));
}

TEST_F(VympackBundle, APackageOfAnyNameGetsTheNameThatProgramsLookForAndItsSignatureToo)
{
    m_desk.package("new.vymbind", container(goodFiles()));
    m_desk.package("new.vymbind.minisig", "signature");
    ASSERT_EQ(bundle("new.vymbind"), kExitDone) << m_errors.str();
    EXPECT_EQ(readFile(m_desk.folder() / "out/VYMBINDDATA"), container(goodFiles()));
    EXPECT_EQ(readFile(m_desk.folder() / "out/VYMBINDDATA.minisig"), "signature");
}

TEST_F(VympackBundle, AFolderWithThePackageWillDo)
{
    EXPECT_EQ(bundle(""), kExitDone) << m_errors.str();
}

TEST_F(VympackBundle, WhatIsRefusedLeavesNothing)
{
    m_desk.package("broken", "no package");
    auto unfit = goodDescription();
    m_desk.package("unfit",
                   container({{"VYMINFO.txt", replaced(unfit, "48350", "0")}, {"main.bin", "x"}}));
    m_desk.package("signed", container(goodFiles()));
    std::filesystem::create_symlink("nowhere", m_desk.path("signed.minisig"));
    m_desk.make("empty");
    const struct {
        const char* why;
        const char* package;
        const char* debs;
        int code;
    } rows[] = {
        {"no package there", "none", "", kExitNoInput},
        {"a folder without a package", "empty", "", kExitNoInput},
        {"a file that is no package", "broken", "", kExitDefects},
        {"a package with errors", "unfit", "", kExitDefects},
        {"a signature that cannot be read", "signed", "", kExitNoInput},
        {"a folder without Debian packages", "VYMBINDDATA", "empty", kExitNoInput},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(bundle(row.package, row.debs), row.code) << m_errors.str();
        EXPECT_FALSE(std::filesystem::exists(m_desk.path("out")));
    }
}

TEST_F(VympackBundle, AFolderThatExistsIsFilledIfItIsEmpty)
{
    m_desk.make("out");
    EXPECT_EQ(bundle(), kExitDone) << m_errors.str();
    const auto before = m_desk.names("out");
    EXPECT_EQ(bundle(), kExitDefects);
    EXPECT_THAT(m_errors.str(), HasSubstr("is not empty; give a new or an empty folder"));
    EXPECT_EQ(m_desk.names("out"), before);
}

TEST_F(VympackBundle, AFullDiskOrALimitLeavesNoHalfFolder)
{
    // In a mount namespace of its own; the program is run, so that its limit is not the test's.
    const auto line = std::string(VYMPACK_PROGRAM) + " bundle -o out/new --debs "
        + m_desk.path("debs") + " " + m_desk.path("VYMBINDDATA");
    m_desk.folder().write("debs/vymkit-cli_1.0_amd64.deb", kDebBytes + std::string(300'000, 'x'));
    m_desk.make("out");
    const auto limited = shell("cd " + m_desk.path("") + "; ulimit -f 100; " + line);
    EXPECT_EQ(limited.code, kExitNoOutput) << limited.output;
    EXPECT_THAT(limited.output, HasSubstr("vymkit-cli_1.0_amd64.deb: File too large"));
    EXPECT_THAT(m_desk.names("out"), IsEmpty());
    const auto full = shell("cd " + m_desk.path("")
                            + "; unshare -rm sh -c 'mount -t tmpfs -o size=64k none out && " + line
                            + "; code=$?; ls -A out; exit $code'");
    if (full.output.find("unshare") != std::string::npos
        || full.output.find("permission denied") != std::string::npos)
        GTEST_SKIP() << "no mount namespaces here: " << full.output;
    EXPECT_EQ(full.code, kExitNoOutput) << full.output;
    EXPECT_THAT(full.output, testing::EndsWith("No space left on device\n"));
}

TEST_F(VympackBundle, ASignalLeavesNoHalfFolder)
{
    // Sparse, and far more than is written before the signal arrives.
    std::filesystem::resize_file(m_desk.path("debs/vymkit-cli_1.0_amd64.deb"), 2'000'000'000);
    const auto outcome = shell("cd " + m_desk.path("") + "; " + VYMPACK_PROGRAM
                               + " bundle -o out --debs debs VYMBINDDATA & "
                                 "until ls -A out 2>/dev/null | grep -q vympack; do :; done; "
                                 "kill -TERM $!; wait $!");
    EXPECT_EQ(outcome.code, kExitInterrupted) << outcome.output;
    EXPECT_FALSE(std::filesystem::exists(m_desk.path("out")));
}
