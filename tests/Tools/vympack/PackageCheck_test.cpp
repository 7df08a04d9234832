// SPDX-License-Identifier: MIT
#include "Tools/vympack/PackageCheck.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>

using namespace vympack;
using namespace vympack_test;
using testing::Contains;
using testing::IsEmpty;

TEST(VympackPackageCheck, AFolderIsCheckedByWhatIsInIt)
{
    const TempFolder folder;
    std::string reason;
    Defects none;
    EXPECT_FALSE(checkFolder(folder.path().string(), none, reason));
    EXPECT_NE(reason, "");
    reason.clear();
    folder.write("VYMINFO.txt", goodDescription());
    Defects missing;
    EXPECT_TRUE(checkFolder(folder.path().string(), missing, reason)) << reason;
    EXPECT_THAT(namesOf(missing), Contains("error image-missing"));
    folder.write("main.bin", "firmware");
    Defects complete;
    EXPECT_TRUE(checkFolder(folder.path().string(), complete, reason)) << reason;
    EXPECT_THAT(namesOf(complete), IsEmpty());
}

TEST(VympackPackageCheck, AnImageOutsideTheFolderIsNotRead)
{
    const TempFolder folder;
    std::filesystem::create_directory(folder / "inner");
    folder.write("main.bin", "firmware");
    folder.write("inner/VYMINFO.txt", replaced(goodDescription(), "main.bin", "../main.bin"));
    std::string reason;
    Defects defects;
    EXPECT_TRUE(checkFolder(folder / "inner", defects, reason));
    EXPECT_THAT(namesOf(defects), Contains("error image-missing"));
}
