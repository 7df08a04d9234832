// SPDX-License-Identifier: MIT
// Containers of the worst kinds: cut, with false fields, huge, or not a file.
#include "tests/VYM/ContainerFixture.h"
#include "tests/support/FailingMemory.h"

#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Sizes at which arithmetic fails first.
constexpr std::uint32_t kEdges[] = {0, 1, 0x7FFFFFFF, 0x80000000, 0x80000001, 0xFFFFFFFF};

// Ends this program if the code under test waits forever.
class Watchdog {
public:
    Watchdog() { alarm(10); }
    ~Watchdog() { alarm(0); }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
};

} // namespace

TEST_F(Container, IsNeverAFolderOrAPipeOrADanglingLink)
{
    const Watchdog watchdog;
    const auto path = m_folder / "VYMBINDDATA";
    std::filesystem::create_directory(path);
    Package::openFolder(m_folder.path().string());
    expectClosed();
    std::filesystem::remove(path);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    Package::openFolder(m_folder.path().string());
    expectClosed();
    std::filesystem::remove(path);
    std::filesystem::create_symlink("nowhere", path);
    Package::openFolder(m_folder.path().string());
    expectClosed();
}

TEST_F(Container, ThatMayNotBeReadIsClosed)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "this user may read everything";
    m_folder.write("VYMBINDDATA", TwoFiles().bytes());
    std::filesystem::permissions(m_folder / "VYMBINDDATA", std::filesystem::perms::none);
    Package::openFolder(m_folder.path().string());
    expectClosed();
}

TEST_F(Container, CutAnywhereIsClosed)
{
    const auto whole = TwoFiles().bytes();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        openBytes(m_folder, std::string_view(whole).substr(0, length));
        ASSERT_FALSE(container().IsBindVymFile()) << length;
        ASSERT_EQ(sizeOf("main.bin"), kUntouched) << length;
    }
}

TEST_F(Container, ThatLostBytesInTheMiddleNeverPromisesMoreThanItHolds)
{
    const auto whole = TwoFiles().bytes();
    const auto trailer = whole.substr(whole.size() - 16);
    for (std::size_t length = 0; length < whole.size() - 16; ++length) {
        SCOPED_TRACE(length);
        openBytes(m_folder, whole.substr(0, length) + trailer);
        ASSERT_TRUE(container().IsBindVymFile());
        ASSERT_EQ(sizeOf("missing"), kUntouched);
        for (const char* name : {"main.bin", "VYMINFO.txt"}) {
            unsigned char bytes[128];
            const bool everything = readWhole(name, bytes, sizeof bytes);
            ASSERT_TRUE(!everything
                        || std::min(sizeOf(name), sizeof bytes) <= length + trailer.size());
            const bool held = container().holdsEveryByte(name);
            ASSERT_TRUE(!held || sizeOf(name) <= length + trailer.size());
        }
    }
}

TEST_F(Container, IsSafeWithAnyEntryCount)
{
    for (const auto count : kEdges) {
        open(TwoFiles().count(count));
        const bool many = count == 0x7FFFFFFF; // the others are 0, 1 or negative
        EXPECT_EQ(container().IsBindVymFile(), many) << count;
        EXPECT_EQ(sizeOf("main.bin"), many || count == 1 ? 100 : kUntouched) << count;
        EXPECT_EQ(sizeOf("VYMINFO.txt"), many ? kInfo.size() : kUntouched) << count;
        EXPECT_EQ(sizeOf("missing"), kUntouched) << count;
    }
}

TEST_F(Container, IsNotSearchedForEntriesBeyondItsEnd)
{
    open(TwoFiles().count(0x7FFFFFFF));
    const auto start = std::clock();
    EXPECT_EQ(sizeOf("missing"), kUntouched);
    EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC); // all of them would take a minute
}

TEST_F(Container, LooksUpManyFilesInOneWalk)
{
    Package package;
    package.file("a", "12345").file("b", "xy").entry("a", 0, 1).entry("far", 0xFFFFFFFF, 9);
    openBytes(m_folder, package.bytes());
    const std::vector<std::string> names = {"far", "missing", "a", "a", "", "b"};
    container().lookUp(names);
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(sizeOf("a"), 5U) << "the first entry of the name";
        EXPECT_EQ(sizeOf("b"), 2U);
        EXPECT_EQ(sizeOf("far"), 9U);
        EXPECT_EQ(sizeOf("missing"), kUntouched);
        EXPECT_FALSE(container().holdsEveryByte("far"));
        EXPECT_TRUE(container().holdsEveryByte("b"));
    }
    container().CloseVymFile();
    EXPECT_EQ(sizeOf("a"), kUntouched);
    container().lookUp(names); // a closed one has no files
}

TEST_F(Container, IsSafeWithAnyTableOffset)
{
    for (const auto offset : kEdges) {
        open(TwoFiles().tableOffset(offset));
        EXPECT_TRUE(container().IsBindVymFile()) << offset;
        EXPECT_EQ(sizeOf("main.bin"), kUntouched) << offset;
        EXPECT_FALSE(read("main.bin", 0, 10).result) << offset;
    }
}

