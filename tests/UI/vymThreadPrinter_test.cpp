// SPDX-License-Identifier: MIT
#include "UI/vymThreadPrinter.h"
#include "UI/vym_etc.h"

#include <gtest/gtest.h>

TEST(ThreadPrinter, HasNoModelWithoutAWorker)
{
    std::string model = "former";
    EXPECT_FALSE(vymThread_GetPrinterModel(nullptr, model));
    EXPECT_EQ(model, "");
}

TEST(ThreadPrinter, HasNoModelBeforeItIsQueried)
{
    std::string model = "former";
    auto* worker = vym_thread_create();
    EXPECT_FALSE(vymThread_GetPrinterModel(worker, model));
    EXPECT_EQ(model, "");
    vym_thread_delete(worker);
}
