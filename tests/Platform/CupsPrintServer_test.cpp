// SPDX-License-Identifier: MIT
#include "tests/Platform/PrintServerQuestion.h"
#include "tests/support/PrivateCups.h"

#include <gtest/gtest.h>

namespace {

using Text = std::optional<std::string>;
using Names = std::vector<std::string>;

class CupsPrintServerTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!PrivateCups::isInstalled())
            GTEST_SKIP() << "needs the packages cups-daemon and cups-client";
    }
};

} // namespace

TEST_F(CupsPrintServerTest, ListsEveryQueueWithItsTexts)
{
    PrivateCups cups;
    cups.add({"net", "lpd://192.0.2.7/queue", "Acme P1 PS", "The office printer", "Room 4"});
    cups.add({"usb", "usb://Acme/P%202?serial=S77", "Acme P2"});
    cups.add({"raw", "socket://192.0.2.8:9100", "Other X"});
    cups.add({"own", "tzrq:own", "Acme P3", "\xE3\x83\x97\xE3\x83\xAA", "\xC3\xA9tage 2"});
    const auto reply = ask(cups.server());
    ASSERT_TRUE(reply.isListed) << reply.reason;
    EXPECT_EQ(reply.reason, "");
    const struct {
        Text identifier, name, location, deviceUri, makeAndModel;
    } rows[] = {
        {"net", "The office printer", "Room 4", "lpd://192.0.2.7/queue", "Acme P1 PS"},
        {"own", "\xE3\x83\x97\xE3\x83\xAA", "\xC3\xA9tage 2", "tzrq:own", "Acme P3"},
        {"raw", "raw", {}, "socket://192.0.2.8:9100", "Other X"},
        {"usb", "usb", {}, "usb://Acme/P%202?serial=S77", "Acme P2"},
    };
    ASSERT_EQ(reply.queues.size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        SCOPED_TRACE(*rows[i].identifier);
        EXPECT_EQ(reply.queues[i].identifier, rows[i].identifier);
        EXPECT_EQ(reply.queues[i].name, rows[i].name);
        EXPECT_EQ(reply.queues[i].location, rows[i].location);
        EXPECT_EQ(reply.queues[i].deviceUri, rows[i].deviceUri);
        EXPECT_EQ(reply.queues[i].makeAndModel, rows[i].makeAndModel);
    }
}

TEST_F(CupsPrintServerTest, KeepsTheServersOrder)
{
    PrivateCups cups;
    for (const char* name : {"c", "a", "B"})
        cups.add({name, "lpd://192.0.2.7/q", "Acme P1"});
    EXPECT_EQ(ask(cups.server()).identifiers(), (Names{"a", "B", "c"}));
}

TEST_F(CupsPrintServerTest, SeesQueuesComeAndGo)
{
    PrivateCups cups;
    cups.add({"first", "lpd://192.0.2.7/q", "Acme P1"});
    EXPECT_EQ(ask(cups.server()).identifiers(), (Names{"first"}));
    cups.add({"second", "lpd://192.0.2.8/q", "Acme P1"});
    cups.remove("first");
    EXPECT_EQ(ask(cups.server()).identifiers(), (Names{"second"}));
}

TEST_F(CupsPrintServerTest, ReturnsAnEmptyListForAServerWithoutQueues)
{
    const PrivateCups cups;
    const auto reply = ask(cups.server());
    EXPECT_TRUE(reply.isListed) << reply.reason;
    EXPECT_TRUE(reply.queues.empty());
}

TEST_F(CupsPrintServerTest, LeavesOutClassesOfPrinters)
{
    PrivateCups cups;
    cups.add({"member", "lpd://192.0.2.7/q", "Acme P1"});
    cups.addClass("everybody", "member");
    EXPECT_EQ(ask(cups.server()).identifiers(), (Names{"member"}));
}

TEST_F(CupsPrintServerTest, ListsFiveHundredQueues)
{
    std::vector<PrivateCups::Queue> seeded;
    for (int i = 1000; i < 1500; ++i)
        seeded.push_back({"q" + std::to_string(i), "lpd://192.0.2.7/q", "Acme P1"});
    const PrivateCups cups(seeded);
    const auto reply = ask(cups.server());
    ASSERT_EQ(reply.queues.size(), 500U) << reply.reason;
    EXPECT_EQ(reply.queues.front().identifier, "q1000");
    EXPECT_EQ(reply.queues.back().identifier, "q1499");
    EXPECT_EQ(reply.queues.back().makeAndModel, "Acme P1");
}

TEST_F(CupsPrintServerTest, SaysWhereNothingAnswersOnceTheServerHasStopped)
{
    PrivateCups cups;
    cups.add({"net", "lpd://192.0.2.7/q", "Acme P1"});
    cups.stop();
    const auto reply = ask(cups.server());
    EXPECT_FALSE(reply.isListed);
    EXPECT_TRUE(reply.queues.empty());
    EXPECT_EQ(reply.reason.rfind("The print system does not answer at \"" + cups.server(), 0), 0U)
        << reply.reason;
}
