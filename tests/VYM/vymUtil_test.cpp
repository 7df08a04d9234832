// SPDX-License-Identifier: MIT
#include "VYM/vymUtil.h"
#include "tests/support/TempFolder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <sys/stat.h>

namespace {

constexpr int kInvalidArgument = 22;
constexpr int kRange = 34;

using Field = std::array<char, 32>;

Field noise()
{
    Field field;
    field.fill('#');
    return field;
}

} // namespace

TEST(BoundedStringCopy, NeedsRoomForTheStringAndItsTerminator)
{
    const struct {
        const char* why;
        unsigned long size, length;
        int result;
    } rows[] = {
        {"no room at all", 0, 0, kRange},
        {"room for the terminator alone", 1, 0, 0},
        {"room for it and no terminator", 32, 32, kRange},
        {"one character fewer", 32, 31, 0},
        {"far too long", 4, 32, kRange},
        {"far shorter than the room", 32, 1, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const std::string text(row.length, 'x');
        auto field = noise();
        EXPECT_EQ(strcpy_s(field.data(), row.size, text.c_str()), row.result);
        if (row.result == 0)
            EXPECT_EQ(std::string(field.data()), text);
        else
            EXPECT_EQ(field, noise()) << "a refused copy leaves the field as it was";
    }
}

TEST(BoundedStringCopy, RefusesNullPointers)
{
    auto field = noise();
    EXPECT_EQ(strcpy_s(nullptr, 32, "text"), kInvalidArgument);
    EXPECT_EQ(strcpy_s(field.data(), 32, nullptr), kInvalidArgument);
    EXPECT_EQ(strcpy_s(nullptr, 0, nullptr), kInvalidArgument);
    EXPECT_EQ(field, noise());
}

TEST(CountedStringCopy, TestsTheWholeSourceAndCopiesAtMostTheCount)
{
    const struct {
        const char* why;
        unsigned long size;
        const char* text;
        unsigned long count;
        int result;
        std::string written; // the front of the field afterwards
    } rows[] = {
        {"the whole text, padded", 8, "abc", 6, 0, std::string("abc\0\0\0##", 8)},
        {"no terminator where the text is longer", 8, "abcdef", 3, 0, "abc#####"},
        {"exactly the text, no terminator", 8, "abc", 3, 0, "abc#####"},
        {"nothing to copy", 8, "abc", 0, 0, "########"},
        {"the text does not fit, though the count would", 3, "abc", 1, kRange, "########"},
        {"no room", 0, "", 0, kRange, "########"},
        {"an empty text becomes zeros", 4, "", 4, 0, std::string("\0\0\0\0####", 8)},
        {"a count above the room stops at the room", 4, "ab", 400, 0, std::string("ab\0\0####", 8)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        auto field = noise();
        EXPECT_EQ(strncpy_s(field.data(), row.size, row.text, row.count), row.result);
        EXPECT_EQ(std::string(field.data(), 8), row.written);
        EXPECT_TRUE(std::all_of(field.begin() + 8, field.end(), [](char c) { return c == '#'; }));
    }
}

TEST(CountedStringCopy, RefusesNullPointers)
{
    auto field = noise();
    EXPECT_EQ(strncpy_s(nullptr, 32, "text", 4), kInvalidArgument);
    EXPECT_EQ(strncpy_s(field.data(), 32, nullptr, 4), kInvalidArgument);
    EXPECT_EQ(field, noise());
}

TEST(BoundedMemoryCopy, CopiesOnlyWhatFits)
{
    const struct {
        const char* why;
        unsigned long size, count;
        int result;
    } rows[] = {
        {"nothing into nothing", 0, 0, 0},
        {"exactly the room", 16, 16, 0},
        {"one byte too many", 16, 17, kRange},
        {"a count like -1", 16, ~0UL, kRange},
    };
    const std::string source(64, 's');
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        auto field = noise();
        EXPECT_EQ(memcpy_s(field.data(), row.size, source.data(), row.count), row.result);
        const auto copied = std::count(field.begin(), field.end(), 's');
        EXPECT_EQ(static_cast<unsigned long>(copied), row.result == 0 ? row.count : 0);
    }
}

TEST(BoundedMemoryCopy, RefusesNullPointers)
{
    char byte = '#';
    EXPECT_EQ(memcpy_s(nullptr, 1, &byte, 1), kInvalidArgument);
    EXPECT_EQ(memcpy_s(&byte, 1, nullptr, 1), kInvalidArgument);
    EXPECT_EQ(memcpy_s(nullptr, 0, &byte, 0), kInvalidArgument);
    EXPECT_EQ(byte, '#');
}

TEST(FileOpening, GivesTheStreamOrTheReason)
{
    const TempFolder folder;
    folder.write("here", "text");
    std::FILE* file = nullptr;
    ASSERT_EQ(fopen_s(&file, (folder / "here").c_str(), "rb"), 0);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(std::fgetc(file), 't');
    std::fclose(file);
    EXPECT_EQ(fopen_s(&file, (folder / "missing").c_str(), "rb"), ENOENT);
    EXPECT_EQ(file, nullptr) << "a failure stores null over what was there";
}

TEST(PlainFile, IsNeitherFolderNorPipeNorDevice)
{
    const TempFolder folder;
    folder.write("here", "text");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink("here", folder.path() / "link");
    EXPECT_TRUE(isPlainFile((folder / "here").c_str()));
    EXPECT_TRUE(isPlainFile((folder / "link").c_str()));
    EXPECT_FALSE(isPlainFile((folder / "missing").c_str()));
    EXPECT_FALSE(isPlainFile((folder / "pipe").c_str()));
    EXPECT_FALSE(isPlainFile(folder.path().c_str()));
    EXPECT_FALSE(isPlainFile("/dev/null"));
    EXPECT_FALSE(isPlainFile(nullptr));
}

TEST(FileOpening, RefusesNullPointers)
{
    std::FILE* file = nullptr;
    EXPECT_EQ(fopen_s(nullptr, "/dev/null", "rb"), kInvalidArgument);
    EXPECT_EQ(fopen_s(&file, nullptr, "rb"), kInvalidArgument);
    EXPECT_EQ(fopen_s(&file, "/dev/null", nullptr), kInvalidArgument);
    EXPECT_EQ(file, nullptr);
}

TEST(Memory, ComesFilledWithZeros)
{
    constexpr unsigned long kSize = 5000;
    for (int round = 0; round < 20; ++round) {
        auto* block = static_cast<char*>(AllocMem(kSize));
        ASSERT_NE(block, nullptr);
        EXPECT_TRUE(std::all_of(block, block + kSize, [](char c) { return c == 0; }));
        std::fill_n(block, kSize, '#'); // dirty, in case the next round gets the same block
        FreeMem(block);
    }
}

TEST(Memory, OfNoBytesIsABlockToo)
{
    void* block = AllocMem(0);
    EXPECT_NE(block, nullptr);
    FreeMem(block);
}

TEST(Memory, BeyondTheMachineIsNull)
{
    const volatile unsigned long huge = std::numeric_limits<unsigned long>::max() / 2;
    EXPECT_EQ(AllocMem(huge), nullptr);
}

TEST(Memory, OfNullIsFreedWithoutHarm)
{
    FreeMem(nullptr);
}

TEST(NumberText, IsMadeOfDecimalDigitsOnly)
{
    const struct {
        const char* text;
        bool number;
    } rows[] = {
        {nullptr, true}, {"", true},      {"0", true},    {"0123456789", true}, {"12a", false},
        {"A", false},    {"-1", false},   {"+1", false},  {"1.5", false},       {" 1", false},
        {"1 ", false},   {"0x10", false}, {"1\t", false}, {"1\xB2", false},     {"\xC3\xA9", false},
        {"/", false},    {":", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(IsNumberStr(row.text), row.number) << (row.text != nullptr ? row.text : "null");
}

TEST(PortText, MeansUsbWhereItHoldsThatWordInLowerCase)
{
    const struct {
        const char* port;
        bool usb;
    } rows[] = {
        {"usb://Acme/P1?serial=7", true}, {"my-usb-port", true},   {"usb", true}, {"us", false},
        {"USB://Acme/P1", false},         {"Usb", false},          {"", false},   {nullptr, false},
        {"192.168.0.1", false},           {"lpd://host/q", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(IsStdUSBPort(row.port), row.usb) << (row.port != nullptr ? row.port : "null");
}

TEST(PortText, NeverMeansAPortOfAnotherPlatform)
{
    for (const char* port :
         {static_cast<const char*>(nullptr), "", "USB001", "usb", "MPUSBPRN01"}) {
        EXPECT_FALSE(IsUSBPRNPort(port));
        EXPECT_FALSE(IsMPUSBPRNPort(port));
    }
}

TEST(OtherPlatforms, AreNeverThisOneAndTheAnswerStaysUntouched)
{
    for (bool answer : {true, false}) {
        const bool before = answer;
        EXPECT_FALSE(IsWin9x(answer));
        EXPECT_EQ(answer, before);
    }
}

TEST(AssertionMessage, NamesPlaceAndExpressionAndStopsTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(assertionFailed("VYM/place", 12, "a != b"),
                 testing::HasSubstr("VYM/place:12: failed assertion `a != b'\n"));
}
