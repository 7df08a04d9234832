// SPDX-License-Identifier: MIT
#include "Tools/vympack/BundleText.h"
#include "tests/Tools/vympack/bundle.h"
#include "tests/Tools/vympack/program.h"

#include <gmock/gmock.h>

using namespace vympack;
using namespace vympack_test;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr const char* kHeadings[] = {"English",  "Deutsch", "Español",
                                     "Français", "日本語",  "简体中文"};
const BundleWords kBare{"Model 100", {}};
const BundleWords kPacked{"Model 100", {"vymkit_1.0_amd64.deb", "vymkit-cli_1.0_amd64.deb"}};

std::size_t count(const std::string& text, const std::string& part)
{
    std::size_t found = 0;
    for (auto at = text.find(part); at != text.npos; at = text.find(part, at + 1))
        ++found;
    return found;
}

// A bundle whose wizard is a script that says how it was started.
class VympackBundleStart : public testing::Test {
protected:
    void SetUp() override
    {
        m_desk.folder().write("programs/README.txt", readMe(kBare));
        m_desk.program("start", startScript(kBare));
        std::filesystem::rename(m_desk.path("programs"), m_desk.path("a folder"));
    }
    [[nodiscard]] Ended start(const std::string& environment) const
    {
        return shell("cd /; env -i PATH=/usr/bin:/bin " + environment + " '"
                     + m_desk.path("a folder/start") + "'");
    }
    BundleDesk m_desk;
};

} // namespace

TEST(VympackBundleText, EveryLanguageHasTheModelAndAllCommandLines)
{
    for (const auto& words : {kBare, kPacked}) {
        const auto text = readMe(words);
        for (const char* heading : kHeadings)
            EXPECT_EQ(count(text, "== " + std::string(heading) + "\n"), 1U) << heading;
        EXPECT_EQ(count(text, "\n== ") + 1, std::size(kHeadings));
        for (const char* line : {"Model 100\n", "sudo apt install ", " ./start\n",
                                 "vymkit-cli update ", "vymkit-cli doctor"})
            EXPECT_EQ(count(text, line), std::size(kHeadings)) << line;
    }
}

TEST(VympackBundleText, InstalledProgramsAreTheOnesOfThePackages)
{
    const auto text = readMe(kPacked);
    EXPECT_THAT(text, HasSubstr("install ./vymkit_1.0_amd64.deb ./vymkit-cli_1.0_amd64.deb\n"));
    EXPECT_THAT(text, HasSubstr(" vymkit-cli update --package . --address"));
    EXPECT_THAT(text, Not(HasSubstr("./vymkit-cli ")));
}

TEST(VympackBundleText, TheScriptIsOneForEveryShell)
{
    const TempFolder folder;
    for (const auto& words : {kBare, kPacked}) {
        const auto outcome = shell("sh -n " + folder.write("start", startScript(words)));
        EXPECT_EQ(outcome.code, 0) << outcome.output;
    }
}

TEST(VympackBundleText, TheLicenceIsWhole)
{
    EXPECT_THAT(licenceText(), StartsWith("MIT License\n"));
    EXPECT_THAT(licenceText(), testing::EndsWith("SOFTWARE.\n"));
}

TEST_F(VympackBundleStart, OpensTheWizardOnThePackageAndEndsAsItDoes)
{
    for (const char* display : {"DISPLAY=:9", "WAYLAND_DISPLAY=w"}) {
        const auto outcome = start(display);
        EXPECT_EQ(outcome.output, "wizard " + m_desk.path("a folder/VYMBINDDATA") + "\n");
        EXPECT_EQ(outcome.code, 0);
    }
    const auto outcome = start("DISPLAY=:9 WIZARD_CODE=66");
    EXPECT_EQ(outcome.code, 66);
    EXPECT_THAT(outcome.output, Not(HasSubstr("==")));
}

TEST_F(VympackBundleStart, WithoutADisplayItSaysInTheUsersLanguageHowToUseTheCommandLine)
{
    const struct {
        const char* environment;
        const char* heading;
    } rows[] = {
        {"LANG=de_DE.UTF-8", "Deutsch"},
        {"LC_ALL=fr_FR.utf8 LANG=de_DE.UTF-8", "Français"},
        {"LC_MESSAGES=es_ES.UTF-8", "Español"},
        {"LANG=ja_JP.UTF-8", "日本語"},
        {"LANG=zh_CN.UTF-8", "简体中文"},
        {"LANG=de_DE", "English"},
        {"LANG=C.UTF-8", "English"},
        {"", "English"},
    };
    for (const auto& row : rows) {
        const auto outcome = start(row.environment);
        EXPECT_EQ(outcome.code, 69);
        EXPECT_THAT(outcome.output, StartsWith("== " + std::string(row.heading) + "\n"));
        EXPECT_THAT(outcome.output, HasSubstr("./vymkit-cli update --address"));
        EXPECT_EQ(count(outcome.output, "== "), 1U) << outcome.output;
    }
}

TEST_F(VympackBundleStart, ADisplayThatDoesNotAnswerIsNone)
{
    for (const int code : {69, 134}) {
        const auto outcome = start("DISPLAY=:9 WIZARD_CODE=" + std::to_string(code));
        EXPECT_EQ(outcome.code, code);
        EXPECT_THAT(outcome.output, HasSubstr("== English\n"));
    }
}

TEST_F(VympackBundleStart, ADiskThatKnowsNoProgramsGetsAWayOut)
{
    ::chmod(m_desk.path("a folder/vymkit").c_str(), 0644);
    const auto outcome = start("DISPLAY=:9");
    EXPECT_EQ(outcome.code, 126);
    EXPECT_THAT(outcome.output, HasSubstr("chmod +x start vymkit vymkit-cli && ./start"));
}

TEST_F(VympackBundleStart, WithoutTheInstalledProgramItSaysHowToInstallIt)
{
    m_desk.folder().write("a folder/README.txt", readMe(kPacked));
    m_desk.folder().write("a folder/start", startScript(kPacked));
    const auto outcome = start("DISPLAY=:9");
    EXPECT_EQ(outcome.code, 127);
    EXPECT_THAT(outcome.output, HasSubstr("sudo apt install ./vymkit_1.0_amd64.deb"));
}
