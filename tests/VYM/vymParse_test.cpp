// SPDX-License-Identifier: MIT
#include "VYM/vymParse.h"
#include "tests/support/TempFolder.h"

#include <climits>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

using Texts = std::vector<std::string>;

// A parser with this text.
class Parser : public vymParse {
public:
    explicit Parser(const std::string& text, loadFile_type type = load_vyminfo)
    {
        loadData(text.data(), text.size(), type);
    }
};

struct BomResult {
    int format;
    unsigned long length;
    bool operator==(const BomResult&) const = default;
};

BomResult format(const char* bytes)
{
    unsigned long length = 99;
    const int result = vymParse().getFileFormat(bytes, length);
    return {result, length};
}

} // namespace

TEST(Parser, BeginsEmpty)
{
    const vymParse parser;
    EXPECT_EQ(parser.getTargetKeyRowData("", 0), "");
    EXPECT_EQ(parser.getTargetKeyRowData("KEY", 0), "");
    EXPECT_EQ(parser.countVersionRows(), 0U);
}

TEST(Parser, HoldsExactlyTheBytesThatItIsGiven)
{
    vymParse parser;
    EXPECT_TRUE(parser.loadData("KEY one and more", 7, load_vyminfo));
    EXPECT_EQ(parser.getTargetKeyRowData("KEY", 0), "KEY one");
    EXPECT_TRUE(parser.loadData("K\0Y one", 7, load_vyminfo));
    EXPECT_EQ(parser.getTargetKeyRowData("K", 0), std::string("K\0Y one", 7));
    EXPECT_TRUE(parser.loadData("KEY", 0, load_vyminfo));
    EXPECT_EQ(parser.getTargetKeyRowData("KEY", 0), "");
}

TEST(Parser, ReplacesItsTextAndTypeAtOnce)
{
    Parser parser("VERSION A=1\r\n", load_vyminfo);
    std::string name, version;
    EXPECT_FALSE(parser.getTargetInfoVersion(0, name, version));
    const std::string other = "VERSION B=2\r\n";
    EXPECT_TRUE(parser.loadData(other.data(), other.size(), load_targetinfo));
    EXPECT_TRUE(parser.getTargetInfoVersion(0, name, version));
    EXPECT_EQ(name, "B");
}

TEST(Parser, KeepsTextAndTypeForNullData)
{
    Parser parser("VERSION B=2\r\n", load_targetinfo);
    EXPECT_FALSE(parser.loadData(nullptr, 10, load_vyminfo));
    std::string name, version;
    EXPECT_TRUE(parser.getTargetInfoVersion(0, name, version));
    EXPECT_EQ(version, "2");
}

TEST(Parser, ReadsOneRowWhereLinesEndInLineFeedsOnly)
{
    const Parser parser("MODELNAME one\nPORTNO 8000\nTGMNAME x\n");
    std::string value;
    EXPECT_TRUE(parser.getStringValue("MODELNAME", value, 0));
    EXPECT_EQ(value, "one\nPORTNO") << "a line feed is no blank";
    int number = 5;
    EXPECT_FALSE(parser.getIntValue("PORTNO", number, 0, 10));
    EXPECT_EQ(number, 5);
}

TEST(Parser, TakesALongerKeysRowForAShorterKey)
{
    const Parser parser("PORTNO 8000\r\nPORT USB NET\r\n");
    EXPECT_EQ(parser.getTargetKeyRowData("PORT", 0), "PORTNO 8000");
    EXPECT_EQ(parser.getTargetKeyRowData("PORT", 1), "PORT USB NET");
}

TEST(Parser, IgnoresTheCaseOfAKey)
{
    const Parser parser("modelname \"Model 100\"\r\n");
    std::string value;
    EXPECT_TRUE(parser.getStringValue("MODELNAME", value, 0));
    EXPECT_EQ(value, "Model 100");
}

TEST(Parser, LosesTheFirstRowAfterAByteOrderMark)
{
    const Parser parser("\xEF\xBB\xBFPORTNO 1\r\nPORTNO 2\r\n");
    int number = 0;
    EXPECT_TRUE(parser.getIntValue("PORTNO", number, 0, 10));
    EXPECT_EQ(number, 2);
}

