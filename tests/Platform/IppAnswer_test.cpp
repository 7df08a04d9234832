// SPDX-License-Identifier: MIT
#include "Platform/IppAnswer.h"
#include "tests/Platform/IppMessage.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

namespace {

IppAnswer understood(const std::string& bytes)
{
    IppAnswer answer;
    EXPECT_TRUE(readIppAnswer(bytes, answer));
    return answer;
}

bool isRefused(const std::string& bytes)
{
    IppAnswer answer;
    answer.status = 1;
    answer.queues.emplace_back();
    const bool refused = !readIppAnswer(bytes, answer);
    EXPECT_TRUE(!refused || (answer.status == 0 && answer.queues.empty()));
    return refused;
}

} // namespace

TEST(IppAnswer, GivesTheFiveTextsOfEachQueue)
{
    const auto answer = understood(IppMessage()
                                       .group(1)
                                       .attribute(0x47, "attributes-charset", "utf-8")
                                       .group(4)
                                       .attribute(0x45, "device-uri", "lpd://h/q")
                                       .attribute(0x41, "printer-info", "Office")
                                       .attribute(0x41, "printer-location", "Room 4")
                                       .attribute(0x41, "printer-make-and-model", "Acme P1")
                                       .attribute(0x42, "printer-name", "office")
                                       .queue("second")
                                       .end());
    EXPECT_EQ(answer.status, 0);
    ASSERT_EQ(answer.queues.size(), 2U);
    EXPECT_EQ(answer.queues[0].identifier, "office");
    EXPECT_EQ(answer.queues[0].name, "Office");
    EXPECT_EQ(answer.queues[0].location, "Room 4");
    EXPECT_EQ(answer.queues[0].deviceUri, "lpd://h/q");
    EXPECT_EQ(answer.queues[0].makeAndModel, "Acme P1");
    EXPECT_EQ(answer.queues[1].identifier, "second");
    EXPECT_EQ(answer.queues[1].location, std::nullopt);
    EXPECT_EQ(answer.queues[1].deviceUri, std::nullopt);
    EXPECT_EQ(answer.queues[1].makeAndModel, std::nullopt);
}

TEST(IppAnswer, NamesAQueueWithoutADescriptionAfterItsIdentifier)
{
    EXPECT_EQ(understood(IppMessage().queue("q").end()).queues.at(0).name, "q");
    const auto empty = IppMessage().queue("q").attribute(0x41, "printer-info", "").end();
    EXPECT_EQ(understood(empty).queues.at(0).name, "q");
}

TEST(IppAnswer, HasNoTextWhereTheServersIsEmptyOrNoText)
{
    const auto answer = understood(IppMessage()
                                       .queue("q")
                                       .attribute(0x41, "printer-location", "")
                                       .attribute(0x21, "device-uri", "\0\0\0\1"s)
                                       .attribute(0x13, "printer-make-and-model", "")
                                       .end());
    EXPECT_EQ(answer.queues.at(0).location, std::nullopt);
    EXPECT_EQ(answer.queues.at(0).deviceUri, std::nullopt);
    EXPECT_EQ(answer.queues.at(0).makeAndModel, std::nullopt);
}

TEST(IppAnswer, ReadsTextsWithALanguage)
{
    const auto answer =
        understood(IppMessage()
                       .group(4)
                       .attribute(0x36, "printer-name", IppMessage::withLanguage("q"))
                       .attribute(0x35, "printer-info", IppMessage::withLanguage("Office"))
                       .attribute(0x35, "printer-location", "\0\x7F"s)
                       .end());
    EXPECT_EQ(answer.queues.at(0).identifier, "q");
    EXPECT_EQ(answer.queues.at(0).name, "Office");
    EXPECT_EQ(answer.queues.at(0).location, std::nullopt);
}

TEST(IppAnswer, CutsATextAtItsNul)
{
    EXPECT_EQ(understood(IppMessage().queue("q\0x"s).end()).queues.at(0).identifier, "q");
}

TEST(IppAnswer, TakesTheFirstOfSeveralValues)
{
    const auto answer = understood(IppMessage()
                                       .queue("q")
                                       .attribute(0x41, "printer-info", "first")
                                       .attribute(0x41, "", "second")
                                       .end());
    EXPECT_EQ(answer.queues.at(0).name, "first");
}

TEST(IppAnswer, LeavesOutAQueueWithoutAnIdentifier)
{
    const auto answer = understood(
        IppMessage().group(4).attribute(0x41, "printer-info", "x").group(4).queue("q").end());
    ASSERT_EQ(answer.queues.size(), 1U);
    EXPECT_EQ(answer.queues[0].identifier, "q");
}

TEST(IppAnswer, ReadsNoQueueFromOtherGroups)
{
    const auto answer = understood(IppMessage()
                                       .queue("q")
                                       .group(2)
                                       .attribute(0x42, "printer-name", "job")
                                       .group(5)
                                       .attribute(0x42, "printer-name", "unsupported")
                                       .end());
    ASSERT_EQ(answer.queues.size(), 1U);
    EXPECT_EQ(answer.queues[0].identifier, "q");
}

TEST(IppAnswer, SkipsCollectionsOfAnyDepth)
{
    IppMessage message;
    message.queue("q").attribute(0x34, "media-col", "");
    for (int depth = 0; depth < 200000; ++depth)
        message.attribute(0x4A, "", "printer-name").attribute(0x34, "", "");
    const auto answer = understood(message.queue("r").end());
    EXPECT_EQ(answer.queues.size(), 2U);
}

TEST(IppAnswer, GivesTheStatusOfAnAnswerWithoutQueues)
{
    const auto answer = understood(IppMessage(0x0406).end());
    EXPECT_EQ(answer.status, 0x0406);
    EXPECT_TRUE(answer.queues.empty());
}

TEST(IppAnswer, IgnoresBytesAfterTheEnd)
{
    EXPECT_EQ(understood(IppMessage().queue("q").end() + "more").queues.size(), 1U);
}

TEST(IppAnswer, IsRefusedWhereverItIsCutShort)
{
    const auto whole =
        IppMessage(0x0406).queue("q").attribute(0x41, "printer-info", "Office").end();
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_TRUE(isRefused(whole.substr(0, length))) << length;
    EXPECT_FALSE(isRefused(whole));
}

TEST(IppAnswer, IsRefusedWithMoreQueuesThanAnySiteHas)
{
    IppMessage message;
    for (std::size_t i = 0; i < kMostQueues; ++i)
        message.queue("q");
    EXPECT_EQ(understood(message.end()).queues.size(), kMostQueues);
    EXPECT_TRUE(isRefused(message.queue("one more").end()));
}

TEST(IppAnswer, IsRefusedWhenItIsLongerThanAnyAnswer)
{
    IppMessage message;
    message.queue("q");
    const std::string longText(60000, 'x');
    while (message.unended().size() <= kLongestAnswer)
        message.attribute(0x41, "other", longText);
    EXPECT_TRUE(isRefused(message.end()));
}
