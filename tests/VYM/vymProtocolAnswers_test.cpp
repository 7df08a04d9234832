// SPDX-License-Identifier: MIT
// Answers that are late, early, too many or missing, and which of them counts.
#include "tests/support/ProtocolFixture.h"

#include <gmock/gmock.h>

namespace {

constexpr const char* kCannotBeAsked = "SUPPORT_COMMAND 5101";

class vymProtocolAnswers : public ProtocolFixture {
protected:
    // A printer in download mode with pieces of 100 bytes; queries: whether it has the status
    // query.
    void prepare(std::size_t imageSize, bool queries = true)
    {
        package({"TGMNAME MODEL-A", "UPDATETIME 30", "SPECIALCMDPATTERN NO"}, imageSize);
        open();
        tell(targetInfo("160", queries ? "SUPPORT_COMMAND 5103" : kCannotBeAsked));
    }
    void silentPieces(int count)
    {
        for (; count > 0; --count)
            m_script.queueReply("");
    }
    void queue(int count, const std::string& reply)
    {
        for (; count > 0; --count)
            m_script.queueReply(reply);
    }
};

TEST_F(vymProtocolAnswers, SkipsLateAnswersToPiecesBeforeAnotherReply)
{
    prepare(250);
    m_script.queueReply("").queueReply("").queueReply(""); // three pieces without an answer in time
    m_script.queueReply(printer::piece()); // the first one's, which passes for the last block's
    EXPECT_EQ(update(), 1);
    m_script.queueReply(printer::piece(0x80)).queueReply(printer::piece(0x80));
    m_script.queueReply(printer::piece(0x80)).queueReply(printer::progress(128, 250, 250));
    EXPECT_EQ(m_protocol->CheckState(m_info), 1);
    EXPECT_EQ(m_info.m_updateState, state_finished);
}

TEST_F(vymProtocolAnswers, SkipsNoMoreAnswersThanThereArePiecesWithoutOne)
{
    prepare(50);
    m_script.queueReply("").queueReply(printer::piece());
    EXPECT_EQ(update(), 1);
    m_script.queueReply(printer::piece()).queueReply(printer::piece());
    m_script.queueReply(printer::progress(128, 50, 50));
    EXPECT_EQ(m_protocol->CheckState(m_info), -5);
}

TEST_F(vymProtocolAnswers, TreatsALateRefusalAsARefusal)
{
    prepare(50);
    m_script.queueReply("").queueReply(printer::piece());
    EXPECT_EQ(update(), 1);
    m_script.queueReply(printer::piece(0x804));
    EXPECT_EQ(m_protocol->CheckState(m_info), -2);
}

TEST_F(vymProtocolAnswers, NoticesALateRefusalOfAPrinterWithoutAStatusQuery)
{
    prepare(50, false);
    m_script.queueReply("").queueReply(printer::piece()); // the piece's, taken for the last block's
    m_script.queueReply(printer::piece(0x804)); // the last block's own
    EXPECT_EQ(update(), -2);
}

TEST_F(vymProtocolAnswers, TreatsSilenceAfterTheLastBlockAsAMissingAnswer)
{
    prepare(50, false);
    m_script.queueReply("").queueReply(printer::piece()).queueReply("");
    EXPECT_EQ(update(), 1);
}

TEST_F(vymProtocolAnswers, WaitsForASlowPrinterAsLongAsItGoesOnAnswering)
{
    prepare(5000);
    m_script.answerWith([this](const std::string& packet) {
        if (view(packet).isData())
            return std::string();
        m_time.advance(10000); // fifty pieces of ten seconds, though UPDATETIME is half a minute
        return m_protocol->FirmwareIsAnswered() ? printer::progress(128, 5000, 5000)
                                                : printer::piece();
    });
    EXPECT_EQ(update(), 1);
    EXPECT_EQ(m_protocol->CheckState(m_info), 1);
    EXPECT_EQ(m_info.m_updateState, state_finished);
}

TEST_F(vymProtocolAnswers, CountsEveryAnswerOfASlowPrinterWithoutAStatusQuery)
{
    prepare(500, false);
    silentPieces(5);
    queue(6, printer::piece());
    EXPECT_EQ(update(), 1);
    EXPECT_EQ(m_script.queuedReplies(), 0U);
    EXPECT_EQ(m_script.sent().size(), 2U + 6U + 5U);
}

TEST_F(vymProtocolAnswers, AreExpectedAtThePaceOfTheirOwnFirmware)
{
    prepare(50, false);
    bool isFirst = true;
    m_script.answerWith([&](const std::string& packet) {
        if (!view(packet).isFile() || (view(packet).isData() && !isFirst))
            return std::string();
        m_time.advance(view(packet).isData() || !isFirst ? 0 : 2000);
        return printer::piece();
    });
    EXPECT_EQ(update(), 1);
    isFirst = false; // from now on it answers only its last block, at once
    tell(targetInfo("160", kCannotBeAsked));
    EXPECT_EQ(update(), 1);
    EXPECT_THAT(m_script.timeouts(), testing::Contains(500UL));
    EXPECT_THAT(m_script.timeouts(), testing::Not(testing::Contains(4000UL)));
}

TEST_F(vymProtocolAnswers, RequestsALifeSignIfAnswersLagAndThenStop)
{
    prepare(500, false);
    silentPieces(5);
    queue(3, printer::piece());
    m_script.queueReply(""); // silence: gone, or nothing more to say
    tell(targetInfo("160", kCannotBeAsked));
    EXPECT_EQ(update(), 1);
    EXPECT_EQ(m_script.sent().back().substr(10, 14), "TargetInfo.txt");
}

TEST_F(vymProtocolAnswers, CallAFirmwareNotRefusedWhereTheLifeSignIsDamaged)
{
    prepare(500, false);
    silentPieces(5);
    queue(3, printer::piece());
    m_script.queueReply("");
    m_script.queueReply(printer::fileBlock({0x80, 0, 4, 1, "text"})); // its sum is another
    EXPECT_EQ(update(), -5);
}

TEST_F(vymProtocolAnswers, TakesTheBeginningOfAnAnswerForNoSilence)
{
    const std::string begun = printer::piece().substr(0, 10);
    for (const bool isAlive : {true, false}) {
        prepare(500, false);
        silentPieces(5);
        m_script.queueReply(printer::piece()).queueReply(begun);
        if (isAlive)
            tell(targetInfo("160", kCannotBeAsked));
        EXPECT_EQ(update(), isAlive ? 1 : -5);
        EXPECT_EQ(m_script.sent().back().substr(10, 14), "TargetInfo.txt");
    }
}

TEST_F(vymProtocolAnswers, ClaimsNoSuccessOfAPrinterThatNeverAnswers)
{
    prepare(500, false);
    silentPieces(5);
    queue(3, printer::piece());
    EXPECT_EQ(update(), -5);
}

TEST_F(vymProtocolAnswers, ReadsARefusalBeforeItSendsAnotherRequest)
{
    prepare(500, false);
    silentPieces(5);
    queue(3, printer::piece());
    m_script.queueReply("").queueReply(printer::piece(0x803));
    EXPECT_EQ(update(), -1);
}

TEST_F(vymProtocolAnswers, EndsWhenTheConnectionIsLostWhileAnswersAreDue)
{
    prepare(500, false);
    silentPieces(5);
    queue(2, printer::piece());
    m_script.failNextSend(1 + 6 + 1, conn::kReceiveFailed);
    EXPECT_EQ(update(), -6);
}

TEST_F(vymProtocolAnswers, EndsWhenThePrinterClosesWhileAnswersAreDue)
{
    prepare(500, false);
    silentPieces(5);
    m_script.queueReply(printer::piece());
    m_script.linkStateIs([this] { return LinkState{0, false, m_script.queuedReplies() == 0}; });
    EXPECT_EQ(update(), -6);
}

TEST_F(vymProtocolAnswers, CountsNoAnswerThatCameBeforeTheLastBlockHadArrived)
{
    prepare(100, false);
    unsigned long unsent = 60;
    m_script.linkStateIs([&unsent] { return LinkState{unsent, false, false}; });
    m_script.answerWith([&](const std::string& packet) {
        if (packet.empty())
            unsent = 0;
        return packet.empty() ? printer::piece(0x804) : printer::piece();
    });
    EXPECT_EQ(update(), -2) << "the refusal is the last block's own";
}

TEST_F(vymProtocolAnswers, WaitsAsLongAsThePrinterAcceptsBytes)
{
    prepare(100, false);
    unsigned long unsent = 60;
    m_script.linkStateIs([&unsent] { return LinkState{unsent, false, false}; });
    m_script.answerWith([&](const std::string& packet) {
        if (!packet.empty())
            return view(packet).isData() ? printer::piece() : std::string();
        m_time.advance(8000);
        return --unsent == 0 ? printer::piece() : std::string();
    });
    EXPECT_EQ(update(), 1);
    EXPECT_EQ(m_script.timeouts().back(), 30000U);
}

TEST_F(vymProtocolAnswers, WaitsOnceMoreIfTheLastBytesLeftDuringTheWait)
{
    bool wasBehind = true;
    bool lastIsOut = false;
    int waits = 0;
    for (const int code : {1, -5}) {
        wasBehind = code == 1;
        lastIsOut = false;
        waits = 0;
        prepare(100, false);
        m_script.linkStateIs([&] {
            return LinkState{lastIsOut ? 0UL : 60UL, false, false,
                             wasBehind && !lastIsOut ? 60UL : 0UL};
        });
        m_script.answerWith([&](const std::string& packet) {
            lastIsOut = lastIsOut || (!packet.empty() && view(packet).isClosing());
            const bool isAnswered = packet.empty() ? waits++ == 0 : view(packet).isData();
            return isAnswered ? printer::piece() : std::string();
        });
        EXPECT_EQ(update(), code);
    }
}

TEST_F(vymProtocolAnswers, GivesUpWhereNothingLeavesForTheWholeTime)
{
    prepare(100, false);
    m_script.linkStateIs([] { return LinkState{60, false, false}; });
    m_script.answerWith([&](const std::string& packet) {
        if (!packet.empty())
            return view(packet).isData() ? printer::piece() : std::string();
        m_time.advance(500);
        return std::string();
    });
    const auto start = m_time.nowMilliseconds();
    EXPECT_EQ(update(), -6);
    EXPECT_LE(m_time.nowMilliseconds() - start, 36000U);
}

TEST_F(vymProtocolAnswers, TreatsNoReplyThatCameBeforeARequestAsItsAnswer)
{
    prepare(100);
    m_script.queueReply(printer::piece()).queueReply(printer::piece());
    EXPECT_EQ(update(), 1);
    // A thousand unrequested answers, all but the last still "writing".
    queue(1000, printer::progress(129, 100, 10));
    m_script.linkStateIs([this] { return LinkState{0, m_script.queuedReplies() > 1, false}; });
    m_script.queueReply(printer::progress(128, 100, 100));
    EXPECT_EQ(m_protocol->CheckState(m_info), 1);
    EXPECT_EQ(m_info.m_updateState, state_finished);
}

TEST_F(vymProtocolAnswers, UsesTheNewestOfSeveralStatusReplies)
{
    prepare(100);
    m_script.queueReply(printer::piece()).queueReply(printer::piece());
    EXPECT_EQ(update(), 1);
    queue(1000, printer::progress(129, 100, 10));
    m_script.queueReply(printer::progress(128, 100, 100));
    const auto before = m_script.sent().size();
    m_script.linkStateIs([this, before] { // they arrive all at once, after the query
        return LinkState{0, m_script.sent().size() > before && m_script.queuedReplies() != 0,
                         false};
    });
    EXPECT_EQ(m_protocol->CheckState(m_info), 1);
    EXPECT_EQ(m_info.m_updateState, state_finished);
}

TEST_F(vymProtocolAnswers, CountsARefusalThatIsThereBeforeTheLastBlock)
{
    prepare(100, false);
    m_script.queueReply(""); // the piece
    m_script.queueReply(printer::piece(0x804));
    m_script.linkStateIs([this] { return LinkState{0, m_script.queuedReplies() == 1, false}; });
    EXPECT_EQ(update(), -2);
}

TEST_F(vymProtocolAnswers, CountInThePauseAfterAFirmware)
{
    const struct {
        const char* why;
        std::vector<std::string> late;
        int code;
    } table[] = {
        {"silence", {}, 1},
        {"the last block's own refusal", {printer::piece(0x804)}, -2},
        {"the last answer that was due", {printer::piece()}, 1},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.why);
        m_script.linkStateIs(nullptr);
        prepare(50, false);
        m_script.queueReply("").queueReply(printer::piece()).queueReply("");
        EXPECT_EQ(update(), 1);
        for (const auto& answer : row.late)
            m_script.queueReply(answer);
        m_script.linkStateIs([this] { return LinkState{0, m_script.queuedReplies() != 0, false}; });
        EXPECT_EQ(m_protocol->HearLateAnswers(), row.code);
    }
}

