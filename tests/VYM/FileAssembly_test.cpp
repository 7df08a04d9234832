// SPDX-License-Identifier: MIT
#include "VYM/FileAssembly.h"
#include "tests/support/Printer.h"

#include <gtest/gtest.h>

namespace {

using Step = FileAssembly::Step;

class Blocks {
public:
    Step add(std::uint16_t status, std::uint32_t offset, std::uint32_t total,
             const std::string& data, std::uint16_t sum = 0)
    {
        return m_file.add({status,
                           offset,
                           total,
                           sum,
                           {reinterpret_cast<const unsigned char*>(data.data()), data.size()}});
    }
    [[nodiscard]] std::string text() const
    {
        return {m_file.bytes().begin(), m_file.bytes().end()};
    }

private:
    FileAssembly m_file;
};

TEST(FileAssembly, PutsBlocksAtTheirOffsetsInAnyOrder)
{
    Blocks file;
    EXPECT_EQ(file.add(0, 5, 11, " world"), Step::more);
    EXPECT_EQ(file.add(128, 0, 11, "hello", printer::byteSum("hello world")), Step::complete);
    EXPECT_EQ(file.text(), "hello world");
}

TEST(FileAssembly, TakesStatus129AsTheLastBlockToo)
{
    Blocks file;
    EXPECT_EQ(file.add(129, 0, 2, "ab", printer::byteSum("ab")), Step::complete);
}

TEST(FileAssembly, CallsAFileWithAWrongSumDamaged)
{
    Blocks file;
    EXPECT_EQ(file.add(128, 0, 2, "ab", 1), Step::damaged);
}

TEST(FileAssembly, LetsOnlyTheLastBlocksSumDecide)
{
    Blocks file;
    EXPECT_EQ(file.add(0, 0, 4, "ab", 999), Step::more);
    EXPECT_EQ(file.add(128, 2, 4, "cd", printer::byteSum("abcd")), Step::complete);
}

TEST(FileAssembly, TakesTheSizeFromTheFirstBlock)
{
    Blocks file;
    EXPECT_EQ(file.add(0, 0, 3, "a"), Step::more);
    EXPECT_EQ(file.add(128, 1, 400, "bcdef", printer::byteSum("abc")), Step::complete);
    EXPECT_EQ(file.text(), "abc");
}

TEST(FileAssembly, WritesNoByteBeyondTheAnnouncedSize)
{
    const struct {
        const char* why;
        std::uint32_t offset;
    } table[] = {{"across the end", 3},
                 {"at the end", 4},
                 {"beyond it", 5},
                 {"offset and length wrap to 2", 0xFFFFFFFE},
                 {"the highest offset", 0xFFFFFFFF}};
    for (const auto& row : table) {
        SCOPED_TRACE(row.why);
        Blocks file;
        file.add(128, row.offset, 4, "wxyz");
        EXPECT_EQ(file.text(), row.offset == 3 ? std::string("\0\0\0w", 4) : std::string(4, '\0'));
    }
}

TEST(FileAssembly, RefusesAnyOtherStatus)
{
    for (const int status : {0x1, 0x82, 0x803, 0x804, 0x1001, 0xFFFF})
        EXPECT_EQ(Blocks().add(static_cast<std::uint16_t>(status), 0, 4, "ab"), Step::badBlock);
}

TEST(FileAssembly, HoldsNoMoreThan16MebibytesForAText)
{
    EXPECT_EQ(Blocks().add(0, 0, 16 * 1024 * 1024, "a"), Step::more);
    EXPECT_EQ(Blocks().add(0, 0, 16 * 1024 * 1024 + 1, "a"), Step::tooLarge);
    EXPECT_EQ(Blocks().add(128, 0, 0xFFFFFFFF, "a"), Step::tooLarge);
}

TEST(FileAssembly, RefusesBlocksWithoutDataAndBlocksThatNeverEnd)
{
    Blocks empty;
    EXPECT_EQ(empty.add(0, 0, 10, ""), Step::badBlock);
    Blocks endless;
    EXPECT_EQ(endless.add(0, 0, 4, "abcd"), Step::more);
    EXPECT_EQ(endless.add(0, 0, 4, "abcd"), Step::badBlock);
}

TEST(FileAssembly, AcceptsAnEmptyFile)
{
    Blocks file;
    EXPECT_EQ(file.add(128, 0, 0, ""), Step::complete);
    EXPECT_EQ(file.text(), "");
}

} // namespace
