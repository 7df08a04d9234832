// SPDX-License-Identifier: MIT
#include "DevConn/ReceiveCache.h"

#include <gtest/gtest.h>
#include <string>

namespace {

std::uint32_t store(ReceiveCache& cache, const std::string& text)
{
    return cache.SetCacheData(reinterpret_cast<const unsigned char*>(text.data()),
                              static_cast<std::uint32_t>(text.size()));
}

std::string take(ReceiveCache& cache, std::uint32_t length)
{
    std::string text(length, '?');
    text.resize(cache.GetCacheData(reinterpret_cast<unsigned char*>(text.data()), length));
    return text;
}

} // namespace

TEST(ReceiveCache, StoresWhatFitsAndSaysHowMuchThatWas)
{
    const struct {
        const char* why;
        std::uint32_t held, offered, stored;
    } rows[] = {
        {"a whole header", 0, 8, 8},      {"more than it holds", 0, 600, 512},
        {"two bytes of room", 510, 8, 2}, {"full", 512, 1, 0},
        {"nothing offered", 5, 0, 0},
    };
    const unsigned char bytes[600] = {};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        ReceiveCache cache;
        ASSERT_EQ(cache.SetCacheData(bytes, row.held), row.held);
        EXPECT_EQ(cache.SetCacheData(bytes, row.offered), row.stored);
        EXPECT_EQ(cache.GetCacheDataSize(), row.held + row.stored);
    }
}

TEST(ReceiveCache, GivesTheOldestBytesFirstAndKeepsTheOthers)
{
    ReceiveCache cache;
    store(cache, "abc");
    store(cache, "defg");
    EXPECT_EQ(take(cache, 2), "ab");
    EXPECT_EQ(take(cache, 3), "cde");
    store(cache, "h");
    EXPECT_EQ(take(cache, 100), "fgh");
    EXPECT_EQ(take(cache, 1), "");
}

TEST(ReceiveCache, FillsAgainToItsLastByte)
{
    ReceiveCache cache;
    const std::string full(512, 'x');
    store(cache, full);
    EXPECT_EQ(take(cache, 500).size(), 500U);
    EXPECT_EQ(store(cache, std::string(600, 'y')), 500U);
    EXPECT_EQ(take(cache, 512), std::string(12, 'x') + std::string(500, 'y'));
}

TEST(ReceiveCache, TakesAndGivesNoBytesForANullBuffer)
{
    ReceiveCache cache;
    EXPECT_EQ(cache.SetCacheData(nullptr, 8), 0U);
    store(cache, "abc");
    EXPECT_EQ(cache.GetCacheData(nullptr, 2), 0U);
    EXPECT_EQ(cache.GetCacheDataSize(), 3U);
    EXPECT_EQ(take(cache, 0), "");
    EXPECT_EQ(take(cache, 3), "abc");
}

TEST(ReceiveCache, IsEmptyOnceCleared)
{
    ReceiveCache cache;
    store(cache, "abc");
    cache.CacheBuffClear();
    EXPECT_EQ(cache.GetCacheDataSize(), 0U);
    EXPECT_EQ(take(cache, 3), "");
}
