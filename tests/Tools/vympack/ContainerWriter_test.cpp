// SPDX-License-Identifier: MIT
#include "Tools/vympack/AtomicFile.h"
#include "Tools/vympack/ContainerWriter.h"
#include "tests/Tools/vympack/support.h"

using namespace vympack;
using namespace vympack_test;

TEST(VympackContainerWriter, WritesDataTableAndTrailerAndSaysWhereEachFileIs)
{
    const TempFolder folder;
    std::vector<Input> inputs(2);
    inputs[0].name = "VYMINFO.txt";
    inputs[0].text = goodDescription(); // goes in instead of a file
    inputs[1].name = "main.bin";
    std::string reason;
    ASSERT_TRUE(inputs[1].file.open(folder.write("main.bin", "firmware"), reason));
    AtomicFile out(folder / "package", AtomicFile::Existing::kept);
    std::vector<PackedFile> packed;
    ASSERT_TRUE(out.open() && writeContainer(inputs, out, packed) && out.commit());
    EXPECT_EQ(readFile(folder / "package"), container(goodFiles()));
    EXPECT_EQ(containerSize(inputs), out.written());
    ASSERT_EQ(packed.size(), 2U);
    EXPECT_EQ(packed[1].offset, goodDescription().size());
    EXPECT_EQ(packed[1].size, 8U);
}
