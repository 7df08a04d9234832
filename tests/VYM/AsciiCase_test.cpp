// SPDX-License-Identifier: MIT
// Names compare in the same way in every locale. The test builds the locale in which the letter I
// has two lower-case forms, since few computers have it.
#include "VYM/AsciiCase.h"
#include "VYM/vymMac.h"
#include "VYM/vymParse.h"
#include "tests/support/ProtocolFixture.h"
#include "tests/support/TempFolder.h"

#include <cctype>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <strings.h>

namespace {

// The process's locale is Turkish while this lives.
class TurkishLocale {
public:
    TurkishLocale()
    {
        // Its character set is small, so it is made in a third of the time of one for UTF-8.
        const auto build = "localedef -i tr_TR -f ISO-8859-9 '" + (m_folder / "tr_TR") + "'";
        EXPECT_EQ(std::system(build.c_str()), 0) << "it needs the package locales";
        setenv("LOCPATH", m_folder.path().c_str(), 1);
        EXPECT_NE(std::setlocale(LC_ALL, "tr_TR"), nullptr);
        EXPECT_NE(std::tolower('I'), 'i') << "so this locale would show nothing";
    }
    ~TurkishLocale()
    {
        std::setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
    }
    TurkishLocale(const TurkishLocale&) = delete;
    TurkishLocale& operator=(const TurkishLocale&) = delete;

private:
    TempFolder m_folder;
};

class Turkish : public ProtocolFixture { };

} // namespace

TEST(AsciiCase, HasOnlyTheTwentySixLetters)
{
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        const bool isLetter = byte >= 'a' && byte <= 'z';
        EXPECT_EQ(ascii::upper(c), isLetter ? static_cast<char>(byte - 32) : c) << byte;
    }
}

TEST(AsciiCase, ChangesALineByItsLettersOnly)
{
    EXPECT_EQ(ascii::upperCase("a Z_\xE4 9"), "A Z_\xE4 9");
    EXPECT_EQ(ascii::lowerCase("a Z_\xC4 9"), "a z_\xC4 9");
}

TEST(AsciiCase, ComparesTextsAsTheCLibraryDoesInThePlainLocale)
{
    const struct {
        const char* why;
        const char* left;
        const char* right;
    } rows[] = {
        {"both empty", "", ""},           {"the same", "Abc", "aBC"},
        {"a shorter one", "Ab", "abc"},   {"a longer one", "abcd", "ABC"},
        {"another letter", "abd", "ABC"}, {"a sign between the cases", "a_", "aB"},
        {"bytes above 127", "\xE4", "a"}, {"no case above 127", "\xE4", "\xC4"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ascii::compareNoCase(row.left, row.right), strcasecmp(row.left, row.right))
            << row.why;
        EXPECT_EQ(ascii::equalNoCase(row.left, row.right), strcasecmp(row.left, row.right) == 0)
            << row.why;
    }
}

TEST(AsciiCase, KnowsAPrefix)
{
    EXPECT_TRUE(ascii::beginsNoCase("VERSION MAIN", "version"));
    EXPECT_TRUE(ascii::beginsNoCase("x", ""));
    EXPECT_FALSE(ascii::beginsNoCase("VERS", "VERSION"));
    EXPECT_FALSE(ascii::beginsNoCase(" VERSION", "VERSION"));
}

TEST_F(Turkish, LocaleChangesNoComparison)
{
    const TurkishLocale turkish;
    vymParse parser;
    EXPECT_EQ(parser.compareString("MINI", "mini"), 0);
    EXPECT_EQ(parser.findString("a MINI", "mini", 0), 2);
    const std::string text = "version MINI=1\r\n";
    parser.loadData(text.data(), text.size(), load_targetinfo);
    std::string version;
    EXPECT_TRUE(parser.findTargetInfoVersion("mini", version));
}

TEST_F(Turkish, LocaleLeavesAPrinterItsModel)
{
    const TurkishLocale turkish;
    package({"ALLOWVERSIONDOWN NO", "VERSION MAIN=AB010100 main.bin"});
    open();
    tell(rows({"TGMNAME mini", "VERSION MAIN=AB010100", "MAXPACKET 160"}));
    ASSERT_EQ(m_protocol->GetFileData("TargetInfo.txt"), 1);
    std::string installed;
    const auto decision = m_protocol->DecideVersion("MINI", "main", "AB010100", "", installed);
    EXPECT_EQ(decision.reason, VersionReason::notNewer);
    EXPECT_EQ(installed, "AB010100");
}
