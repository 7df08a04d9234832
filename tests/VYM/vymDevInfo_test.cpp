// SPDX-License-Identifier: MIT
#include "VYM/vymDevInfo.h"

#include <cstring>
#include <gtest/gtest.h>
#include <thread>

namespace {

TEST(vymDevInfo, CopiesEveryField)
{
    tag_devinfo from{};
    storeState(from, state_writing);
    storeFirmwareName(from, "MAIN");
    storeField(from.m_bytesDone, 1U);
    storeField(from.m_bytesTotal, 2U);
    storeField(from.m_result, -11);
    storeField(from.m_firmwareNumber, 3U);
    storeField(from.m_updatedCount, 4U);
    storeField(from.m_checkStateSupported, std::uint8_t{1});
    tag_devinfo to{};
    copyDevInfo(from, to);
    EXPECT_EQ(to.m_updateState, state_writing);
    EXPECT_STREQ(to.m_firmwareName, "MAIN");
    EXPECT_EQ(to.m_bytesDone, 1U);
    EXPECT_EQ(to.m_bytesTotal, 2U);
    EXPECT_EQ(to.m_result, -11);
    EXPECT_EQ(to.m_firmwareNumber, 3U);
    EXPECT_EQ(to.m_updatedCount, 4U);
    EXPECT_EQ(to.m_checkStateSupported, 1);
}

TEST(vymDevInfo, LeavesOutANameThatDoesNotFitWithItsNul)
{
    tag_devinfo info{};
    storeFirmwareName(info, std::string(31, 'x'));
    EXPECT_EQ(std::strlen(info.m_firmwareName), 31U);
    storeFirmwareName(info, std::string(32, 'y'));
    EXPECT_STREQ(info.m_firmwareName, "");
}

TEST(vymDevInfo, EndsACopiedNameWithANul)
{
    tag_devinfo from{};
    std::memset(from.m_firmwareName, 'x', sizeof from.m_firmwareName);
    tag_devinfo to{};
    copyDevInfo(from, to);
    EXPECT_EQ(std::strlen(to.m_firmwareName), 31U);
}

TEST(vymDevInfo, NeverShowsAStateWithoutTheResultThatWasPublishedWithIt)
{
    tag_devinfo info{};
    info.m_result = 1;
    std::thread writer([&] {
        storeField(info.m_result, -6);
        storeState(info, state_failed);
    });
    tag_devinfo seen{};
    do {
        copyDevInfo(info, seen);
        EXPECT_TRUE(seen.m_updateState != state_failed || seen.m_result == -6);
    } while (seen.m_updateState != state_failed);
    writer.join();
}

} // namespace
