// SPDX-License-Identifier: MIT
// The portability layer when memory runs out: no function throws.
#include "VYM/DebugText.h"
#include "tests/support/FailingMemory.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

int g_texts = 0;

int costly(int value)
{
    ++g_texts;
    return value;
}

} // namespace

TEST(PortabilityLayer, ThrowsNothingWhenMemoryIsShort)
{
    static int heard = 0;
    setDebugSink([](const char* /*text*/) { ++heard; });
    char* language = nullptr;
    unsigned long version = 0;
    {
        const MemoryShortage shortage(0);
        EXPECT_NO_THROW(outputDebugMsg("a text that is too long for any small string", 1));
        EXPECT_NO_THROW(debugText("OpenDeviceErr:%d", -3));
        EXPECT_NO_THROW(version = getSystemVersion());
        EXPECT_NO_THROW(language = getLocaleString());
    }
    setDebugSink(nullptr);
    EXPECT_EQ(heard, 2);
    EXPECT_GT(version, 0UL);
    EXPECT_NE(language, nullptr);
    std::free(language); // NOLINT: the caller frees it
}

TEST(DebugText, IsNotEvenFormattedWithoutASink)
{
    int written = 0;
    debugText("%d%n", costly(1), &written); // %n shows whether the text was formatted
    EXPECT_EQ(written, 0);
    EXPECT_EQ(g_texts, 1) << "the values themselves are the caller's";
}