TEST_F(vymProtocolAnswers, EndATransferThatOutlastsEveryPrinter)
{
    prepare(5000);
    m_script.answerWith([this](const std::string&) {
        m_time.advance(29000); // fifty pieces of half a minute: 200 bytes a second
        return printer::piece();
    });
    EXPECT_EQ(update(), -6);
    EXPECT_LT(filePackets().size(), 30U);
}

// Of a printer that seemed to answer only its last block.
TEST_F(vymProtocolAnswers, ThatComeWhileThePrinterIsLeftCountIfItAnswersThatRequestToo)
{
    const struct {
        const char* why;
        std::vector<std::string> late;
        int refused;
    } table[] = {
        {"silence", {}, 1},
        {"the request's own answer", {printer::exit()}, 1},
        {"an older answer, then the request's own", {printer::piece(), printer::exit()}, 1},
        {"an older answer, then silence", {printer::piece()}, -5},
        {"an older answer, then a refusal", {printer::piece(), printer::piece(0x804)}, -2},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.why);
        prepare(150, false);
        silentPieces(2);
        m_script.queueReply(printer::piece()).queueReply("");
        EXPECT_EQ(update(), 1);
        for (const auto& answer : row.late)
            m_script.queueReply(answer);
        EXPECT_EQ(m_protocol->ExitDownLoadMode(), 1);
        EXPECT_EQ(m_protocol->RefusedAtTheEnd(), row.refused);
        EXPECT_EQ(m_script.queuedReplies(), 0U);
    }
}