TEST_F(Container, IsSafeWithAnyDataOffset)
{
    for (const auto offset : kEdges) {
        open(TwoFiles().entry("x", offset, 16));
        EXPECT_EQ(sizeOf("x"), 16U) << offset;
        // A container that is too short is not noticed: the table's size counts.
        const auto data = read("x", 0, 100);
        EXPECT_TRUE(data.result) << offset;
        EXPECT_EQ(data.length, 16U) << offset;
        const bool inside = offset <= 1;
        EXPECT_EQ(container().holdsEveryByte("x"), inside) << offset;
        unsigned char buffer[16];
        EXPECT_EQ(readWhole("x", buffer, sizeof buffer), inside) << offset;
    }
}

TEST_F(Container, IsSafeWithAnyDataSize)
{
    for (const auto size : kEdges) {
        open(TwoFiles().entry("x", 0, size));
        EXPECT_EQ(sizeOf("x"), size);
        const auto data = read("x", 0, 10);
        EXPECT_TRUE(data.result);
        EXPECT_EQ(data.bytes, imageBytes(100).substr(0, std::min(size, 10U)));
        EXPECT_TRUE(read("x", size, 10).result);
        EXPECT_EQ(read("x", size, 10).length, 0U);
        EXPECT_EQ(container().holdsEveryByte("x"), size <= 1) << size;
        if (size > 1) {
            EXPECT_EQ(read("x", size - 1UL, 10).length, 1U) << "what the table promises";
            unsigned char byte = 0;
            EXPECT_FALSE(container().readBytes(size - 1UL, &byte, 1));
        }
    }
}

TEST_F(Container, ReadsNamesWithoutATerminatorUpToTheEndOfTheirField)
{
    const std::string full(32, 'n');
    open(Package().file(full, "x").file("VYMINFO.txt", kInfo));
    EXPECT_EQ(sizeOf("VYMINFO.txt"), kInfo.size());
    EXPECT_EQ(sizeOf((full + "n").c_str()), kUntouched);
}

TEST_F(Container, OfMoreThanTwoGigabytesIsReadToItsEnd)
{
    constexpr std::uint32_t kFar = 0x80000010;
    const auto small = Package()
                           .file("a", "")
                           .entry("far", kFar - 5, 5)
                           .entry("across", 0x7FFFFFFE, 4)
                           .entry("whole", 0, kFar)
                           .tableOffset(kFar)
                           .bytes(); // table and trailer only
    const auto path = m_folder / "VYMBINDDATA";
    const int file = open64(path.c_str(), O_CREAT | O_RDWR, 0600);
    ASSERT_GE(file, 0);
    ASSERT_EQ(ftruncate(file, kFar), 0);
    ASSERT_EQ(pwrite(file, "ABCD", 4, 0x7FFFFFFE), 4);
    ASSERT_EQ(pwrite(file, "hello", 5, kFar - 5), 5);
    ASSERT_EQ(pwrite(file, small.data(), small.size(), kFar), static_cast<ssize_t>(small.size()));
    close(file);
    Package::openFolder(m_folder.path().string());
    EXPECT_TRUE(container().IsBindVymFile());
    EXPECT_EQ(read("far", 0, 10).bytes, "hello");
    EXPECT_EQ(read("across", 1, 10).bytes, "BCD");
    EXPECT_EQ(sizeOf("whole"), kFar);
    EXPECT_EQ(read("whole", kFar - 5UL, 10).bytes, "hello");
    EXPECT_TRUE(container().holdsEveryByte("whole"));
}

TEST_F(Container, ReportsAReadErrorWithNoBytes)
{
    open(TwoFiles());
    // The system refuses to read into memory that is not writable.
    void* page = mmap(nullptr, 4096, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(page, MAP_FAILED);
    unsigned long length = 10;
    EXPECT_FALSE(
        container().getBindFileData("main.bin", 0, static_cast<unsigned char*>(page), length));
    EXPECT_EQ(length, 0U);
    munmap(page, 4096);
}

TEST_F(Container, KeepsDeliveringTheFileThatItOpened)
{
    open(TwoFiles());
    ASSERT_EQ(unlink((m_folder / "VYMBINDDATA").c_str()), 0);
    m_folder.write("VYMBINDDATA", "something else");
    EXPECT_EQ(read("VYMINFO.txt", 0, 4096).bytes, kInfo);
}

TEST_F(Container, NoticesThatItWasCutWhileItWasOpen)
{
    open(TwoFiles());
    EXPECT_TRUE(container().holdsEveryByte("VYMINFO.txt"));
    std::filesystem::resize_file(m_folder / "VYMBINDDATA", 20);
    EXPECT_FALSE(container().holdsEveryByte("VYMINFO.txt"));
    EXPECT_FALSE(read("main.bin", 0, 10).result) << "the table is gone";
}

TEST_F(Container, IsTriedAgainAfterMemoryRanOut)
{
    m_folder.write("VYMBINDDATA", TwoFiles().bytes());
    int attempts = 0;
    for (; attempts < 20; ++attempts) {
        Package::openFolder(m_folder.path().string());
        const MemoryShortage shortage(attempts);
        if (vymBindInfo::Instance() != nullptr)
            break;
    }
    EXPECT_GE(attempts, 1);
    EXPECT_LT(attempts, 20);
    EXPECT_TRUE(container().IsBindVymFile());
}
