// SPDX-License-Identifier: MIT
#include "Tools/vympack/ByteSink.h"
#include "tests/Tools/vympack/support.h"

#include <fcntl.h>

using namespace vympack;
using namespace vympack_test;

namespace {

class OpenFile final : public ByteSink {
public:
    explicit OpenFile(const std::string& path)
        : m_fd(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600))
    {
    }

private:
    int descriptor() const override { return m_fd.get(); }
    UniqueFd m_fd;
};

} // namespace

TEST(VympackByteSink, CountsAndDigestsWhatWasWritten)
{
    const TempFolder folder;
    InputFile from;
    std::string reason;
    ASSERT_TRUE(from.open(folder.write("from", "0123456789"), reason));
    OpenFile out(folder / "to");
    Sha256 part;
    ASSERT_TRUE(out.write("ab", 2));
    ASSERT_TRUE(out.copy(from, 3, 4, &part));
    EXPECT_EQ(readFile(folder / "to"), "ab3456");
    EXPECT_EQ(out.written(), 6U);
    Sha256 whole;
    addTo(whole, "ab3456", 6);
    EXPECT_EQ(out.digest(), hexOf(whole));
    Sha256 copied;
    addTo(copied, "3456", 4);
    EXPECT_EQ(hexOf(part), hexOf(copied));
}

TEST(VympackByteSink, EachFailureHasItsExitCode)
{
    OpenFile full("/dev/full");
    EXPECT_FALSE(full.write("x", 1));
    EXPECT_EQ(full.exitCode(), kExitNoOutput);
    EXPECT_EQ(full.reason(), "No space left on device");
    const TempFolder folder;
    InputFile from;
    std::string reason;
    ASSERT_TRUE(from.open(folder.write("from", "x"), reason));
    OpenFile out(folder / "to");
    EXPECT_FALSE(out.copy(from, 0, 2));
    EXPECT_EQ(out.exitCode(), kExitNoInput);
}