TEST(Parser, HandlesAKeyWithoutAValueByTheKindOfReader)
{
    for (const char* row : {"DRIVERNAME\r\n", "DRIVERNAME  \t \r\n"}) {
        const Parser parser(row);
        Texts list{"before"};
        EXPECT_TRUE(parser.getStringArrayValue("DRIVERNAME", list, 0));
        EXPECT_EQ(list, Texts{"before"});
        std::string value = "before";
        EXPECT_FALSE(parser.getStringValue("DRIVERNAME", value, 0));
        EXPECT_EQ(value, "");
        int number = 5;
        EXPECT_TRUE(parser.getIntValue("DRIVERNAME", number, 0, 10));
        EXPECT_EQ(number, -1);
        yesno_type answer = yesno_both;
        EXPECT_TRUE(parser.getYesNoValue("DRIVERNAME", answer, 0));
        EXPECT_EQ(answer, yesno_none);
    }
}

TEST(Parser, LeavesOutputsUntouchedForAMissingRowAndANullKey)
{
    const Parser parser("OTHER 1\r\n");
    for (const char* key : {"KEY", static_cast<const char*>(nullptr)}) {
        Texts list{"before"};
        std::string value = "before";
        int number = 5;
        yesno_type answer = yesno_both;
        EXPECT_FALSE(parser.getStringArrayValue(key, list, 0));
        EXPECT_FALSE(parser.getStringValue(key, value, 0));
        EXPECT_FALSE(parser.getIntValue(key, number, 0, 10));
        EXPECT_FALSE(parser.getYesNoValue(key, answer, 0));
        EXPECT_EQ(parser.getTargetKeyRowData(key, 0), "");
        EXPECT_EQ(list, Texts{"before"});
        EXPECT_EQ(value, "before");
        EXPECT_EQ(number, 5);
        EXPECT_EQ(answer, yesno_both);
    }
}

TEST(StringReader, GivesTheFirstTokenWithoutQuotes)
{
    const Parser parser("KEY \"A B\" C\r\nKEY plain more\r\nKEY \"\" x\r\nKEY a\"b c\"d e\r\n");
    const char* const expected[] = {"A B", "plain", "", "ab cd"};
    for (unsigned i = 0; i < std::size(expected); ++i) {
        std::string value = "before";
        EXPECT_TRUE(parser.getStringValue("KEY", value, i));
        EXPECT_EQ(value, expected[i]);
    }
}

TEST(ListReader, AppendsEveryTokenWithoutQuotes)
{
    const Parser parser("MODELNAME \"Model 100\" \"Model 200\"\r\nMODELNAME a \"\"\tb\r\n");
    Texts list{"before"};
    EXPECT_TRUE(parser.getStringArrayValue("MODELNAME", list, 0));
    EXPECT_EQ(list, (Texts{"before", "Model 100", "Model 200"}));
    EXPECT_TRUE(parser.getStringArrayValue("MODELNAME", list, 1));
    EXPECT_EQ(list, (Texts{"before", "Model 100", "Model 200", "a", "", "b"}));
}

TEST(NumberReader, ReadsTheStartOfTheValue)
{
    const Parser parser("N\t8000\r\nN \"8000\"\r\nN 0x5001\r\nN -7 8\r\nN x\r\nN 99999999999\r\n");
    const struct {
        unsigned index, base;
        int number;
    } rows[] = {{0, 10, 8000}, {0, 16, 0x8000}, {1, 10, 0}, {2, 16, 0x5001},
                {2, 10, 0},    {3, 10, -7},     {4, 10, 0}, {5, 10, INT_MAX}};
    for (const auto& row : rows) {
        int number = 5;
        EXPECT_TRUE(parser.getIntValue("N", number, row.index, row.base));
        EXPECT_EQ(number, row.number) << row.index << " " << row.base;
    }
}

