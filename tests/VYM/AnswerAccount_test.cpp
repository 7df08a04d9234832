// SPDX-License-Identifier: MIT
// Which answer is the last block's own, and how long a further one is worth waiting for.
#include "VYM/AnswerAccount.h"

#include <gtest/gtest.h>

namespace {

constexpr unsigned long kLongest = 30000;
constexpr unsigned kLast = 100;

// Sends this many pieces, one every stepMs, of a file of that many, then its last block.
class Sending {
public:
    explicit Sending(AnswerAccount& account) : m_account(account) { m_account.beginFile(); }

    // answers(n): milliseconds after which the n-th piece (from 0) is answered; -1: not at all.
    template <class Answers> Sending& pieces(unsigned count, std::uint64_t stepMs, Answers answers)
    {
        for (unsigned n = 0; n < count; ++n) {
            m_account.sent(m_now, n * 100 / count);
            if (const int after = answers(n); after >= 0)
                m_account.heard(m_now + static_cast<unsigned>(after));
            m_now += stepMs;
        }
        m_account.sent(m_now, kLast);
        return *this;
    }
    Sending& heardAfter(std::uint64_t milliseconds, bool early = false)
    {
        m_now += milliseconds;
        m_account.heard(m_now, early);
        return *this;
    }

private:
    AnswerAccount& m_account;
    std::uint64_t m_now = 1000;
};

int never(unsigned /*n*/)
{
    return -1;
}
int atOnce(unsigned /*n*/)
{
    return 1;
}

TEST(AnswerAccount, IsCompleteWhereEveryPacketIsAnswered)
{
    AnswerAccount account;
    Sending sending(account);
    sending.pieces(20, 10, &atOnce);
    EXPECT_EQ(account.due(), 1U);
    EXPECT_FALSE(account.isComplete());
    sending.heardAfter(1);
    EXPECT_TRUE(account.isComplete());
}

TEST(AnswerAccount, DoesNotTakeTheFirstAnswerForTheLastBlocksOwn)
{
    AnswerAccount account;
    Sending sending(account);
    sending.pieces(3, 10, &never).heardAfter(100);
    EXPECT_FALSE(account.isComplete());
    EXPECT_FALSE(account.isLagging(kLongest)) << "it may be one that answers its last block alone";
    sending.heardAfter(160);
    EXPECT_TRUE(account.isLagging(kLongest));
    sending.heardAfter(160).heardAfter(160);
    EXPECT_TRUE(account.isComplete());
}

TEST(AnswerAccount, WaitsHalfASecondForAPrinterThatAnswersWithinThat)
{
    AnswerAccount account;
    Sending(account).pieces(5, 10, &never).heardAfter(450);
    EXPECT_EQ(account.patience(kLongest), 500U);
    EXPECT_EQ(account.patience(200), 200U);
}

TEST(AnswerAccount, WaitsTwiceAsLongAsThePrinterItselfTookForItsSlowestAnswer)
{
    AnswerAccount account;
    Sending sending(account);
    sending.pieces(50, 10, &never).heardAfter(300); // 800 ms since it had the first piece
    EXPECT_EQ(account.patience(kLongest), 1600U);
    sending.heardAfter(2000);
    EXPECT_EQ(account.patience(kLongest), 4000U);
    EXPECT_EQ(account.patience(3000), 3000U);
}

TEST(AnswerAccount, ConcludesNothingFromASilenceShorterThanThePrintersOwn)
{
    AnswerAccount account;
    Sending(account).pieces(50, 10, &never).heardAfter(1500);
    EXPECT_FALSE(account.isLagging(2000));
    EXPECT_TRUE(account.isLagging(1999));
}

TEST(AnswerAccount, KnowsAPrinterThatAnswersEachNewTenth)
{
    AnswerAccount account;
    Sending(account)
        .pieces(100, 100, [](unsigned n) { return n % 10 == 0 && n != 0 ? 2 : -1; })
        .heardAfter(2);
    EXPECT_FALSE(account.isComplete());
    EXPECT_FALSE(account.isLagging(kLongest));
    EXPECT_EQ(account.patience(kLongest), 500U) << "a tenth of this file takes a second";
}

TEST(AnswerAccount, WaitsTwiceAsLongAsTheLastBlockTookOnAPrinterThatAnswersEachNewTenth)
{
    AnswerAccount account;
    Sending(account)
        .pieces(100, 100, [](unsigned n) { return n % 10 == 0 && n != 0 ? 2 : -1; })
        .heardAfter(800);
    EXPECT_EQ(account.patience(kLongest), 1600U);
}

TEST(AnswerAccount, KnowsAPrinterThatAnswersEachTenthPiece)
{
    AnswerAccount account;
    Sending(account).pieces(35, 100, [](unsigned n) { return n % 10 == 9 ? 2 : -1; }).heardAfter(2);
    EXPECT_FALSE(account.isLagging(kLongest));
    EXPECT_EQ(account.patience(kLongest), 500U);
}

TEST(AnswerAccount, KnowsEachWayOfCountingTenthPieces)
{
    for (const unsigned first : {9U, 10U}) { // counted from 0
        for (unsigned count = 11; count <= 120; ++count) {
            AnswerAccount account;
            Sending(account)
                .pieces(count, 10,
                        [&](unsigned n) { return n != 0 && n % 10 == first % 10 ? 2 : -1; })
                .heardAfter(2);
            EXPECT_FALSE(account.isLagging(kLongest)) << count << " pieces from " << first;
        }
    }
}

TEST(AnswerAccount, TakesOneAnswerAtATenthForNoPattern)
{
    AnswerAccount account;
    Sending(account).pieces(15, 100, [](unsigned n) { return n == 9 ? 0 : -1; }).heardAfter(2);
    EXPECT_EQ(account.patience(kLongest), 1800U) << "that answer took 900 ms";
}

TEST(AnswerAccount, SuspectsOneThatHasNotAnsweredAllTenthsByTheLastBlock)
{
    // Of nine answers before the last block, this many come in time, and one more after it.
    const struct {
        unsigned inTime;
        bool isLagging;
    } rows[] = {{1, true}, {4, true}, {8, true}, {9, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.inTime);
        AnswerAccount account;
        Sending(account)
            .pieces(
                200, 10,
                [&](unsigned n) { return n % 20 == 0 && n != 0 && n / 20 <= row.inTime ? 2 : -1; })
            .heardAfter(2);
        EXPECT_EQ(account.isLagging(kLongest), row.isLagging);
    }
}

TEST(AnswerAccount, SuspectsOneWhoseAnswersComeAtOtherPieces)
{
    AnswerAccount account;
    Sending(account).pieces(50, 10, [](unsigned n) { return n % 10 == 4 ? 2 : -1; }).heardAfter(2);
    EXPECT_TRUE(account.isLagging(kLongest));
}

TEST(AnswerAccount, WaitsForTheSlowestAnswerWhereOneCameAfterAll)
{
    AnswerAccount account;
    Sending sending(account);
    sending.pieces(100, 100, [](unsigned n) { return n % 10 == 0 && n != 0 ? 2 : -1; })
        .heardAfter(2);
    EXPECT_TRUE(account.lastIsOut());
    sending.heardAfter(1500);
    EXPECT_EQ(account.patience(kLongest), 500U);
    EXPECT_EQ(account.longPatience(kLongest), 3000U);
    EXPECT_EQ(account.longPatience(2000), 2000U);
}

TEST(AnswerAccount, CountsNoAnswerThatCameBeforeThePacketHadArrived)
{
    AnswerAccount account;
    Sending sending(account);
    sending.pieces(1, 10, &atOnce).heardAfter(10, true);
    EXPECT_FALSE(account.isComplete());
    EXPECT_TRUE(account.isLagging(kLongest));
}

TEST(AnswerAccount, TrustsNoCountOfAPrinterThatAnswersTooOften)
{
    AnswerAccount account;
    account.sent(0, 0);
    account.heard(1);
    account.heard(2);
    account.beginFile();
    account.sent(3, kLast);
    account.heard(4);
    EXPECT_EQ(account.due(), 0U);
    EXPECT_FALSE(account.isComplete());
    EXPECT_TRUE(account.isLagging(kLongest));
    account.settle();
    EXPECT_TRUE(account.isComplete());
}

TEST(AnswerAccount, KeepsWhatIsDueFromOneFirmwareToTheNext)
{
    AnswerAccount account;
    Sending(account).pieces(3, 10, &never).heardAfter(5);
    account.beginFile();
    EXPECT_EQ(account.due(), 3U);
    EXPECT_FALSE(account.isLagging(kLongest));
    account.settle();
    EXPECT_EQ(account.due(), 0U);
}

} // namespace
