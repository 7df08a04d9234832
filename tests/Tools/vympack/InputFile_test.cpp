// SPDX-License-Identifier: MIT
#include "Tools/vympack/InputFile.h"
#include "tests/Tools/vympack/support.h"

#include <sys/stat.h>

using namespace vympack;
using namespace vympack_test;

TEST(VympackInputFile, ReadsStretchesOfARegularFile)
{
    const TempFolder folder;
    InputFile file;
    std::string reason;
    ASSERT_TRUE(file.open(folder.write("file", "12345678"), reason)) << reason;
    std::string text;
    EXPECT_TRUE(file.readText(2, 3, text));
    EXPECT_EQ(text, "345");
    EXPECT_FALSE(file.readText(6, 3, text));
    EXPECT_EQ(file.digest(0, 9), "");
    // As sha256sum gives it.
    EXPECT_EQ(file.digest(0, 8),
              "ef797c8118f02dfb649607dd5d3f8c7623048c9c063d532cc95c5ed7a898a64f");
    EXPECT_TRUE(file.isSameFile(folder / "file"));
    EXPECT_FALSE(file.isSameFile(folder / "none"));
}

TEST(VympackInputFile, WhatIsNoRegularFileIsRefusedAtOnce)
{
    const TempFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    for (const auto& path :
         {folder / "pipe", folder.path().string(), folder / "none", std::string("/dev/null")}) {
        InputFile file;
        std::string reason;
        EXPECT_FALSE(file.open(path, reason)) << path;
        EXPECT_NE(reason, "");
    }
}
