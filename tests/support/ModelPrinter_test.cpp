// SPDX-License-Identifier: MIT
#include "tests/support/ModelPrinter.h"
#include "tests/support/Printer.h"

#include <gtest/gtest.h>

namespace {

using printer::number;

std::string piece(unsigned kind, std::uint32_t start, const std::string& data)
{
    return printer::reply(0x5002,
                          number(0, 2) + "MAIN" + std::string(28, '\0') + number(kind, 2)
                              + number(start, 4) + number(100, 4)
                              + number(printer::byteSum(data), 2) + number(0, 2)
                              + number(static_cast<std::uint32_t>(data.size()), 4) + data);
}

// The answers to four pieces and the last block, "-" for silence.
std::string answers(ModelPrinter& printer)
{
    std::string all;
    for (std::uint32_t i = 0; i < 5; ++i) {
        const auto reaction = printer.take(piece(i == 4 ? 0x80 : 0, i * 2, i == 4 ? "" : "ab"));
        if (reaction.answer.empty())
            all += '-';
        else
            all += reaction.status == 0x80 ? 'F' : reaction.status == 0x81 ? 'W' : 'R';
        printer.gave(reaction);
    }
    return all;
}

TEST(ModelPrinterTest, AnswersEachPieceEachNthOrOnlyTheLastBlock)
{
    ModelPrinter each({});
    EXPECT_EQ(answers(each), "WWWWF");
    PrinterManners manners;
    manners.answerEvery = 2;
    ModelPrinter second(manners);
    EXPECT_EQ(answers(second), "-W-WF");
    manners.answerEvery = 0;
    ModelPrinter last(manners);
    EXPECT_EQ(answers(last), "----F");
}

TEST(ModelPrinterTest, RefusesOnceAndAgainAtTheLastBlock)
{
    PrinterManners manners;
    manners.refusedPacket = 1;
    manners.refusal = 0x0804;
    ModelPrinter printer(manners);
    EXPECT_EQ(answers(printer), "WR--R");
    EXPECT_EQ(printer.ledger().firmware("MAIN")->refusal, 0x0804);
}

TEST(ModelPrinterTest, RefusesTheLastBlockWhereThereAreFewerPackets)
{
    PrinterManners manners;
    manners.refusedPacket = 99;
    ModelPrinter printer(manners);
    EXPECT_EQ(answers(printer), "WWWWR");
}

TEST(ModelPrinterTest, SendsItsFileInBlocksWithTheirSums)
{
    PrinterManners manners;
    manners.targetInfo = "abcdef";
    manners.infoBlock = 4;
    ModelPrinter printer(manners);
    const auto answer = printer.take(printer::reply(0x5001, std::string(34, '\0'))).answer;
    EXPECT_EQ(answer,
              printer::fileBlock({0, 0, 6, printer::byteSum("abcd"), "abcd"})
                  + printer::fileBlock({0x80, 4, 6, printer::byteSum("abcdef"), "ef"}));
}

TEST(ModelPrinterTest, WritesForSoManyQueriesAndIsFinishedThen)
{
    PrinterManners manners;
    manners.writingAnswers = 1;
    ModelPrinter printer(manners);
    answers(printer);
    const auto query = printer::reply(0x5103, number(0, 2));
    printer.gave(printer.take(query));
    EXPECT_FALSE(printer.ledger().firmware("MAIN")->finished);
    printer.gave(printer.take(query));
    EXPECT_TRUE(printer.ledger().firmware("MAIN")->finished);
}

TEST(ModelPrinterTest, AnAnswerCountsOnceItHasLeft)
{
    ModelPrinter printer({});
    const auto reaction = printer.take(piece(0x80, 0, "ab"));
    EXPECT_FALSE(printer.ledger().firmware("MAIN")->lastAnswer.has_value());
    printer.gave(reaction);
    EXPECT_EQ(printer.ledger().firmware("MAIN")->lastAnswer, 0x80);
}

TEST(ModelPrinterTest, DoublesAndGarblesItsAnswersWhenItIsMeantTo)
{
    PrinterManners manners;
    manners.answerCopies = 2;
    manners.garbledAnswer = 1;
    manners.garble = "?";
    ModelPrinter printer(manners);
    const auto enter = printer::reply(0x5101, std::string(36, '\0'));
    EXPECT_EQ(printer.take(enter).answer, printer::enter() + printer::enter());
    EXPECT_EQ(printer.take(enter).answer, "?");
}

} // namespace
