// SPDX-License-Identifier: MIT
#include "UI/vym_etc.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace {

TEST(vym_etc, ReturnsFalseWithoutAWorker)
{
    tag_devinfo info{};
    tag_entryoutcome outcome{};
    EXPECT_FALSE(vymThread_UpdateStart(nullptr, nullptr, nullptr, 1));
    EXPECT_FALSE(vymThread_StopThread(nullptr));
    EXPECT_FALSE(vymThread_SetPolling(nullptr, 5));
    EXPECT_FALSE(vymThread_ChooseEntries(nullptr, {}));
    EXPECT_FALSE(vymThread_SetVymInfo(nullptr));
    EXPECT_FALSE(vymThread_CheckState(nullptr, &info));
    EXPECT_FALSE(vymThread_GetEntryOutcome(nullptr, 0, &outcome));
    vym_thread_delete(nullptr);
}

TEST(vym_etc, TakesTheChoiceOfEntriesForAWorkerThatHasNotStarted)
{
    void* worker = vym_thread_create();
    ASSERT_NE(worker, nullptr);
    EntryChoice choice;
    choice.only = {1};
    EXPECT_TRUE(vymThread_ChooseEntries(worker, choice));
    vym_thread_delete(worker);
}

TEST(vym_etc, PassesQueriesOnToTheSystem)
{
    EXPECT_EQ(get_system_version(), getSystemVersion());
    EXPECT_TRUE(is_std_usb_port("usb://A/B"));
    EXPECT_FALSE(is_std_usb_port("10.0.0.1"));
    EXPECT_FALSE(is_mp_usb_prn_port("usb"));
    EXPECT_FALSE(is_usb_prn_port("usb"));
    char* locale = get_locale_string();
    EXPECT_TRUE(std::string(locale) == "en_GB.UTF-8" || std::string(locale) == "ja_JP.UTF-8");
    std::free(locale);
}

} // namespace
