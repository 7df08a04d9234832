// SPDX-License-Identifier: MIT
#include "UI/vymThreadRefusal.h"
#include "UI/vym_etc.h"

#include <gtest/gtest.h>

TEST(ThreadRefusal, NullIsNoWorker)
{
    EXPECT_FALSE(vymThread_RefuseFirmware(nullptr));
}

TEST(ThreadRefusal, AWorkerThatHasNotBegunSendsNoFirmwareAndSaysSoAgain)
{
    auto* worker = vym_thread_create();
    EXPECT_TRUE(vymThread_RefuseFirmware(worker));
    EXPECT_TRUE(vymThread_RefuseFirmware(worker));
    vym_thread_delete(worker);
}
