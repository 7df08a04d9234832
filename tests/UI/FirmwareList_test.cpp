// SPDX-License-Identifier: MIT
#include "UI/FirmwareList.h"

#include <gtest/gtest.h>

TEST(FirmwareList, ShowsWhatWasAddedInItsOrder)
{
    FirmwareList list;
    list.addFirmwareList("Main", "1.2.10");
    list.addFirmwareList("Engine", "1.1.5");
    EXPECT_EQ(list.numOfFirmware(), 2);
    EXPECT_EQ(list.numberOfRowsInTableView(), 2);
    EXPECT_EQ(list.objectValueForTableColumn("FirmwareType", 0), "Main");
    EXPECT_EQ(list.objectValueForTableColumn("FirmwareVersion", 0), "1.2.10");
    EXPECT_EQ(list.objectValueForTableColumn("FirmwareType", 1), "Engine");
    EXPECT_EQ(list.objectValueForTableColumn("FirmwareVersion", 1), "1.1.5");
}

TEST(FirmwareList, ShowsAMissingTextAsAnEmptyCell)
{
    FirmwareList list;
    list.addFirmwareList(std::nullopt, "1.0");
    list.addFirmwareList("Main", std::nullopt);
    EXPECT_EQ(list.objectValueForTableColumn("FirmwareType", 0), "");
    EXPECT_EQ(list.objectValueForTableColumn("FirmwareVersion", 1), "");
}

TEST(FirmwareList, HasNoOtherRowsAndNoTextInOtherColumns)
{
    FirmwareList list;
    EXPECT_EQ(list.objectValueForTableColumn("FirmwareType", 0), std::nullopt);
    list.addFirmwareList("Main", "1.0");
    EXPECT_EQ(list.objectValueForTableColumn("FirmwareType", 1), std::nullopt);
    EXPECT_EQ(list.objectValueForTableColumn("FirmwareType", -1), std::nullopt);
    EXPECT_EQ(list.objectValueForTableColumn("Other", 0), "");
    EXPECT_EQ(list.objectValueForTableColumn("Other", 1), std::nullopt);
}

TEST(FirmwareList, AllowsNoSelection)
{
    for (const int row : {-1, 0, 7})
        EXPECT_FALSE(FirmwareList::shouldSelectRow(row));
}
