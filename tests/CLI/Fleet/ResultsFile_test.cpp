// SPDX-License-Identifier: MIT
#include "CLI/Fleet/ResultsFile.h"
#include "tests/support/TempFolder.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using testing::HasSubstr;

namespace {

std::string line(const std::string& printer, int exitCode, const char* command = "update")
{
    return R"({"type":"result","printer":")" + printer + R"(","command":")" + command
        + R"(","exit_code":)" + std::to_string(exitCode) + "}";
}

class ResultsFileTest : public ::testing::Test {
protected:
    TempFolder m_folder;
    const std::string m_path = m_folder / "results";
    const ResultsFile m_file{m_path};
};

} // namespace

TEST_F(ResultsFileTest, KeepsALineForEachPrinter)
{
    EXPECT_EQ(m_file.prepare(), "");
    EXPECT_EQ(m_file.append(line("a", 0)), "");
    EXPECT_EQ(m_file.append(line("b", 16)), "");
    EXPECT_EQ(readFile(m_path), line("a", 0) + "\n" + line("b", 16) + "\n");
    const auto ends = m_file.ends("update");
    ASSERT_EQ(ends.size(), 2U);
    EXPECT_EQ(ends.at("a").memberClass, MemberClass::updated);
    EXPECT_EQ(ends.at("b").memberClass, MemberClass::failed);
}

TEST_F(ResultsFileTest, TheLastLineOfAPrinterCounts)
{
    for (const int code : {16, 0})
        EXPECT_EQ(m_file.append(line("a", code)), "");
    EXPECT_EQ(m_file.append(line("a", 22, "check")), "");
    EXPECT_EQ(m_file.ends("update").at("a").memberClass, MemberClass::updated);
    EXPECT_EQ(m_file.ends("check").at("a").memberClass, MemberClass::failed);
}

TEST_F(ResultsFileTest, IgnoresALineThatACrashHasCutOff)
{
    m_folder.write("results", line("a", 0) + "\n" + R"({"type":"result","printer":"b)");
    EXPECT_EQ(m_file.append(line("c", 2)), "");
    const auto ends = m_file.ends("update");
    EXPECT_EQ(ends.size(), 2U);
    EXPECT_EQ(ends.count("c"), 1U);
}

TEST_F(ResultsFileTest, HasNoEndsBeforeItsFirstCall)
{
    EXPECT_TRUE(m_file.ends("update").empty());
}

TEST_F(ResultsFileTest, SaysWhyItCannotBeWritten)
{
    EXPECT_THAT(ResultsFile("/nowhere/results").prepare(), HasSubstr("No such file"));
    EXPECT_THAT(ResultsFile("/nowhere/results").append("{}"), HasSubstr("No such file"));
    EXPECT_NE(ResultsFile(m_folder.path().string()).prepare(), "");
    EXPECT_THAT(ResultsFile("/dev/null").prepare(), HasSubstr("no ordinary file"));
}

TEST_F(ResultsFileTest, ALineThatDoesNotFitLeavesNothing)
{
    EXPECT_EQ(m_file.append(line("a", 0)), "");
    const auto before = readFile(m_path);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit usual{};
    getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit small{before.size() + 10, usual.rlim_max}; // a part of the line would fit
    setrlimit(RLIMIT_FSIZE, &small);
    const auto problem = m_file.append(line("b", 0));
    setrlimit(RLIMIT_FSIZE, &usual);
    EXPECT_THAT(problem, HasSubstr("full"));
    EXPECT_EQ(readFile(m_path), before);
}

TEST_F(ResultsFileTest, ManyProcessesNeverMixTheirLines)
{
    constexpr int kProcesses = 8;
    constexpr int kLines = 50;
    std::vector<pid_t> processes;
    for (int i = 0; i < kProcesses; ++i) {
        processes.push_back(fork());
        if (processes.back() != 0)
            continue;
        for (int n = 0; n < kLines; ++n)
            static_cast<void>(m_file.append(line(
                "p" + std::to_string(i) + "-" + std::to_string(n) + std::string(3000, 'x'), 0)));
        _exit(0);
    }
    for (const auto process : processes)
        EXPECT_EQ(waitpid(process, nullptr, 0), process);
    EXPECT_EQ(m_file.ends("update").size(), static_cast<std::size_t>(kProcesses * kLines));
}
