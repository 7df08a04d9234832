// SPDX-License-Identifier: MIT
#include "UI/Pages/PackageWords.h"
#include "tests/UI/Wizard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

using testing::HasSubstr;
using testing::Not;

namespace {

PackageReason reasonOf(PackageFault fault)
{
    return {fault, "/media/plan b/VYMBINDDATA", 0, {}, {{"maker.pub", true}, {"torn.pub", false}}};
}

} // namespace

TEST(PackageWords, AreThereForEveryFaultInEveryLanguage)
{
    std::set<std::string> english;
    for (const auto* language : kLanguages) {
        const Language texts(language);
        for (int i = 1; i <= static_cast<int>(PackageFault::stopped); ++i) {
            SCOPED_TRACE(std::string(language) + " " + std::to_string(i));
            const auto words = packageWords(reasonOf(static_cast<PackageFault>(i)));
            EXPECT_THAT(words, Not(testing::IsEmpty()));
            EXPECT_THAT(words, Not(HasSubstr("%")));
            EXPECT_THAT(words, Not(HasSubstr("Package_")));
            const bool isEnglish = language == std::string("en");
            if (isEnglish)
                english.insert(words);
            else
                EXPECT_EQ(english.count(words), 0U) << words;
        }
    }
    EXPECT_EQ(packageWords({}), "");
}

TEST(PackageWords, NameTheFileTheLimitAndTheKeys)
{
    const Language german("de");
    EXPECT_THAT(packageWords(reasonOf(PackageFault::notAPackage)),
                HasSubstr("„/media/plan b/VYMBINDDATA“ ist kein Update-Paket"));
    EXPECT_THAT(packageWords({PackageFault::longRow, "/p", 65536}),
                HasSubstr("von mehr als 65536 Byte."));
    EXPECT_THAT(packageWords(reasonOf(PackageFault::notSigned)),
                HasSubstr(": maker.pub, torn.pub (nicht lesbar)."));
}

TEST(PackageWords, AreShownByTheWindowInTheUsersLanguage)
{
    const TempFolder state;
    qputenv("XDG_STATE_HOME", state.path().c_str());
    const Language german("de");
    Wizard wizard;
    wizard.setup.packageProblem = "There is no folder '/media/stick' that can be read.";
    wizard.setup.packageReason = {PackageFault::noFolder, "/media/stick"};
    wizard.noPackage().open();
    ASSERT_EQ(wizard.alerts.asked().size(), 1U);
    EXPECT_THAT(wizard.alerts.asked()[0].details,
                HasSubstr("Den Ordner „/media/stick“ gibt es nicht"));
    EXPECT_THAT(wizard.alerts.asked()[0].details, Not(HasSubstr("There is")));
}
