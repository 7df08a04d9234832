// SPDX-License-Identifier: MIT
#include "tests/VYM/ContainerFixture.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>

TEST_F(Container, FindsTheSecondEntryByItsName)
{
    open(TwoFiles());
    EXPECT_TRUE(container().IsBindVymFile());
    EXPECT_EQ(sizeOf("VYMINFO.txt"), kInfo.size());
    EXPECT_EQ(read("VYMINFO.txt", 0, 4096).bytes, kInfo);
    EXPECT_EQ(read("main.bin", 0, 4096).bytes, imageBytes(100));
    unsigned long offset = 0;
    unsigned long size = 0;
    EXPECT_TRUE(container().getBindMngData("VYMINFO.txt", offset, size));
    EXPECT_EQ(offset, 100U);
    EXPECT_EQ(size, kInfo.size());
}

TEST_F(Container, HasTheDocumentedBytes)
{
    std::string name = "b.bin";
    name.resize(32, '\0');
    std::string first = "a";
    first.resize(32, '\0');
    // A table of two entries after 3 bytes of data; all numbers have the least significant byte
    // first.
    const std::string bytes = "xyz" + first + std::string("\0\0\0\0\x01\0\0\0", 8) + name
        + std::string("\x01\0\0\0\x02\0\0\0", 8) + std::string("\x03\0\0\0\x02\0\0\0VYMBIND\0", 16);
    openBytes(m_folder, bytes);
    EXPECT_TRUE(container().IsBindVymFile());
    EXPECT_EQ(read("a", 0, 10).bytes, "x");
    EXPECT_EQ(read("b.bin", 0, 10).bytes, "yz");
}

TEST_F(Container, MatchesNamesExactly)
{
    const std::string longest(31, 'n');
    open(Package().file(longest, "long").file("Main.bin", "upper").file("main.bin", "lower"));
    EXPECT_EQ(read(longest.c_str(), 0, 10).bytes, "long");
    EXPECT_EQ(read("Main.bin", 0, 10).bytes, "upper");
    EXPECT_EQ(read("main.bin", 0, 10).bytes, "lower");
    const std::string shorter(30, 'n');
    const std::string longer(32, 'n');
    for (const char* name :
         {"MAIN.BIN", "main.bi", "main.bin ", "", shorter.c_str(), longer.c_str()})
        EXPECT_EQ(sizeOf(name), kUntouched) << name;
}

TEST_F(Container, GivesTheFirstOfTwoEntriesOfOneName)
{
    open(Package().file("a", "first").file("a", "second!"));
    EXPECT_EQ(read("a", 0, 10).bytes, "first");
}

TEST_F(Container, FindsAFileAfterManyOthers)
{
    Package package;
    for (int i = 0; i < 50; ++i)
        package.file("file" + std::to_string(i), std::string(static_cast<std::size_t>(i), 'x'));
    open(package);
    for (unsigned long i = 0; i < 50; ++i)
        EXPECT_EQ(sizeOf(("file" + std::to_string(i)).c_str()), i);
}

TEST_F(Container, MayHaveItsTableInFrontOfItsData)
{
    std::string bytes;
    for (const char* name : {"a", "b"}) {
        std::string entry = name;
        entry.resize(32, '\0');
        bytes += entry + std::string(name[0] == 'a' ? "\x50" : "\x52", 1)
            + std::string("\0\0\0\x02\0\0\0", 7);
    }
    bytes += "AABB" + std::string("\0\0\0\0\x02\0\0\0VYMBIND\0", 16);
    openBytes(m_folder, bytes);
    EXPECT_EQ(read("a", 0, 10).bytes, "AA");
    EXPECT_EQ(read("b", 0, 10).bytes, "BB");
}

TEST_F(Container, DoesNotFindWhatItDoesNotHold)
{
    open(TwoFiles());
    unsigned long size = kUntouched;
    EXPECT_FALSE(container().getBindFileSize("missing", size));
    EXPECT_EQ(size, 0U);
    EXPECT_FALSE(read("missing", 0, 10).result);
    unsigned long offset = kUntouched;
    size = kUntouched;
    EXPECT_FALSE(container().getBindMngData("missing", offset, size));
    EXPECT_EQ(offset, kUntouched);
    EXPECT_EQ(size, kUntouched);
}

TEST_F(Container, RefusesNullArguments)
{
    open(TwoFiles());
    unsigned long size = kUntouched;
    unsigned long offset = kUntouched;
    unsigned char byte = 0;
    EXPECT_FALSE(container().getBindFileSize(nullptr, size));
    EXPECT_EQ(size, kUntouched);
    EXPECT_FALSE(container().getBindMngData(nullptr, offset, size));
    EXPECT_EQ(offset, kUntouched);
    EXPECT_FALSE(container().getBindFileData(nullptr, 0, &byte, size));
    EXPECT_FALSE(container().getBindFileData("main.bin", 0, nullptr, size));
    EXPECT_EQ(size, kUntouched);
}

