// SPDX-License-Identifier: MIT
#include "Tools/vympack/AtomicFile.h"
#include "Tools/vympack/Interrupt.h"
#include "tests/Tools/vympack/support.h"

#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>

using namespace vympack;
using namespace vympack_test;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class VympackAtomicFile : public testing::Test {
protected:
    TempFolder m_folder;
};

} // namespace

TEST_F(VympackAtomicFile, AFileThatIsNotCommittedLeavesNoTrace)
{
    {
        AtomicFile file(m_folder / "package", AtomicFile::Existing::kept);
        ASSERT_TRUE(file.open());
        ASSERT_TRUE(file.write("half", 4));
        EXPECT_EQ(m_folder.names().size(), 1U);
    }
    EXPECT_TRUE(m_folder.names().empty());
}

TEST_F(VympackAtomicFile, AnEndingSignalStopsTheWritingAndLeavesNoTrace)
{
    const auto writeAfterSignal = [this] {
        catchInterrupts();
        std::raise(SIGTERM);
        AtomicFile file(m_folder / "package", AtomicFile::Existing::kept);
        return file.open() && !file.write("x", 1) && file.exitCode() == kExitInterrupted ? 0 : 1;
    };
    EXPECT_EXIT(std::exit(writeAfterSignal()), testing::ExitedWithCode(0), "");
    EXPECT_TRUE(m_folder.names().empty());
}

TEST_F(VympackAtomicFile, ACopyBeyondTheEndFails)
{
    InputFile from;
    std::string reason;
    ASSERT_TRUE(from.open(m_folder.write("short", "12345678"), reason));
    AtomicFile file(m_folder / "package", AtomicFile::Existing::kept);
    ASSERT_TRUE(file.open());
    EXPECT_FALSE(file.copy(from, 4, 5));
    EXPECT_THAT(file.reason(), HasSubstr("cannot be read to its end"));
}

TEST_F(VympackAtomicFile, ANameThatIsTakenWhileItIsWrittenIsKept)
{
    AtomicFile file(m_folder / "package", AtomicFile::Existing::kept);
    ASSERT_TRUE(file.open());
    m_folder.write("package", "first");
    EXPECT_FALSE(file.commit());
    EXPECT_EQ(file.exitCode(), kExitDefects);
    EXPECT_EQ(readFile(m_folder / "package"), "first");
}

TEST_F(VympackAtomicFile, AFullDeviceIsAnOutputThatCannotBeWritten)
{
    AtomicFile file("/dev/full", AtomicFile::Existing::replaced);
    EXPECT_FALSE(file.open());
    EXPECT_EQ(file.exitCode(), kExitNoOutput);
}