TEST_F(vymProtocolAnswers, ThatComeWhileThePrinterIsLeftAreNotWaitedForBeyondTheTransfersTime)
{
    prepare(150, false);
    silentPieces(2);
    m_script.queueReply(printer::piece()).queueReply("");
    EXPECT_EQ(update(), 1);
    m_time.advance(700000); // more than ten minutes
    m_script.queueReply(printer::piece()).queueReply(printer::piece());
    EXPECT_EQ(m_protocol->ExitDownLoadMode(), 1);
    EXPECT_EQ(m_protocol->RefusedAtTheEnd(), -5);
    EXPECT_EQ(m_script.queuedReplies(), 1U);
}

TEST_F(vymProtocolAnswers, AreWaitedForWhileThePrinterIsLeftForTwiceItsLongestTime)
{
    prepare(150, false);
    silentPieces(2);
    m_script.queueReply(printer::piece()).queueReply("");
    EXPECT_EQ(update(), 1);
    const auto before = m_script.timeouts().size();
    m_time.advance(3000);
    m_script.queueReply(printer::piece()).queueReply(printer::exit());
    EXPECT_EQ(m_protocol->ExitDownLoadMode(), 1);
    EXPECT_EQ(m_protocol->RefusedAtTheEnd(), 1);
    auto timeouts = m_script.timeouts();
    timeouts.erase(timeouts.begin(), timeouts.begin() + static_cast<std::ptrdiff_t>(before));
    EXPECT_THAT(timeouts,
                ::testing::Contains(::testing::AllOf(::testing::Ge(6000U), ::testing::Le(7500U))));
}

TEST_F(vymProtocolAnswers, AreHeardOutBeforeThePrinterIsLeft)
{
    prepare(300);
    silentPieces(3);
    queue(4, printer::piece());
    EXPECT_EQ(update(), 1);
    m_script.queueReply(printer::exit());
    EXPECT_EQ(m_protocol->ExitDownLoadMode(), 1);
    EXPECT_EQ(m_script.queuedReplies(), 0U);
}

} // namespace