TEST_F(Container, LimitsARangeToTheEndOfTheFile)
{
    open(TwoFiles());
    const auto image = imageBytes(100);
    const struct {
        const char* why;
        unsigned long position, wanted, delivered;
    } rows[] = {
        {"ten bytes before the end", 90, 100, 10},
        {"at the end", 100, 100, 0},
        {"after the end", 101, 100, 0},
        {"far after it", 0xFFFFFFFF, 100, 0},
        {"farther than 32 bits", ~0UL, 100, 0},
        {"nothing wanted", 0, 0, 0},
        {"all", 0, 100, 100},
        {"one less", 0, 99, 99},
        {"the last byte", 99, 1, 1},
        {"more than 32 bits can add", 1, ~0UL, 99},
    };
    for (const auto& row : rows) {
        const auto data = read("main.bin", row.position, row.wanted);
        EXPECT_TRUE(data.result) << row.why;
        EXPECT_EQ(data.length, row.delivered) << row.why;
        EXPECT_EQ(data.bytes, image.substr(std::min(row.position, 100UL), row.delivered))
            << row.why;
    }
}

TEST_F(Container, WithOneEntryIsOpenedButCountsAsMissing)
{
    open(Package().file("VYMINFO.txt", kInfo));
    EXPECT_FALSE(container().IsBindVymFile());
    EXPECT_EQ(sizeOf("VYMINFO.txt"), kInfo.size()) << "open all the same";
}

TEST_F(Container, NeedsItsMagicWithTheClosingZero)
{
    const std::string zero(1, '\0');
    for (const std::string& magic :
         {std::string("VYMBIND\n"), std::string("VYMBIND "), std::string("xVYMBIND"),
          "vymbind" + zero, "VYMBINX" + zero, zero + "VYMBIND", std::string(8, '\0')}) {
        TwoFiles package;
        open(package.magic(magic));
        expectClosed();
    }
}

TEST_F(Container, StaysClosedOnceItWasClosed)
{
    open(TwoFiles());
    container().CloseVymFile();
    expectClosed();
    container().CloseVymFile();
    expectClosed();
}

TEST_F(Container, GivesTheBytesAtAnOffsetOrFailsIfSomeAreMissing)
{
    open(TwoFiles());
    unsigned long place = 0;
    unsigned long size = 0;
    ASSERT_TRUE(container().getBindMngData("VYMINFO.txt", place, size));
    std::string bytes(kInfo.size(), '#');
    auto* buffer = reinterpret_cast<unsigned char*>(bytes.data());
    EXPECT_TRUE(container().readBytes(place, buffer, size));
    EXPECT_EQ(bytes, kInfo);
    EXPECT_TRUE(container().readBytes(place, buffer, 0));
    const auto end = TwoFiles().bytes().size();
    EXPECT_TRUE(container().readBytes(end - size, buffer, size));
    EXPECT_FALSE(container().readBytes(end - size + 1, buffer, size));
    EXPECT_FALSE(container().readBytes(UINT64_MAX - size, buffer, size));
    EXPECT_FALSE(container().readBytes(place, nullptr, size));
    container().CloseVymFile();
    EXPECT_FALSE(container().readBytes(place, buffer, size));
}

TEST_F(Container, ThatIsClosedStopsACallerThatReadsItsTable)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    open(TwoFiles());
    container().CloseVymFile();
    unsigned long number = 0;
    EXPECT_DEATH(container().getBindMngData("main.bin", number, number),
                 testing::HasSubstr("VYM/vymBindInfo:440: failed assertion `m_fp != NULL'\n"));
}

TEST_F(Container, ThatIsMissingIsClosed)
{
    Package::openFolder(m_folder.path().string());
    expectClosed();
    Package::openFolder(m_folder / "no such folder");
    expectClosed();
}

TEST_F(Container, IsFoundInALongFolder)
{
    std::string folder = m_folder.path().string();
    while (folder.size() < 900)
        folder += "/" + std::string(60, 'd');
    std::filesystem::create_directories(folder);
    std::ofstream(folder + "/VYMBINDDATA", std::ios::binary) << TwoFiles().bytes();
    Package::openFolder(folder);
    EXPECT_TRUE(container().IsBindVymFile());
}

TEST_F(Container, IsOneForTheWholeProcess)
{
    open(TwoFiles());
    EXPECT_EQ(vymBindInfo::Instance(), vymBindInfo::Instance());
}
