// SPDX-License-Identifier: MIT
#include "Tools/vympack/DescriptionCheck.h"
#include "tests/Tools/vympack/description_rows.h"

using namespace vympack;
using namespace vympack_test;
using testing::IsEmpty;

TEST(VympackDescription, TheGoodOneHasNoDefect)
{
    EXPECT_THAT(namesOf(check(goodDescription())), IsEmpty());
}

TEST(VympackDescription, BlankRowsAndCommentsAreFine)
{
    const std::string extra = "\r\n  \r\n\t\r\n# a comment\r\n; another\r\n// and another\r\n"
                              "  # indented\r\n--- VERSION ---\r\n  some indented words\r\n";
    EXPECT_THAT(namesOf(check(extra + goodDescription() + extra)), IsEmpty());
}

TEST(VympackDescription, TheLastRowNeedsNoEnd)
{
    auto text = goodDescription();
    text.resize(text.size() - 2);
    EXPECT_THAT(namesOf(check(text)), IsEmpty());
}

TEST(VympackDescription, BytesThatReadersCannotHandleAreNamed)
{
    expectRows({
        {"a bare line feed",
         "\"Model 100\"\r\nDRIVER",
         "\"Model 100\"\nDRIVER",
         {"error bare-line-feed"},
         2,
         22},
        {"a bare carriage return", "USB\r\n", "USB\r", {"error bare-carriage-return"}, 4, 9},
        {"a byte-order mark", "TGMNAME", "\xEF\xBB\xBFTGMNAME", {"error byte-order-mark"}, 1, 1},
        {"16-bit characters", "TGMNAME", "\xFF\xFETGMNAME", {"error byte-order-mark"}, 1, 1},
        {"16-bit characters, other order",
         "TGMNAME",
         "\xFE\xFFTGMNAME",
         {"error byte-order-mark"},
         1,
         1},
        {"a NUL byte", "USB", std::string("U\0B", 3), {"error nul-byte"}, 4, 7},
        {"a carriage return before a row's end",
         "USB\r\n",
         "USB\r\r\n",
         {"error bare-carriage-return"},
         4,
         9},
    });
}

TEST(VympackDescription, RowsAndTheirKeysAreChecked)
{
    expectRows({
        {"a misspelt key", "ENTERTIME 5", "ENTRETIME 5", {"warning unknown-key"}, 6, 1},
        {"a key of the printer's text",
         "ENTERTIME 5",
         "MAXPACKET 5",
         {"warning unknown-key"},
         6,
         1},
        {"a key that is only a beginning",
         "PORTNO 48350",
         "PORTNO 48350\r\nPORTNUMBER 1",
         {"warning unknown-key"},
         6,
         1},
        {"no blank after the key",
         "PORTNO 48350",
         "PORTNO=48350",
         {"warning unknown-key", "error bad-number"},
         5,
         1},
        {"blanks before a key", "PORTNO 48350", "\tPORTNO 48350", {"error leading-blank"}, 5, 1},
        {"a key twice",
         "ENTERTIME 5",
         "ENTERTIME 5\r\nENTERTIME 6",
         {"warning duplicate-key"},
         7,
         1},
        {"a longer key before its beginning",
         "PORT USB\r\nPORTNO 48350",
         "PORTNO 48350\r\nPORT USB",
         {"warning prefix-shadow"},
         4,
         1},
        {"only the longer key", "PORT USB\r\n", "", {}, 0, 0},
        {"a key in lower case", "PORTNO", "portno", {}, 0, 0},
        {"no model", "TGMNAME", "# TGMNAME", {"error missing-key"}, 0, 0},
        {"no model names", "MODELNAME", "# MODELNAME", {"warning missing-key"}, 0, 0},
        {"no driver names", "DRIVERNAME", "# DRIVERNAME", {"warning missing-key"}, 0, 0},
        {"no VERSION row",
         kVersion.c_str(),
         "",
         {"error no-version-row", "warning image-unused"},
         0,
         0},
    });
}

TEST(VympackDescription, EveryCutOfItIsCheckedWithoutHarm)
{
    const auto text = goodDescription() + std::string("\0\xFF\"=\t \r", 7);
    for (std::size_t from = 0; from < text.size(); from += 3) {
        for (std::size_t length = 0; from + length <= text.size(); length += 7)
            check(text.substr(from, length));
    }
}

TEST(VympackDescription, APackageThatNoUsbPrinterCanMatchIsNamed)
{
    const std::string models = "DEVICEIDMODELNAME \"Model 100\"\r\n";
    expectRows({
        {"a blank in the model", models.c_str(), "", {"warning no-usb-model"}, 0, 0},
        {"a bracket in the model",
         models.c_str(),
         "TGMNAME Model(1)\r\n",
         {"warning no-usb-model", "warning duplicate-key"},
         12,
         1},
    });
    auto text = replaced(goodDescription(), models, "");
    text = replaced(text, "TGMNAME \"Model 100\"", "TGMNAME Model-100");
    EXPECT_THAT(namesOf(check(text)), IsEmpty());
}

