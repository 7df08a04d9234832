// SPDX-License-Identifier: MIT
#include "UI/Support/Doctor.h"
#include "tests/support/TempFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

TEST(DoctorSystem, AcceptsALogFolderThatCanBeMadeButDoesNotMakeIt)
{
    const TempFolder folder;
    const auto missing = folder.path() / "state" / "vymkit";
    EXPECT_EQ(doctor::checkLogFolder(missing.string()).status, FindingStatus::ok);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "state"));
}

TEST(DoctorSystem, WarnsOfALogFolderThatCannotBeMade)
{
    const TempFolder folder;
    folder.write("file", "");
    EXPECT_EQ(doctor::checkLogFolder((folder.path() / "file").string()).status,
              FindingStatus::warning);
    EXPECT_EQ(doctor::checkLogFolder("").status, FindingStatus::warning);
}