TEST(YesNoReader, SearchesTheRestOfTheRowForItsWords)
{
    const struct {
        const char* why;
        const char* row;
        yesno_type answer;
    } rows[] = {
        {"after an equals sign", "KEY = YES", yesno_yes},
        {"in lower case", "KEY yes", yesno_yes},
        {"no", "KEY NO", yesno_no},
        {"both", "KEY BOTH", yesno_both},
        {"yes comes before no", "KEY NO YES", yesno_yes},
        {"no comes before both", "KEY BOTH NO", yesno_no},
        {"inside a longer word", "KEY NOT USED", yesno_no},
        {"yes inside a longer word", "KEY eyesight", yesno_yes},
        {"none of them", "KEY MAYBE", yesno_none},
        {"without a blank", "KEYYES", yesno_yes},
        {"in quotes", "KEY \"BOTH\"", yesno_both},
        {"only in the next row", "KEY\r\nYES", yesno_none},
    };
    for (const auto& row : rows) {
        yesno_type answer = yesno_none;
        EXPECT_TRUE(Parser(row.row).getYesNoValue("KEY", answer, 0));
        EXPECT_EQ(answer, row.answer) << row.why;
    }
}

TEST(YesNoReader, NeverSearchesTheKeyItself)
{
    const Parser parser("NOTICE x\r\nEYES x\r\n");
    yesno_type answer = yesno_both;
    EXPECT_TRUE(parser.getYesNoValue("NOTICE", answer, 0));
    EXPECT_EQ(answer, yesno_none);
    EXPECT_TRUE(parser.getYesNoValue("EYES", answer, 0));
    EXPECT_EQ(answer, yesno_none);
}

TEST(ParserHelpers, AnswerAboutStrings)
{
    const vymParse parser;
    EXPECT_EQ(parser.getNextRowData("KEY  value"), "value");
    EXPECT_EQ(parser.getSeparatePoint("\"A B\" C"), 5U);
    EXPECT_TRUE(parser.isSeparator(" x"));
    EXPECT_TRUE(parser.isSeparator("\tx"));
    EXPECT_FALSE(parser.isSeparator("x "));
    EXPECT_FALSE(parser.isSeparator(""));
    EXPECT_EQ(parser.findString("one Two", "tWO", 0), 4);
    EXPECT_EQ(parser.findString("one Two", "one", 1), -1);
    EXPECT_EQ(parser.findString("one Two", nullptr, 0), -1);
    EXPECT_EQ(parser.findString("one", "one", ULONG_MAX), -1);
    EXPECT_EQ(parser.compareString("Header", "HEADER"), 0);
    EXPECT_LT(parser.compareString("a", "B"), 0);
    EXPECT_GT(parser.compareString("b", "A"), 0);
    EXPECT_EQ(parser.compareString("", nullptr), -1);
    EXPECT_EQ(parser.removeDoubleQuot("\"a\"b\""), "ab");
    EXPECT_EQ(parser.removeWhiteSpace("A B\tC "), "AB\tC") << "tabs stay";
    EXPECT_EQ(parser.getNumberBeforeString("ABC123"), "ABC");
}

TEST(ParserHelpers, AnswerAboutEmptinessAndSizes)
{
    std::string text = "abc";
    std::string empty;
    std::vector<std::string> strings{"a", "b"};
    std::vector<int> numbers{1, 2, 3};
    EXPECT_FALSE(vymParse::isEmpty(text));
    EXPECT_TRUE(vymParse::isEmpty(empty));
    EXPECT_STREQ(vymParse::toString(text), "abc");
    EXPECT_EQ(vymParse::getArraySize(strings), 2);
    EXPECT_EQ(vymParse::getArraySize(numbers), 3);
}