TEST(VympackDescription, TextsThatCannotBeShownAreNamed)
{
    expectRows({
        {"a control character",
         "MODELNAME \"Model",
         "MODELNAME \"Mo\x1B"
         "del",
         {"warning unprintable-text"},
         2,
         14},
        {"bytes that are no UTF-8",
         "DISPVER=1.2.3",
         "DISPVER=1.2\xFF",
         {"warning unprintable-text"},
         11,
         72},
        {"a sign that turns the reading direction",
         "DISPVER=1.2.3",
         "DISPVER=\xE2\x80\xAE"
         "1",
         {"warning unprintable-text"},
         11,
         69},
        {"letters beyond ASCII",
         "MODELNAME \"Model",
         "MODELNAME \"M\xC3\xB6"
         "del",
         {},
         0,
         0},
        {"a tab", "MODELNAME \"Model", "MODELNAME\t\"Model", {}, 0, 0},
    });
}

TEST(VympackDescription, TheRowToWriteInsteadIsGiven)
{
    const struct {
        const char *why, *from, *to, *instead;
    } rows[] = {
        {"a number", "PORTNO 48350", "PORTNO 0", "PORTNO 48350"},
        {"an answer", "BOTH", "MAYBE", "ALLOWVERSIONDOWN BOTH"},
        {"a missing row", "PLATFORMVERSION MACOS=0\r\n", "", "PLATFORMVERSION MACOS=0"},
        {"quotes", "TGMNAME \"Model 100\"", "TGMNAME Model 100", "TGMNAME \"Model 100\""},
        {"a misspelt key", "ENTERTIME 5", "ENTRETIME 5", "ENTERTIME 5"},
        {"blanks in front", "PORTNO", " \tPORTNO", "PORTNO 48350"},
        {"name and version first", "MAIN=AB010203 main.bin", "main.bin MAIN=AB010203",
         "VERSION MAIN=AB010203 main.bin MAIN.BIN COMPATIBLE=AB010100 DISPVER=1.2.3"},
        {"a compatible version that does not count", "AB010203", "01.10",
         "VERSION MAIN=01.10 main.bin MAIN.BIN DISPVER=1.2.3"},
        {"a name with a digit", "MAIN=", "MAIN2=",
         "VERSION MAIN=AB010203 main.bin MAIN.BIN COMPATIBLE=AB010100 DISPVER=1.2.3"},
        {"no name towards the printer", " MAIN.BIN", "",
         "VERSION MAIN=AB010203 main.bin MAIN.BIN COMPATIBLE=AB010100 DISPVER=1.2.3"},
        {"a misspelt token", "COMPATIBLE=", "COMPATIBEL=",
         "VERSION MAIN=AB010203 main.bin MAIN.BIN COMPATIBLE=AB010100 DISPVER=1.2.3"},
        {"no USB model", "DEVICEIDMODELNAME \"Model 100\"\r\n", "",
         "DEVICEIDMODELNAME \"Model 100\""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto defects = check(replaced(goodDescription(), row.from, row.to));
        ASSERT_FALSE(defects.kept().empty());
        EXPECT_EQ(defects.kept().front().instead, row.instead);
    }
}

TEST(VympackDescription, WhatIsWrittenInsteadMendsTheDefect)
{
    const std::pair<const char*, const char*> rows[] = {
        {"PORTNO 48350", "PORTNO 0"},
        {"UPDATETIME 30", "UPDATETIME 0"},
        {"ALLOWVERSIONDOWN BOTH", "ALLOWVERSIONDOWN MAYBE"},
        {"TGMNAME \"Model 100\"", "TGMNAME Model 100"},
        {"PLATFORMVERSION MACOS=0", "PLATFORMVERSION MACOS=x"},
        {"PORTNO 48350", "PORTNO=48350"},
        {"MAIN.BIN", "MAIN.BIN OTHER.BIN"},
        {"MAIN=AB010203", "MAIN=AB01020X"},
        {"COMPATIBLE=AB010100", "COMPATIBLE=AB010204"},
        {"main.bin", "MAIN.bin"},
        {"DISPVER=1.2.3", "OTHER=1"},
    };
    for (const auto& [from, to] : rows) {
        SCOPED_TRACE(to);
        const auto broken = replaced(goodDescription(), from, to);
        const auto defects = check(broken);
        ASSERT_FALSE(defects.kept().empty());
        const auto& defect = defects.kept().front();
        std::size_t begin = 0;
        for (std::size_t row = 1; row < defect.place.row; ++row)
            begin = broken.find("\r\n", begin) + 2;
        auto mended = broken;
        mended.replace(begin, broken.find("\r\n", begin) - begin, defect.instead);
        EXPECT_THAT(namesOf(check(mended)), IsEmpty()) << defect.instead;
    }
}
