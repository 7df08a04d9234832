// SPDX-License-Identifier: MIT
#include "UI/Run/RunLog.h"
#include "tests/support/TempFolder.h"

#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <sys/resource.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

RunLogFacts someFacts()
{
    return {"vymkit-cli 1.0",
            "/media/stick",
            "Model 100",
            {{"Main controller", "1.2.10"}, {"Print engine", "1.1.5"}, {"Fax", "2.0"}},
            "Office",
            "192.0.2.7"};
}

tag_devinfo recordOf(update_state state, std::uint32_t number = 0, const char* name = "")
{
    tag_devinfo info{};
    info.m_updateState = state;
    info.m_firmwareNumber = number;
    // A name may fill its field, without a NUL.
    std::memcpy(info.m_firmwareName, name, strnlen(name, sizeof info.m_firmwareName));
    return info;
}

// The log's text, with every time of day replaced.
std::string timeless(const std::string& path)
{
    static const std::regex kTime(R"((\d{4}-\d\d-\d\d )?\d\d:\d\d:\d\d( [+-]\d{4})?)");
    return std::regex_replace(readFile(path), kTime, "TIME");
}

// No file of this process may grow beyond a size while it lives.
class SizeLimit {
public:
    explicit SizeLimit(rlim_t size)
    {
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit{size, m_former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SizeLimit() { setrlimit(RLIMIT_FSIZE, &m_former); }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;

private:
    rlimit m_former{};
};

} // namespace

TEST(RunLog, RecordsAWholeRun)
{
    const TempFolder folder;
    RunLog log(folder.path());
    log.start(someFacts());
    log.note("no sleep inhibitor: no system bus");
    log.look(recordOf(state_initial)); // the beginning of every run
    log.look(recordOf(state_entered));
    log.look(recordOf(state_checked, 1, "MAIN"));
    log.look(recordOf(state_sending, 1, "MAIN"));
    log.look(recordOf(state_checked, 2, "ENGINE"));
    log.outcome({1, 1, VersionReason::applies, true, true, 300, 300});
    log.outcome({2, -12, VersionReason::tooOld, false, false, 0, 700});
    log.end("too-old", -12);
    EXPECT_EQ(log.problem(), "");
    EXPECT_EQ(timeless(log.path()),
              "program: vymkit-cli 1.0\n"
              "started: TIME\n"
              "package: /media/stick\n"
              "model: Model 100\n"
              "firmware 1: Main controller 1.2.10\n"
              "firmware 2: Print engine 1.1.5\n"
              "firmware 3: Fax 2.0\n"
              "printer: Office\n"
              "address: 192.0.2.7\n"
              "note: no sleep inhibitor: no system bus\n"
              "TIME: entered\n"
              "TIME: checked, firmware 1 MAIN\n"
              "TIME: sending, firmware 1 MAIN\n"
              "TIME: checked, firmware 2 ENGINE\n"
              "outcome of firmware 1: applies; sent 300 of 300 bytes, confirmed by the printer; "
              "1 updated\n"
              "outcome of firmware 2: too-old; nothing sent; -12 too-old\n"
              "outcome of firmware 3: not reached\n"
              "result: -12 too-old\n"
              "ended: TIME\n");
}

TEST(RunLog, RecordsABadPackageInAFewLines)
{
    const TempFolder folder;
    RunLog log(folder.path());
    log.badPackage(someFacts(), "The folder holds no\nVYMBINDDATA.");
    EXPECT_EQ(timeless(log.path()),
              "program: vymkit-cli 1.0\n"
              "started: TIME\n"
              "package: /media/stick\n"
              "problem: The folder holds no\\x0aVYMBINDDATA.\n");
}

TEST(RunLog, WritesOneLineForAStageThatIsSeenManyTimes)
{
    const TempFolder folder;
    RunLog log(folder.path());
    for (int i = 0; i < 100; ++i)
        log.look(recordOf(state_entered));
    EXPECT_EQ(timeless(log.path()), "TIME: entered\n");
}

TEST(RunLog, HasEachLineOnDiskAtOnce)
{
    const TempFolder folder;
    RunLog log(folder.path());
    log.note("first");
    EXPECT_EQ(readFile(log.path()), "note: first\n");
}

TEST(RunLog, SaysWhereAResultHasNoCode)
{
    const TempFolder folder;
    RunLog log(folder.path());
    log.end("stopped", {});
    EXPECT_THAT(readFile(log.path()), StartsWith("result: stopped\nended: "));
}

TEST(RunLog, MakesTextsFromOutsideSafeToShow)
{
    const TempFolder folder;
    RunLog log(folder.path());
    auto facts = someFacts();
    facts.model = "Model\nresult: 1 updated\x1b[2J";
    log.start(facts);
    log.look(recordOf(state_sending, 1, "AAAABBBBCCCCDDDDAAAABBBBCCCC\n\x1b\xff!"));
    log.note(std::string(5000, 'x'));
    const auto text = readFile(log.path());
    EXPECT_THAT(text, HasSubstr(R"(model: Model\x0aresult: 1 updated\x1b[2J)"));
    EXPECT_THAT(text, HasSubstr(R"(AAAABBBBCCCCDDDDAAAABBBBCCCC\x0a\x1b\xff!)"));
    EXPECT_THAT(text, EndsWith("xxx...\n"));
    EXPECT_LT(text.size(), 2000U);
}

TEST(RunLog, LetsARunGoOnWithoutALog)
{
    RunLog log("/proc/vymkit");
    EXPECT_EQ(log.path(), "");
    EXPECT_THAT(log.problem(), HasSubstr("/proc/vymkit: "));
    log.start(someFacts());
    log.end("updated", 1);
}

TEST(RunLog, LetsARunGoOnWhereTheFileMayNotGrow)
{
    const TempFolder folder;
    RunLog log(folder.path());
    log.note("kept");
    {
        const SizeLimit limit(15); // in the middle of the next line
        log.note("broken off");
        log.note("lost");
    }
    log.note("lost as well");
    EXPECT_EQ(log.problem(), log.path() + ": File too large");
    EXPECT_EQ(readFile(log.path()), "note: kept\nnote");
}