TEST(DottedVersion, NeedsTextOnBothSidesOfItsFirstPoint)
{
    const struct {
        const char* text;
        bool split;
        int major, minor;
    } rows[] = {
        {"1.20", true, 1, 20},  {"1.2.3", true, 1, 2}, {"a.b", true, 0, 0},
        {"-1.+2", true, -1, 2}, {"1", false, 8, 9},    {"1.", false, 8, 9},
        {".1", false, 8, 9},    {"", false, 8, 9},     {".", false, 8, 9},
    };
    for (const auto& row : rows) {
        int major = 8;
        int minor = 9;
        EXPECT_EQ(vymParse().getExtVersion(row.text, major, minor), row.split) << row.text;
        EXPECT_EQ(major, row.major) << row.text;
        EXPECT_EQ(minor, row.minor) << row.text;
    }
}

TEST(ByteOrderMark, IsRecognisedByItsSecondAndThirdByte)
{
    EXPECT_EQ(format("\xFF\xFEx"), (BomResult{2, 2}));
    EXPECT_EQ(format("\xEF\xBB\xBF"), (BomResult{1, 3}));
    EXPECT_EQ(format("\xEF\xFEx"), (BomResult{2, 2})) << "either lead byte will do";
    EXPECT_EQ(format("\xFF\xBB\xBF"), (BomResult{1, 3})) << "either lead byte will do";
    EXPECT_EQ(format("\xEF\xBBx"), (BomResult{0, 0}));
    EXPECT_EQ(format("\xFE\xFFx"), (BomResult{0, 0}));
    EXPECT_EQ(format("KEY"), (BomResult{0, 0}));
    EXPECT_EQ(format(""), (BomResult{0, 0}));
    EXPECT_EQ(format("\xFF"), (BomResult{0, 0}));
    EXPECT_EQ(format(nullptr), (BomResult{0, 0}));
}

TEST(DescriptionOnDisk, IsReadCompletely)
{
    const TempFolder folder;
    std::string text = "FIRST 1\r\n" + std::string(100000, '#') + "\r\nLAST 2";
    folder.write("info.txt", text);
    vymParse parser;
    ASSERT_TRUE(parser.loadtargetFile((folder / "info.txt").c_str(), load_vyminfo));
    EXPECT_EQ(parser.getTargetKeyRowData("FIRST", 0), "FIRST 1");
    EXPECT_EQ(parser.getTargetKeyRowData("LAST", 0), "LAST 2");
    folder.write("empty.txt", "");
    ASSERT_TRUE(parser.loadtargetFile((folder / "empty.txt").c_str(), load_vyminfo));
    EXPECT_EQ(parser.getTargetKeyRowData("FIRST", 0), "");
}

TEST(DescriptionOnDisk, ThatCannotBeReadChangesNothing)
{
    const TempFolder folder;
    Parser parser("KEY 1\r\n");
    EXPECT_FALSE(parser.loadtargetFile(nullptr, load_vyminfo));
    EXPECT_FALSE(parser.loadtargetFile((folder / "missing").c_str(), load_vyminfo));
    EXPECT_FALSE(parser.loadtargetFile(folder.path().c_str(), load_vyminfo)) << "a folder";
    EXPECT_EQ(parser.getTargetKeyRowData("KEY", 0), "KEY 1");
}

TEST(DescriptionOnDisk, IsNeverWaitedForAtAPipe)
{
    const TempFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    alarm(10); // ends this program if it waits forever
    EXPECT_FALSE(vymParse().loadtargetFile((folder / "pipe").c_str(), load_vyminfo));
    alarm(0);
}

TEST(Parser, IsReadWhileAnotherThreadLoadsIt)
{
    constexpr int kRounds = 500;
    const std::string texts[] = {"VERSION A=1 a.bin\r\nPORTNO 1\r\n", "VERSION BB=22 b.bin\r\n"};
    vymParse parser;
    parser.loadData(texts[0].data(), texts[0].size(), load_vyminfo);
    std::thread loader([&] {
        for (int i = 0; i < kRounds; ++i)
            parser.loadData(texts[i % 2].data(), texts[i % 2].size(), load_vyminfo);
    });
    for (int i = 0; i < kRounds; ++i) {
        std::string name, version;
        ASSERT_TRUE(parser.getDispFirmVersion(0, name, version));
        ASSERT_TRUE((name == "A" && version == "1") || (name == "BB" && version == "22"));
    }
    loader.join();
}
